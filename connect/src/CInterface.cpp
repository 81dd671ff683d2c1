#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "CallbackPlatform.h"
#include "Failure.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/skyframe.h"

namespace skyframe {
namespace {

static_assert(c_nRunCancelled == static_cast<int>(RunStatus::Cancelled));
static_assert(c_nRunRefused == static_cast<int>(RunStatus::Refused));
static_assert(c_nRunFailed == static_cast<int>(RunStatus::Failed));
static_assert(c_nRunDone == static_cast<int>(RunStatus::Done));

bool g_bOpen = false;  ///< the host's records are the module's
/// What the host chose; null: the default platform or one that a host in C++ installed.
std::unique_ptr<IPlatform> g_pChosen;
CCallbackPlatform* g_pCallbacks = nullptr;  ///< the same, when it has no windows

/// 1 when the work is done, 0 when it says false or fails by an exception.
template <class Work>
int Try(Work work) noexcept {
  try {
    return work() ? 1 : 0;
  } catch (...) {
    TellException();
    return 0;
  }
}

/// The platform in force dies after the new one has taken its place.
bool Choose(std::unique_ptr<IPlatform> pPlatform, CCallbackPlatform* pCallbacks) {
  if (GetPlatform().GetModuleDepth() > 0) return false;
  InstallPlatform(pPlatform.get());
  g_pChosen.swap(pPlatform);
  g_pCallbacks = pCallbacks;
  return true;
}

int AddStep(int nDialog, DialogStep step) {
  if (g_pCallbacks == nullptr) return 0;
  return Try([&] {
    g_pCallbacks->AddStep(nDialog, std::move(step));
    return true;
  });
}

template <class Record>
Record* GiveOut(Record& record) {
  return g_bOpen ? &record : nullptr;
}

const RunFindings* FindFindings(int nAnalysis) {
  const std::array<const RunFindings*, 4> findings = {&GetStaticFindings(), &GetModalFindings(), &GetSpectrumFindings(),
                                                      &GetHistoryFindings()};
  return nAnalysis < 0 || nAnalysis >= static_cast<int>(findings.size()) ? nullptr : findings[nAnalysis];
}

}  // namespace

const char* skyframe_version() { return SKYFRAME_VERSION; }

int skyframe_open(const RecordSizes* pSizes) {
  g_bOpen = Try([pSizes] { return InstallPlatform(&GetPlatform(), *pSizes) != nullptr; }) == 1;
  return g_bOpen ? 1 : 0;
}

void skyframe_close() {
  if (Choose(nullptr, nullptr)) g_bOpen = false;
}

int skyframe_use_windows(void* pHostWindow) {
  return Try([pHostWindow] {
    std::unique_ptr<IPlatform> pPlatform = OpenWindows(pHostWindow);
    return pPlatform != nullptr && Choose(std::move(pPlatform), nullptr);
  });
}

int skyframe_use_callbacks(void (*pMessage)(void*, const char*), void (*pConsole)(void*, const char*), void* pContext) {
  return Try([&] {
    auto pPlatform =
        std::make_unique<CCallbackPlatform>(TextCallback{pMessage, pContext}, TextCallback{pConsole, pContext});
    CCallbackPlatform* const pCallbacks = pPlatform.get();
    return Choose(std::move(pPlatform), pCallbacks);
  });
}

int skyframe_type(int nDialog, int nEdit, const char* pszText) {
  return Try([&] { return AddStep(nDialog, DialogStep::Type(nEdit, pszText)) == 1; });
}

int skyframe_tick(int nDialog, int nCheck, int bOn) { return AddStep(nDialog, DialogStep::Tick(nCheck, bOn != 0)); }

int skyframe_choose(int nDialog, int nRadio) { return AddStep(nDialog, DialogStep::Choose(nRadio)); }

int skyframe_choose_item(int nDialog, int nDropList, int nItem) {
  return AddStep(nDialog, DialogStep::ChooseItem(nDropList, nItem));
}

int skyframe_toggle_row(int nDialog, int nList, int nRow) {
  return AddStep(nDialog, DialogStep::ToggleRow(nList, nRow));
}

int skyframe_click(int nDialog, int nButton) { return AddStep(nDialog, DialogStep::Click(nButton)); }

tagAbcd* skyframe_abcd() { return GiveOut(ABCD); }
tagComDat* skyframe_comdat() { return GiveOut(COMDAT); }
tagSect* skyframe_sect() { return GiveOut(SECT); }
tagComDynamic* skyframe_comdyn() { return GiveOut(COMDYN); }
tagComZhu* skyframe_zhu() { return GiveOut(ZHU); }
tagComResult* skyframe_res() { return GiveOut(RES); }

void skyframe_reset_host_data() { ResetHostData(); }

int skyframe_set_program_path(const char* pszPath) {
  return Try([pszPath] {
    g_ProgramPath = pszPath;
    return true;
  });
}

int skyframe_set_job_path(const char* pszPath) {
  const std::size_t nSize = std::strlen(pszPath) + 1;
  if (nSize > sizeof COMDAT.m_szJobPath) return 0;
  return Try([pszPath, nSize] {
    g_FilePathName = pszPath;
    std::copy_n(pszPath, nSize, COMDAT.m_szJobPath);
    return true;
  });
}

int skyframe_set_spring_group(int nGroup, float fKx, float fKy, float fKz) {
  CCommonData::SetSpringGroup(nGroup, fKx, fKy, fKz);
  return nGroup >= 0 && nGroup <= c_nMaxSpringGroups ? 1 : 0;
}

int skyframe_encode_restraint(const int* pRestrained) {
  int nRestrained[6];
  std::copy_n(pRestrained, std::size(nRestrained), nRestrained);
  return RestraintCode::EncodeRestraint(nRestrained);
}

int skyframe_encode_spring(int nGroup) { return RestraintCode::EncodeSpring(nGroup); }

int skyframe_encode_load(int nCase, int nDirection) {
  const bool bKnown = nDirection >= 0 && nDirection < static_cast<int>(std::size(LoadCode::c_nDigitOfDof));
  return bKnown ? LoadCode::Encode(nCase, nDirection) : 0;
}

void skyframe_on_mode() { CModeConnect::OnMode(); }
int skyframe_on_ansys_spectrum() { return CModeConnect::OnAnsysSpectrum(); }
int skyframe_on_time_history_analysis() { return CModeConnect::OnTimeHistoryAnalysis(); }
void skyframe_on_time_history_res() { CModeConnect::OnTimeHistoryRes(); }
void skyframe_on_static_nonlinear_sol() { CModeConnect::OnStaticNonlinearSol(); }

int skyframe_get_status(int nAnalysis) {
  const RunFindings* const pFindings = FindFindings(nAnalysis);
  return pFindings == nullptr ? c_nRunCancelled : static_cast<int>(pFindings->status);
}

const char* skyframe_get_file(int nAnalysis, int nFile) {
  const RunFindings* const pFindings = FindFindings(nAnalysis);
  const bool bKnown = pFindings != nullptr && nFile >= 0 && nFile < static_cast<int>(pFindings->files.size());
  return bKnown ? pFindings->files[nFile].c_str() : nullptr;
}

}  // namespace skyframe
