#pragma once

#include <map>
#include <string>
#include <vector>

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Export.h"

namespace skyframe {

/// What a control of an open dialog shows.
struct ControlContent {
  std::string strText;
  int nChoice = -1;  ///< 0 or 1 of a check; item of a drop list; at a group's first radio the place of the checked one
  std::vector<std::vector<std::string>> rows;  ///< cells of a list
  bool bEnabled = false;
};

/// By identifier of the control.
using DialogContent = std::map<int, ControlContent>;

[[nodiscard]] SKYFRAME_API DialogContent ReadContent(const DialogTemplate& layout, const IDialogView& view);

}  // namespace skyframe
