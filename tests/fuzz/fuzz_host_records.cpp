// Host records of a mast with any of their numbers changed, through every entry point: each comes back, and the
// records are then as they were before.

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <type_traits>

#include "../EntryPoints.h"
#include "TextPlatform.h"

namespace {

using namespace skyframe;
using test::Demand;
using test::EntryPoint;
using Do = DialogStep;

template <class T>
auto GetSpan(T& field) {
  if constexpr (std::is_arithmetic_v<T>) {
    return std::span<T>(&field, 1);
  } else {
    return std::span<std::remove_reference_t<decltype(field[0])>>(field);
  }
}

template <class... Fields>
auto ListFields(Fields&... fields) {
  return std::array{GetSpan(fields)...};
}

const auto c_integers = ListFields(
    ABCD.m_nNodes, ABCD.m_nElements, ABCD.m_nLoadCases, ABCD.m_nLoads, ZHU.m_nCount, ABCD.m_nFirstNode,
    ABCD.m_nSecondNode, ABCD.m_nSection, ABCD.m_nRestraint, ABCD.m_nJoint, ABCD.m_nElementType, ABCD.m_nLoadNode,
    ABCD.m_nLoadCode, ZHU.m_nNode, COMDYN.m_nModes, COMDYN.m_nSaveAs, COMDYN.m_nRootCheck, COMDYN.m_bShear,
    COMDYN.m_nIterMultiple, COMDYN.m_nExpandModes, COMDYN.m_nMeshDiv, COMDYN.m_nIntensity, COMDYN.m_nSiteClass,
    COMDYN.m_nQuakeLevel, COMDYN.m_nZoneGroup, COMDYN.m_bHistoryAvailable, COMDYN.m_nHistoryCount, COMDYN.m_nMethod,
    COMDYN.m_bNonlinear, COMDYN.m_nCombMethod, COMDYN.m_bSaveAs, COMDYN.m_bVirtualModes, COMDYN.m_nPseudoLoadNo);
const auto c_floats = ListFields(ABCD.m_fX, ABCD.m_fY, ABCD.m_fZ, ABCD.m_fLoadValue, COMDAT.m_fIx, COMDAT.m_fIy,
                                 COMDAT.m_fIz, SECT.m_fArea);
const auto c_doubles = ListFields(COMDYN.m_dModeTol, COMDYN.m_dDampRatio, COMDYN.m_dDesignAcceleration,
                                  COMDYN.m_dDirCoef, COMDYN.m_dHistoryStep);

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
  bool Put(const std::array<std::span<T>, nCount>& fields, T value) {
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
  return {
      {".mode", {{c_nIdModeDlg, {Do::Ok()}}}, CModeConnect::OnMode},
      {".spec", {{c_nIdSpectrumDlg, {Do::Ok()}}}, CModeConnect::OnAnsysSpectrum},
      {"_StaticLinearSol.txt",
       {{c_nIdNonlinStaticDlg, {Do::Tick(c_nIdNonlinear, false), Do::Ok()}}},
       CModeConnect::OnStaticNonlinearSol},
      {"",
       {{c_nIdDynOptionDlg, {Do::Choose(c_nIdWilson), Do::Ok()}},
        {c_nIdWilsonDlg, {Do::Type(c_nIdWilsonStep, "0.01"), Do::Type(c_nIdWilsonDuration, "0.05"), Do::Ok()}}},
       CModeConnect::OnTimeHistoryAnalysis},
      {"_HisTime.txt",
       {{c_nIdDynOptionDlg, {Do::Choose(c_nIdNewmark), Do::Ok()}},
        {c_nIdEarthquakeDlg,
         {Do::Tick(c_nIdQuakeX), Do::Type(c_nIdStep, "0.01"), Do::Type(c_nIdDuration, "0.03"), Do::Ok()}},
        {c_nIdNewmarkDlg,
         {Do::Choose(c_nIdGroundMotion), Do::Tick(c_nIdFromFile), Do::Tick(c_nIdNonlinear), Do::Click(c_nIdEarthquake),
          Do::Ok()}}},
       CModeConnect::OnTimeHistoryAnalysis},
      {"_1_elem.txt",
       {{c_nIdHisResultDlg,
         {Do::Choose(c_nIdElementHistory), Do::Type(c_nIdHistoryElement, "1"), Do::Click(c_nIdRefresh),
          Do::Click(c_nIdOutput), Do::Ok()}}},
       CModeConnect::OnTimeHistoryRes},
  };
}

void Call(const EntryPoint& entry) {
  CHeadlessPlatform platform(test::g_nowhere, test::g_nowhere);
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
  const test::CJobFolder job("fuzz_host_records");
  job.Write("_Xacc.txt", "0 0.5 1 -1");
  job.Write("impulseload.log", "/IMPULSELOAD/\n 2 0.1 0 0\n##\n 3 0 0 1\n##\n/END/\n");
  for (std::size_t k = 1; k + CChange::c_nBytes <= nSize; k += CChange::c_nBytes) CChange(pData + k).Apply();

  const auto pBefore = std::make_unique<test::RecordCopies>();
  for (const EntryPoint& entry : pData[0] % 2 == 0 ? test::GetEntryPoints() : GetOtherEntryPoints()) Call(entry);
  std::memcpy(pBefore->comDat.m_fSpectrum, COMDAT.m_fSpectrum, sizeof COMDAT.m_fSpectrum);  // a result
  Demand(pBefore->AreInForce());
  return 0;
}
