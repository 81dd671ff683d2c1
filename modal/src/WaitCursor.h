#pragma once

#include "skyframe/platform/Platform.h"

namespace skyframe {

/// Wait cursor for the life of the object.
class CWaitCursor {
 public:
  CWaitCursor() { GetPlatform().BeginWaitCursor(); }
  ~CWaitCursor() { GetPlatform().EndWaitCursor(); }
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;
};

}  // namespace skyframe
