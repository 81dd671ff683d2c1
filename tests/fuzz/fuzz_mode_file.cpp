// Mode file of a cantilever of one beam, through the readers of module and host, and the files of its spectrum
// analysis: refused, or whole and finite.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "../HostModel.h"
#include "TextPlatform.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/SpectrumResultFile.h"

namespace {

using skyframe::CAnalysisModel;

using skyframe::test::CTextPlatform;
using skyframe::test::Demand;

bool IsFinite(double d) { return std::isfinite(d); }

void ReadWhole(int nExpandModes, int bVirtual) {
  CAnalysisModel model;
  model.BuildModel();
  model.m_nExpandModes = nExpandModes;
  model.m_bVirtualModes = bVirtual;
  model.m_bValid = false;
  const bool bRead = model.ReadModeFile("job");
  Demand(bRead == model.m_bValid);
  if (!bRead) return;
  Demand(static_cast<int>(model.Omega.size()) == model.ModeShapes.GetCols());
  Demand(model.ModeShapes.GetRows() == model.GetFreeDofs());
  for (int i = 0; i < model.GetFreeDofs(); ++i) {
    Demand(std::all_of(model.ModeShapes[i], model.ModeShapes[i] + model.ModeShapes.GetCols(), IsFinite));
  }
}

void ReadFrequencies() {
  CAnalysisModel model;
  model.BuildModel();
  if (!model.ReadModeFrequencies("job")) return;
  Demand(static_cast<int>(model.Omega.size()) == std::max(model.m_nModes, 0));
  Demand(std::ranges::all_of(model.Omega, IsFinite));
}

void ReadAsHost() {
  const std::vector<skyframe::host::JobNode> nodes(2);
  const auto modes = skyframe::host::ReadModeResultFile("job", nodes);
  if (modes) {
    Demand(!modes->omega.empty() && modes->shapes.size() == modes->omega.size());
    Demand(std::ranges::all_of(modes->shapes, [](const auto& shape) { return shape.size() == 2; }));
  }
  const auto spectrum = skyframe::host::ReadSpectrumResultFile("job", nodes);
  if (spectrum) Demand(spectrum->displacements.size() == 2 && !spectrum->supports.empty());
  const auto mode = skyframe::host::ReadVirtualModeFile("job", nodes);
  if (mode) Demand(mode->shape.size() == 2);
  (void)skyframe::host::ReadVirtualResponseFile("job");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  skyframe::test::CHostModel host;
  host.SetSection(1, 2, 10000, 1e4, 2e7, 2e7);
  host.AddNode(0, 0, 0, skyframe::test::c_nRigid, "111111");
  host.AddNode(4, 0, 0);
  host.AddElement(skyframe::test::c_nBeam, 1, 2);
  const CTextPlatform platform(std::string(reinterpret_cast<const char*>(pData), nSize));
  ReadWhole(2, 0);
  ReadWhole(1, 1);
  ReadFrequencies();
  ReadAsHost();
  return 0;
}
