#include "QtPerson.h"

#include <QTest>
#include <QTextDocumentFragment>
#include <QtWidgets>
#include <algorithm>
#include <utility>

#include "skyframe/platform/Dialog.h"

namespace skyframe::test {

namespace {

using Action = DialogStep::Action;

/// Opens the list, walks to the item, takes it.
void PickItem(QComboBox& combo, int nRow) {
  QTest::mouseClick(&combo, Qt::LeftButton);
  QWidget* const pList = combo.view();
  QTest::keyClick(pList, Qt::Key_Home);
  for (int i = 0; i < nRow; ++i) QTest::keyClick(pList, Qt::Key_Down);
  QTest::keyClick(pList, Qt::Key_Return);
}

void ClickRow(QAbstractItemView& view, int nRow, bool bTwice) {
  const QModelIndex index = view.model()->index(nRow, 0);
  view.scrollTo(index);
  const QPoint point = view.visualRect(index).center();
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, point);
  if (bTwice) QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

/// Radio buttons and checks on their mark, other buttons in the middle.
void ClickButton(QAbstractButton& button) {
  const QPoint mark(8, button.height() / 2);
  QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, button.isCheckable() ? mark : button.rect().center());
}

/// Types as a person does: click, select all, type; an empty text deletes.
void TypeInto(QWidget& edit, const std::string& strText) {
  QTest::mouseClick(&edit, Qt::LeftButton);
  QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
  if (strText.empty()) return QTest::keyClick(&edit, Qt::Key_Delete);
  QTest::keyClicks(&edit, QString::fromStdString(strText));
}

}  // namespace

CQtPerson::CQtPerson(QWidget* pHostWindow) : m_platform(pHostWindow), m_pPrevious(InstallPlatform(&m_platform)) {}

CQtPerson::~CQtPerson() { InstallPlatform(m_pPrevious); }

std::unique_ptr<IPerson> MakePerson() { return std::make_unique<CQtPerson>(); }

void CQtPerson::Watch(const std::function<void()>& action) {
  m_bWatching = true;
  QTimer::singleShot(0, &m_context, [this] { Look(); });
  action();
  m_bWatching = false;
}

void CQtPerson::Press(Key key) {
  static const std::map<Key, Qt::Key> s_keys = {
      {Key::Return, Qt::Key_Return}, {Key::Enter, Qt::Key_Enter}, {Key::Escape, Qt::Key_Escape},
      {Key::Tab, Qt::Key_Tab},       {Key::Up, Qt::Key_Up},       {Key::Down, Qt::Key_Down},
      {Key::Left, Qt::Key_Left},     {Key::Right, Qt::Key_Right}, {Key::Seven, Qt::Key_7}};
  QWidget* const pTop = QApplication::activeModalWidget();
  if (key == Key::CloseFrame) {
    pTop->close();
    return;
  }
  QTest::keyClick(pTop->focusWidget() == nullptr ? pTop : pTop->focusWidget(), s_keys.at(key));
}

std::string CQtPerson::ReadTip(int nControl) const {
  const auto* const pTop = dynamic_cast<CDialogWindow*>(QApplication::activeModalWidget());
  return QTextDocumentFragment::fromHtml(pTop->FindWidget(nControl)->toolTip()).toPlainText().toStdString();
}

void CQtPerson::Look() {
  if (!m_bWatching) return;
  QTimer::singleShot(1, &m_context, [this] { Look(); });  // also while a step of this look has opened a window
  QWidget* const pWindow = QApplication::activeModalWidget();
  if (auto* const pBox = qobject_cast<QMessageBox*>(pWindow)) return Acknowledge(*pBox);
  if (auto* const pDialog = dynamic_cast<CDialogWindow*>(pWindow)) WorkOn(*pDialog);
}

void CQtPerson::Acknowledge(QMessageBox& box) {
  m_messages.push_back(box.text().toStdString());
  if (box.buttons().size() != 1) m_errors.emplace_back("a message box with more than one button");
  QTest::mouseClick(box.buttons().front(), Qt::LeftButton);
}

void CQtPerson::WorkOn(CDialogWindow& window) {
  auto it = m_open.find(&window);
  if (it == m_open.end()) {
    it = m_open.emplace(&window, Work{}).first;
    QObject::connect(&window, &QObject::destroyed, &m_context, [this, pWindow = &window] { m_open.erase(pWindow); });
    it->second.steps = TakeScript(window.GetDialog().GetTemplate().nId);
  }
  Work& work = it->second;
  if (work.bBusy) return;
  if (work.nNext == work.steps.size()) return QTest::keyClick(&window, Qt::Key_Escape);
  const DialogStep step = work.steps[work.nNext++];
  if (const std::string strReason = WhyNot(window, step); !strReason.empty()) {
    Report(window.GetDialog().GetTemplate().nId, work.nNext, step.nId, strReason);
    work.nNext = work.steps.size();
    return;
  }
  work.bBusy = true;
  Perform(window, step);
  if (const auto still = m_open.find(&window); still != m_open.end()) still->second.bBusy = false;
}

std::string CQtPerson::WhyNot(const CDialogWindow& window, const DialogStep& step) {
  if (step.action == Action::Inspect || step.action == Action::Wait) return {};
  const QWidget* const pWidget = window.FindWidget(step.nId);
  if (pWidget == nullptr) return "there is no such control";
  if (!pWidget->isEnabled()) return "the control is disabled";
  if (!pWidget->isVisible()) return "the control cannot be seen";
  const bool bRows = pWidget->inherits("QComboBox") || pWidget->inherits("QAbstractItemView");
  return bRows && FindRow(window, step) == -1 ? "there is no such row" : std::string{};
}

void CQtPerson::Perform(CDialogWindow& window, const DialogStep& step) {
  if (step.action == Action::Inspect) return step.look(window);
  if (step.action == Action::Wait) return QTest::qWait(step.nRow);
  QWidget* const pWidget = window.FindWidget(step.nId);
  if (step.action == Action::Type) return TypeInto(*pWidget, step.strText);
  if (auto* const pCombo = qobject_cast<QComboBox*>(pWidget)) return PickItem(*pCombo, FindRow(window, step));
  if (auto* const pView = qobject_cast<QAbstractItemView*>(pWidget)) {
    return ClickRow(*pView, FindRow(window, step), step.action == Action::DoubleClick);
  }
  auto* const pButton = qobject_cast<QAbstractButton*>(pWidget);
  if (step.action == Action::Tick && pButton->isChecked() == step.bOn) return pButton->setFocus();
  ClickButton(*pButton);
}

}  // namespace skyframe::test
