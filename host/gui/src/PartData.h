#pragma once

#include <string>
#include <utility>
#include <vector>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// What is known of a part of the structure: lines of a name and a value under headings.
struct PartData {
  std::string strTitle;
  std::vector<std::pair<std::string, std::string>> lines;
};

/// Data, loads and results of a node, a group each, by index from 0.
[[nodiscard]] std::vector<PartData> DescribeNode(CDocument& document, int nNode);
/// Likewise of an element.
[[nodiscard]] std::vector<PartData> DescribeElement(CDocument& document, int nElement);

}  // namespace skyframe::gui
