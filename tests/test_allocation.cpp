// Every entry point, with every allocation of the call failing in turn.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>

#include "HostModel.h"
#include "Sanitizer.h"
#include "TestPlatform.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/values/DialogIds.h"

namespace {

/// Fails the nFirst-th allocation, and with bOnwards all later ones, while it is armed.
struct AllocationFault {
  bool bArmed = false;
  bool bOnwards = false;
  long nFirst = 0;
  long nCount = 0;

  bool MustFail() { return bArmed && (++nCount == nFirst || (bOnwards && nCount > nFirst)); }
} g_fault;

void* Allocate(std::size_t nSize) { return g_fault.MustFail() ? nullptr : std::malloc(nSize == 0 ? 1 : nSize); }

void* AllocateOrThrow(std::size_t nSize) {
  void* const p = Allocate(nSize);
  if (p == nullptr) throw std::bad_alloc();
  return p;
}

}  // namespace

void* operator new(std::size_t nSize) { return AllocateOrThrow(nSize); }
void* operator new[](std::size_t nSize) { return AllocateOrThrow(nSize); }
void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept { return Allocate(nSize); }
void* operator new[](std::size_t nSize, const std::nothrow_t&) noexcept { return Allocate(nSize); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

#if defined(__GLIBC__) && !defined(SKYFRAME_TEST_ASAN)
// The skylines come from calloc.
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* calloc(std::size_t nCount, std::size_t nSize) noexcept {
  return g_fault.MustFail() ? nullptr : __libc_calloc(nCount, nSize);
}
#endif

namespace skyframe::test {
namespace {

/// A mast of two beams along a bar, numbered so that renumbering pays.
void FillMast(CHostModel& host) {
  host.SetSection(1, 2, 10000, 4e7, 2e7, 3e7);
  const double z[] = {0, 8, 12, 4};
  for (int i = 0; i < 4; ++i) host.AddNode(0, 0.1 * i, z[i], c_nRigid, i == 0 ? "111111" : "000000");
  for (const auto& [nI, nJ] : {std::pair{1, 4}, {4, 2}, {2, 3}}) host.AddElement(c_nBeam, nI, nJ);
  host.AddElement(c_nBar, 1, 3);
  host.AddLoad(0, 3, 2, 20.0);
}

/// Copies of the records that an entry point leaves as they were.
struct RecordCopies {
  tagAbcd abcd = ABCD;
  tagComDat comDat = COMDAT;
  tagSect sect = SECT;
  tagComZhu zhu = ZHU;

  bool AreInForce() const {
    return std::memcmp(&abcd, &ABCD, sizeof abcd) == 0 && std::memcmp(&comDat, &COMDAT, sizeof comDat) == 0 &&
           std::memcmp(&sect, &SECT, sizeof sect) == 0 && std::memcmp(&zhu, &ZHU, sizeof zhu) == 0;
  }
};

using Steps = std::vector<DialogStep>;

struct EntryPoint {
  const char* pszSuffix;  ///< of its result file
  std::vector<std::pair<int, Steps>> scripts;
  std::function<void()> call;
  const RunFindings* pFindings = nullptr;
};

std::vector<EntryPoint> GetEntryPoints() {
  return {
      {".mode",
       {{c_nIdModeDlg, {DialogStep::Type(c_nIdModes, "2"), DialogStep::Ok()}}},
       CModeConnect::OnMode,
       &GetModalFindings()},
      {".spec",
       {{c_nIdSpectrumDlg, {DialogStep::Type(c_nIdExpandModes, "2"), DialogStep::Ok()}}},
       CModeConnect::OnAnsysSpectrum,
       &GetSpectrumFindings()},
      {"_StaticNonlinearSol.txt",
       {{c_nIdLoadCombDlg, {DialogStep::ToggleRow(c_nIdAvailable, 0), DialogStep::Click(c_nIdAdd), DialogStep::Ok()}},
        {c_nIdNonlinStaticDlg, {DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()}}},
       CModeConnect::OnStaticNonlinearSol,
       &GetStaticFindings()},
      {"_HisTime.txt",
       {{c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()}},
        {c_nIdEarthquakeDlg,
         {DialogStep::Tick(c_nIdQuakeX), DialogStep::Type(c_nIdStep, "0.01"), DialogStep::Type(c_nIdDuration, "0.035"),
          DialogStep::Ok()}},
        {c_nIdNewmarkDlg,
         {DialogStep::Choose(c_nIdGroundMotion), DialogStep::Tick(c_nIdFromFile), DialogStep::Click(c_nIdEarthquake),
          DialogStep::Ok()}}},
       CModeConnect::OnTimeHistoryAnalysis,
       &GetHistoryFindings()},
      {"_4_node.txt",
       {{c_nIdHisResultDlg,
         {DialogStep::Type(c_nIdHistoryNode, "4"), DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput),
          DialogStep::Ok()}}},
       [] {
         COMDYN.m_bHistoryAvailable = 0;  // read from the file
         CModeConnect::OnTimeHistoryRes();
       }},
  };
}

/// One call of an entry point with the fault as it is set; the text of the result file, empty without one.
std::string Call(const EntryPoint& entry, const CJobFolder& job, std::vector<std::string>& messages) {
  std::ostream nowhere(nullptr);
  CHeadlessPlatform platform(nowhere, nowhere);
  platform.SetClock({{2026, 1, 1, 10, 0, 0}});
  for (const auto& [nId, steps] : entry.scripts) platform.AddScript(nId, steps);
  std::filesystem::remove(job.GetPath(entry.pszSuffix));
  IPlatform* const pPrevious = InstallPlatform(&platform);
  g_fault.nCount = 0;
  g_fault.bArmed = g_fault.nFirst > 0;
  entry.call();
  g_fault.bArmed = false;
  InstallPlatform(pPrevious);
  EXPECT_EQ(platform.GetModuleDepth(), 0);
  messages = platform.GetMessages();
  return job.Read(entry.pszSuffix);
}

TEST(Allocation, NoFailureLeavesATraceOrAWrongResult) {
  CHostModel host;
  FillMast(host);
  const CJobFolder job("allocation");
  job.Write("_Xacc.txt", "0 0.5 1 -1");
  std::vector<std::string> messages;
  for (const EntryPoint& entry : GetEntryPoints()) {
    g_fault.nFirst = 0;
    const std::string strWhole = Call(entry, job, messages);
    ASSERT_FALSE(strWhole.empty()) << entry.pszSuffix;
    const auto pBefore = std::make_unique<RecordCopies>();
    for (const bool bOnwards : {false, true}) {
      g_fault.bOnwards = bOnwards;
      for (long k = 1;; ++k) {
        g_fault.nFirst = k;
        const std::string strResult = Call(entry, job, messages);
        if (g_fault.nCount < k) break;
        ASSERT_TRUE(pBefore->AreInForce()) << entry.pszSuffix << ", allocation " << k;
        // A failure is told as long as there is memory for it.
        const bool bTold = strResult.empty() && (bOnwards || !messages.empty());
        ASSERT_TRUE(strResult == strWhole || bTold) << entry.pszSuffix << ", allocation " << k;
        const bool bCancelled = entry.pFindings != nullptr && entry.pFindings->status == RunStatus::Cancelled;
        ASSERT_FALSE(bCancelled) << entry.pszSuffix << ", allocation " << k;
        g_fault.nFirst = 0;
        ASSERT_EQ(Call(entry, job, messages), strWhole) << "the call after allocation " << k;
      }
    }
  }
}

}  // namespace
}  // namespace skyframe::test
