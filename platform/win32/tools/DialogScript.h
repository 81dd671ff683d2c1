#pragma once

#include <map>
#include <ostream>
#include <string_view>

#include "skyframe/platform/Dialog.h"

namespace skyframe {

// Parts of a resource script, in UTF-8.

void WriteScriptHead(std::ostream& strm);
void WriteDialog(std::ostream& strm, const DialogTemplate& layout);
/// A string table, by the identifiers of its texts.
void WriteTexts(std::ostream& strm, const std::map<unsigned, std::string_view>& texts);

}  // namespace skyframe
