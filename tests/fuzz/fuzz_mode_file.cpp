// Mode file of a cantilever of one beam, through the readers of module and host: refused, or whole and finite.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "../HostModel.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/results/ModeResultFile.h"

namespace {

using skyframe::CAnalysisModel;

std::ostream g_nowhere(nullptr);

/// Every file that is read holds the same text.
class CTextPlatform : public skyframe::CHeadlessPlatform {
 public:
  explicit CTextPlatform(std::string strText)
      : CHeadlessPlatform(g_nowhere, g_nowhere),
        m_strText(std::move(strText)),
        m_pPrevious(skyframe::InstallPlatform(this)) {}
  ~CTextPlatform() override { skyframe::InstallPlatform(m_pPrevious); }
  CTextPlatform(const CTextPlatform&) = delete;
  CTextPlatform& operator=(const CTextPlatform&) = delete;

  std::unique_ptr<std::istream> OpenForReading(const std::string& /*strPath*/) override {
    return std::make_unique<std::istringstream>(m_strText);
  }

 private:
  std::string m_strText;
  skyframe::IPlatform* m_pPrevious;
};

void Demand(bool bTrue) {
  if (!bTrue) std::abort();
}

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
  const auto file = skyframe::host::ReadModeResultFile("job.mode", std::vector<skyframe::host::JobNode>(2));
  if (!file) return;
  Demand(!file->omega.empty() && file->shapes.size() == file->omega.size());
  Demand(std::ranges::all_of(file->shapes, [](const auto& shape) { return shape.size() == 2; }));
}

class CCantilever {
 public:
  CCantilever() {
    m_host.SetSection(1, 2, 10000, 1e4, 2e7, 2e7);
    m_host.AddNode(0, 0, 0, skyframe::test::c_nRigid, "111111");
    m_host.AddNode(4, 0, 0);
    m_host.AddElement(skyframe::test::c_nBeam, 1, 2);
  }

 private:
  skyframe::test::CHostModel m_host;
};

std::optional<CCantilever> g_cantilever;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*pnArguments*/, char*** /*pArguments*/) {
  g_cantilever.emplace();  // not before the records' own initialisation
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  const CTextPlatform platform(std::string(reinterpret_cast<const char*>(pData), nSize));
  ReadWhole(2, 0);
  ReadWhole(1, 1);
  ReadFrequencies();
  ReadAsHost();
  return 0;
}
