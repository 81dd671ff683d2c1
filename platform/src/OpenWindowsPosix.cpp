#ifndef _WIN32

#include <dlfcn.h>

#include <filesystem>

#include "skyframe/platform/Platform.h"

namespace skyframe {

namespace {

constexpr const char* c_szLibrary = "libskyframe-windows.so";
constexpr const char* c_szOpen = "skyframe_open_windows";
constexpr char c_cHere = 0;  // its address tells which file the module was loaded from

}  // namespace

/// The windows come from a library of their own beside the module, which stays loaded.
std::unique_ptr<IPlatform> OpenWindows(void* pHostWindow) {
  Dl_info here = {};
  if (dladdr(&c_cHere, &here) == 0) return nullptr;
  const std::filesystem::path path = std::filesystem::absolute(here.dli_fname).replace_filename(c_szLibrary);
  void* const pLibrary = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (pLibrary == nullptr) return nullptr;
  const auto pOpen = reinterpret_cast<IPlatform* (*)(void*)>(dlsym(pLibrary, c_szOpen));
  return std::unique_ptr<IPlatform>(pOpen == nullptr ? nullptr : pOpen(pHostWindow));
}

}  // namespace skyframe

#endif
