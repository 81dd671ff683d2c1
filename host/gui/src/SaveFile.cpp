#include "SaveFile.h"

#include <QFileDialog>
#include <QFileInfo>

#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/qt/Font.h"

namespace skyframe::gui {

QString AskForFile(QWidget* pParent, const FileKind& kind, const QString& strProposed) {
  QFileDialog dialog(pParent, ToQt(Say(kind.title)), strProposed, ToQt(Say(kind.filter)));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QString::fromLatin1(kind.pszSuffix));
  dialog.selectFile(QFileInfo(strProposed).fileName());
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

bool WriteText(const QString& strFile, const std::string& strText, const host::Words& failure) {
  COutputFile file(strFile.toStdString());
  file.GetStream() << strText;
  if (file.Commit()) return true;
  GetPlatform().ShowMessage(Say(failure, {file.GetError()}));
  return false;
}

}  // namespace skyframe::gui
