// Every entry point, with every allocation of the call failing in turn.

#include <new>

#include "EntryPoints.h"
#include "Sanitizer.h"
#include "TestPlatform.h"

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
