#include "ModuleContext.h"

namespace skyframe {

HINSTANCE GetModuleInstance() {
  HMODULE hModule = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&GetModuleInstance), &hModule);
  return hModule;
}

CModuleContext::CModuleContext() {
  ACTCTXW context = {};
  context.cbSize = sizeof context;
  context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  context.hModule = GetModuleInstance();
  context.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
  m_hContext = CreateActCtxW(&context);
  if (m_hContext != INVALID_HANDLE_VALUE) ActivateActCtx(m_hContext, &m_nCookie);
  m_previous = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
}

CModuleContext::~CModuleContext() {
  if (m_previous != nullptr) SetThreadDpiAwarenessContext(m_previous);
  if (m_hContext == INVALID_HANDLE_VALUE) return;
  DeactivateActCtx(0, m_nCookie);
  ReleaseActCtx(m_hContext);
}

}  // namespace skyframe
