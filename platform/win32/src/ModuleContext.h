#pragma once

#include "Windows.h"

namespace skyframe {

/// The library that this code stands in.
[[nodiscard]] HINSTANCE GetModuleInstance();

/// For the life of the object windows are in the module's visual style and at the scale of each monitor.
class CModuleContext {
 public:
  CModuleContext();
  ~CModuleContext();
  CModuleContext(const CModuleContext&) = delete;
  CModuleContext& operator=(const CModuleContext&) = delete;

 private:
  HANDLE m_hContext;
  ULONG_PTR m_nCookie = 0;
  DPI_AWARENESS_CONTEXT m_previous;
};

}  // namespace skyframe
