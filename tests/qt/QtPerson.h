#pragma once

#include <QObject>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "Person.h"
#include "skyframe/qt/DialogWindow.h"
#include "skyframe/qt/QtPlatform.h"

class QMessageBox;

namespace skyframe::test {

/// The person at windows of Qt.
class CQtPerson final : public IPerson {
 public:
  explicit CQtPerson(QWidget* pHostWindow = nullptr);
  ~CQtPerson() override;

  void Watch(const std::function<void()>& action) override;
  void Press(Key key) override;
  std::string ReadTip(int nControl) const override;
  CWindowPlatform& GetWindows() override { return m_platform; }

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
  std::map<const QWidget*, Work> m_open;
  bool m_bWatching = false;
  QObject m_context;  ///< takes pending looks and connections with it
};

}  // namespace skyframe::test
