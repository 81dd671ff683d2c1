#include "Failure.h"

#include <new>

#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe {
namespace {

void Tell(std::string_view strText) noexcept {
  try {
    GetPlatform().ShowMessage(strText);
  } catch (...) {
    return;
  }
}

}  // namespace

void TellException() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    Tell(texts::c_strOutOfMemory);
  } catch (...) {
    Tell(texts::c_strInternalError);
  }
}

}  // namespace skyframe
