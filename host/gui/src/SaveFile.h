#pragma once

#include <QString>
#include <QWidget>
#include <string>

#include "skyframe/job/Language.h"

namespace skyframe::gui {

/// Kinds of files that the window writes.
struct FileKind {
  const host::Words& title;  ///< of the dialog
  const host::Words& filter;
  const char* pszSuffix;  ///< added to a name without one
};

/// Asks for a file to write, with a name to begin with; empty when the person has none.
[[nodiscard]] QString AskForFile(QWidget* pParent, const FileKind& kind, const QString& strProposed);

/// False after a message, which takes the reason in, when the text cannot be written.
bool WriteText(const QString& strFile, const std::string& strText, const host::Words& failure);

}  // namespace skyframe::gui
