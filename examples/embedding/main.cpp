// The smallest host: it owns a cantilever of four metres, lets the module solve it and reads the result file.

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "skyframe/connect/ModeConnect.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/HeadlessPlatform.h"

using namespace skyframe;

namespace {

/// Two rigid nodes, the first fixed in all DOFs, and a steel beam of 10000 mm2 and 2e7 mm4 between them.
void FillRecords() {
  ResetHostData();
  ABCD.m_nNodes = 2;
  ABCD.m_fX[2] = 4.0F;
  ABCD.m_nJoint[1] = ABCD.m_nJoint[2] = 1;
  const int nFixed[6] = {1, 1, 1, 1, 1, 1};
  ABCD.m_nRestraint[1] = RestraintCode::EncodeRestraint(nFixed);

  ABCD.m_nElements = 1;
  ABCD.m_nElementType[0] = 1;
  ABCD.m_nFirstNode[0] = 1;
  ABCD.m_nSecondNode[0] = 2;
  ABCD.m_nSection[0] = 102;  // group 1, shape 2
  SECT.m_fArea[1] = 10000.0F;
  COMDAT.m_fIx[1] = COMDAT.m_fIy[1] = COMDAT.m_fIz[1] = 2.0e7F;

  ABCD.m_nLoads = 1;  // 10 kN downwards at the tip, dead load
  ABCD.m_nLoadNode[0] = 2;
  ABCD.m_nLoadCode[0] = LoadCode::Encode(0, 2);
  ABCD.m_fLoadValue[0] = -10.0F;
  std::snprintf(COMDAT.m_szJobPath, sizeof COMDAT.m_szJobPath, "cantilever");
}

/// What a person would do in the static dialog (16007) and the load-combination dialog (16002) it opens.
void ScriptDialogs(CHeadlessPlatform& platform) {
  platform.AddScript(16007, {DialogStep::Tick(16063, false), DialogStep::Click(16059), DialogStep::Ok()});
  platform.AddScript(16002, {DialogStep::ToggleRow(16039, 0), DialogStep::Click(16042), DialogStep::Ok()});
}

/// UZ of the second node: the last word of the result file.
double ReadTipDisplacement() {
  std::ifstream strm("cantilever_StaticLinearSol.txt");
  std::string strWord;
  std::string strLast = "nan";
  while (strm >> strWord) strLast = strWord;
  return std::stod(strLast);
}

}  // namespace

int main() {
  std::ofstream console("cantilever.log");
  CHeadlessPlatform platform(std::cerr, console);
  if (InstallPlatform(&platform) == nullptr) return 1;
  FillRecords();
  ScriptDialogs(platform);
  CModeConnect::OnStaticNonlinearSol();
  InstallPlatform(nullptr);

  const double dTip = ReadTipDisplacement();
  const double dTheory = -10.0e3 * std::pow(4.0, 3) / (3.0 * 2.06e11 * 2.0e-5);  // P L^3 / (3 E I)
  std::printf("tip displacement %.7f m, beam theory %.7f m\n", dTip, dTheory);
  return std::abs(dTip - dTheory) < 1.0e-5 * std::abs(dTheory) ? 0 : 1;
}
