#pragma once

#include <optional>
#include <string>

namespace skyframe::host {

/// What a result file holds, or nothing and the reason.
template <class Content>
struct Reading : std::optional<Content> {
  using std::optional<Content>::optional;
  std::string strError;  ///< to stand behind the path and a colon; empty when the file was read
};

}  // namespace skyframe::host
