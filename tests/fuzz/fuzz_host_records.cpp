// Host records of a mast with any of their numbers changed, through every entry point: each comes back, and the
// records are then as they were before.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <string>

#include "../EntryPoints.h"

namespace {

using namespace skyframe;
using test::EntryPoint;

const std::span<int> c_integers[] = {{&ABCD.m_nNodes, 1},
                                     {&ABCD.m_nElements, 1},
                                     {&ABCD.m_nLoadCases, 1},
                                     {&ABCD.m_nLoads, 1},
                                     {&ZHU.m_nCount, 1},
                                     ABCD.m_nFirstNode,
                                     ABCD.m_nSecondNode,
                                     ABCD.m_nSection,
                                     ABCD.m_nRestraint,
                                     ABCD.m_nJoint,
                                     ABCD.m_nElementType,
                                     ABCD.m_nLoadNode,
                                     ABCD.m_nLoadCode,
                                     ZHU.m_nNode,
                                     {&COMDYN.m_nModes, 1},
                                     {&COMDYN.m_nSaveAs, 1},
                                     {&COMDYN.m_nRootCheck, 1},
                                     {&COMDYN.m_bShear, 1},
                                     {&COMDYN.m_nIterMultiple, 1},
                                     {&COMDYN.m_nExpandModes, 1},
                                     {&COMDYN.m_nMeshDiv, 1},
                                     {&COMDYN.m_nIntensity, 1},
                                     {&COMDYN.m_nSiteClass, 1},
                                     {&COMDYN.m_nQuakeLevel, 1},
                                     {&COMDYN.m_nZoneGroup, 1},
                                     {&COMDYN.m_bHistoryAvailable, 1},
                                     {&COMDYN.m_nHistoryCount, 1},
                                     {&COMDYN.m_nMethod, 1},
                                     {&COMDYN.m_bNonlinear, 1},
                                     {&COMDYN.m_nCombMethod, 1},
                                     COMDYN.m_bSaveAs,
                                     {&COMDYN.m_bVirtualModes, 1},
                                     {&COMDYN.m_nPseudoLoadNo, 1}};
const std::span<float> c_floats[] = {ABCD.m_fX,    ABCD.m_fY,    ABCD.m_fZ,    ABCD.m_fLoadValue,
                                     COMDAT.m_fIx, COMDAT.m_fIy, COMDAT.m_fIz, SECT.m_fArea};
const std::span<double> c_doubles[] = {{&COMDYN.m_dModeTol, 1},
                                       {&COMDYN.m_dDampRatio, 1},
                                       {&COMDYN.m_dDesignAcceleration, 1},
                                       COMDYN.m_dDirCoef,
                                       {&COMDYN.m_dHistoryStep, 1}};

/// One number of the records in seven bytes: field, place in it, whether the value is a small one, the value.
class CChange {
 public:
  static constexpr std::size_t c_nBytes = 7;

  explicit CChange(const std::uint8_t* pBytes)
      : m_nField(pBytes[0]), m_nPlace(pBytes[1]), m_bSmall(pBytes[2] % 2 == 1) {
    std::memcpy(&m_nValue, pBytes + 3, sizeof m_nValue);
  }

  void Apply() {
    const std::size_t nFields = std::size(c_integers) + std::size(c_floats) + std::size(c_doubles) + 1;
    m_nField %= nFields;
    if (Put(c_integers, m_bSmall ? GetSmall() : m_nValue)) return;
    if (Put(c_floats, GetFloat())) return;
    if (Put(c_doubles, static_cast<double>(GetFloat()))) return;
    CCommonData::SetSpringGroup(static_cast<int>(m_nPlace), GetFloat(), 100.0F, -GetFloat());
  }

 private:
  int GetSmall() const { return static_cast<std::int8_t>(m_nValue & 0xff); }

  float GetFloat() const {
    if (m_bSmall) return static_cast<float>(GetSmall()) / 8.0F;
    float fValue = 0.0F;
    std::memcpy(&fValue, &m_nValue, sizeof fValue);
    return fValue;
  }

  /// False, and the field counted from the end of these, when it is none of these.
  template <class T, std::size_t nCount>
  bool Put(const std::span<T> (&fields)[nCount], T value) {
    if (m_nField >= nCount) {
      m_nField -= nCount;
      return false;
    }
    fields[m_nField][m_nPlace % fields[m_nField].size()] = value;
    return true;
  }

  std::size_t m_nField;
  std::size_t m_nPlace;
  bool m_bSmall;
  std::int32_t m_nValue = 0;
};

/// The dialogs as the records leave them, and the analyses that the tests' own list leaves out.
std::vector<EntryPoint> GetOtherEntryPoints() {
  const auto ok = DialogStep::Ok();
  return {
      {".mode", {{c_nIdModeDlg, {ok}}}, CModeConnect::OnMode},
      {".spec", {{c_nIdSpectrumDlg, {ok}}}, CModeConnect::OnAnsysSpectrum},
      {"_StaticLinearSol.txt",
       {{c_nIdNonlinStaticDlg, {DialogStep::Tick(c_nIdNonlinear, false), ok}}},
       CModeConnect::OnStaticNonlinearSol},
      {"",
       {{c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdWilson), ok}},
        {c_nIdWilsonDlg,
         {DialogStep::Type(c_nIdWilsonStep, "0.01"), DialogStep::Type(c_nIdWilsonDuration, "0.05"), ok}}},
       CModeConnect::OnTimeHistoryAnalysis},
      {"_HisTime.txt",
       {{c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), ok}},
        {c_nIdEarthquakeDlg,
         {DialogStep::Tick(c_nIdQuakeX), DialogStep::Type(c_nIdStep, "0.01"), DialogStep::Type(c_nIdDuration, "0.03"),
          ok}},
        {c_nIdNewmarkDlg,
         {DialogStep::Choose(c_nIdGroundMotion), DialogStep::Tick(c_nIdFromFile), DialogStep::Tick(c_nIdNonlinear),
          DialogStep::Click(c_nIdEarthquake), ok}}},
       CModeConnect::OnTimeHistoryAnalysis},
      {"_1_elem.txt",
       {{c_nIdHisResultDlg,
         {DialogStep::Choose(c_nIdElementHistory), DialogStep::Type(c_nIdHistoryElement, "1"),
          DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput), ok}}},
       CModeConnect::OnTimeHistoryRes},
  };
}

void Demand(bool bTrue) {
  if (!bTrue) std::abort();
}

void Call(const EntryPoint& entry) {
  std::ostream nowhere(nullptr);
  CHeadlessPlatform platform(nowhere, nowhere);
  for (const auto& [nId, steps] : entry.scripts) platform.AddScript(nId, steps);
  IPlatform* const pPrevious = InstallPlatform(&platform);
  entry.call();
  InstallPlatform(pPrevious);
  Demand(platform.GetModuleDepth() == 0 && platform.GetWaitCursorDepth() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
  if (nSize == 0) return 0;
  test::CHostModel host;
  test::FillMast(host);
  const test::CJobFolder job("fuzz_host_records" + std::to_string(getpid()));
  job.Write("_Xacc.txt", "0 0.5 1 -1");
  job.Write("impulseload.log", "/IMPULSELOAD/\n 2 0.1 0 0\n##\n 3 0 0 1\n##\n/END/\n");
  for (std::size_t k = 1; k + CChange::c_nBytes <= nSize; k += CChange::c_nBytes) CChange(pData + k).Apply();

  const auto pBefore = std::make_unique<test::RecordCopies>();
  for (const EntryPoint& entry : pData[0] % 2 == 0 ? test::GetEntryPoints() : GetOtherEntryPoints()) Call(entry);
  std::memcpy(pBefore->comDat.m_fSpectrum, COMDAT.m_fSpectrum, sizeof COMDAT.m_fSpectrum);  // a result
  Demand(pBefore->AreInForce());
  return 0;
}
