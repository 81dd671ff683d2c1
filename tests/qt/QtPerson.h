#pragma once

#include <QObject>
#include <QWidget>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/QtPlatform.h"

class QMessageBox;

namespace skyframe::test {

/// Works with the real windows by mouse and keyboard, following the same scripts as the scripted view.
/// A dialog without a script, or still open after its last step, is left by Esc; messages are read and
/// acknowledged. The Qt platform is in force for the life of the object.
class CQtPerson {
 public:
  explicit CQtPerson(QWidget* pHostWindow = nullptr);
  ~CQtPerson();
  CQtPerson(const CQtPerson&) = delete;
  CQtPerson& operator=(const CQtPerson&) = delete;

  void AddScript(int nDialogId, std::vector<DialogStep> steps) { m_scripts[nDialogId].push_back(std::move(steps)); }
  [[nodiscard]] const std::vector<std::string>& GetMessages() const { return m_messages; }
  [[nodiscard]] const std::vector<std::string>& GetScriptErrors() const { return m_errors; }
  [[nodiscard]] bool HasUnusedScripts() const;

  /// Calls the action while the person sits at the windows that it opens.
  void Watch(const std::function<void()>& action);

 private:
  struct Work {
    std::vector<DialogStep> steps;
    size_t nNext = 0;
    bool bBusy = false;
  };

  void Look();
  void Acknowledge(QMessageBox& box);
  void WorkOn(CDialogWindow& window);
  void Perform(CDialogWindow& window, const DialogStep& step);
  /// Empty when the step can be done.
  [[nodiscard]] static std::string WhyNot(const CDialogWindow& window, const DialogStep& step);

  CQtPlatform m_platform;
  IPlatform* m_pPrevious;
  std::map<int, std::deque<std::vector<DialogStep>>> m_scripts;
  std::map<const QWidget*, Work> m_open;
  std::vector<std::string> m_messages;
  std::vector<std::string> m_errors;
  bool m_bWatching = false;
  QObject m_context;  ///< takes pending looks and connections with it
};

}  // namespace skyframe::test
