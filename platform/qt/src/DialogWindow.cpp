#include "skyframe/qt/DialogWindow.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QTimer>
#include <QTreeView>
#include <QtMath>
#include <algorithm>

#include "GroupFrame.h"
#include "RowView.h"
#include "skyframe/platform/DialogRules.h"
#include "skyframe/qt/Font.h"
#include "skyframe/qt/QtPaintContext.h"

namespace skyframe {

namespace {

std::string ToUtf8(const QString& strText) { return strText.toStdString(); }

/// An ampersand in a caption stands for itself.
QString ToCaption(std::string_view strText) { return ToQt(strText).replace(QLatin1Char('&'), QStringLiteral("&&")); }

/// As rich text, which is broken into lines.
QString ToTip(std::string_view strText) {
  return strText.empty() ? QString() : QStringLiteral("<qt>") + ToQt(strText).toHtmlEscaped() + QStringLiteral("</qt>");
}

/// A row of cells that a person cannot edit.
QList<QStandardItem*> FormRow(QStandardItemModel& model, std::string_view strText) {
  QList<QStandardItem*> cells;
  for (int nColumn = 0; nColumn < std::max(model.columnCount(), 1); ++nColumn) {
    auto pItem = std::make_unique<QStandardItem>(nColumn == 0 ? ToQt(strText) : QString());
    pItem->setEditable(false);
    cells.append(pItem.release());  // the model takes them over
  }
  return cells;
}

void SetUpView(QAbstractItemView& view, const ControlTemplate& control) {
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  const bool bMultiple = (control.nStyle & c_nStyleMultiple) != 0;
  view.setSelectionMode(bMultiple ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
}

/// 1 or -1 for an arrow key, else 0.
int GetArrowSteps(int nKey) {
  if (nKey == Qt::Key_Down || nKey == Qt::Key_Right) return 1;
  return nKey == Qt::Key_Up || nKey == Qt::Key_Left ? -1 : 0;
}

}  // namespace

CDialogWindow::CDialogWindow(CDialog& dialog, double dScale, QWidget* pParent, TipLanguage tips)
    : QDialog(pParent), m_dialog(dialog), m_dScale(dScale) {
  const DialogTemplate& layout = dialog.GetTemplate();
  setObjectName(QString::number(layout.nId));
  setWindowTitle(ToQt(layout.strTitle));
  setFont(FormDialogFont(dScale));
  const CDialogUnits units = FormDialogUnits(font());
  MakeControls(units, tips);
  GroupRadioButtons();
  setFixedSize(ToQt(units.ToPixels({0, 0, layout.nWidth, layout.nHeight})).size());
}

CDialogWindow::~CDialogWindow() {
  if (m_bOpen) m_dialog.Close();
}

void CDialogWindow::MakeControls(const CDialogUnits& units, TipLanguage tips) {
  QWidget* pPrevious = nullptr;
  for (const ControlTemplate& control : m_dialog.GetTemplate().controls) {
    std::unique_ptr<QWidget> pWidget = MakeWidget(control);
    pWidget->setParent(this);
    pWidget->setGeometry(ToQt(units.ToPixels(control.rect)));
    pWidget->setEnabled((control.nStyle & c_nStyleDisabled) == 0);
    if (control.nId != -1) pWidget->setObjectName(QString::number(control.nId));
    pWidget->setToolTip(ToTip(m_dialog.GetTemplate().GetTip(control.nId, tips)));
    if (control.kind == ControlKind::Group) pWidget->lower();
    if (CanFocus(control.kind)) {
      if (pPrevious != nullptr) setTabOrder(pPrevious, pWidget.get());
      pPrevious = pWidget.get();
    }
    m_controls.push_back({&control, std::move(pWidget)});
  }
}

std::unique_ptr<QWidget> CDialogWindow::MakeWidget(const ControlTemplate& control) {
  switch (control.kind) {
    case ControlKind::Label: {
      auto pLabel = std::make_unique<QLabel>(ToQt(control.strText), this);
      pLabel->setTextFormat(Qt::PlainText);
      return pLabel;
    }
    case ControlKind::Group:
      return std::make_unique<CGroupFrame>(ToQt(control.strText), this);
    case ControlKind::Edit:
      return MakeEdit(control);
    case ControlKind::DropList:
      return MakeDropList(control);
    case ControlKind::ListBox:
      return MakeListBox(control);
    case ControlKind::ListView:
      return MakeListView(control);
    case ControlKind::Radio:
    case ControlKind::Check:
    case ControlKind::Button:
    case ControlKind::DefaultButton:
      break;
  }
  return MakeButton(control);
}

std::unique_ptr<QWidget> CDialogWindow::MakeButton(const ControlTemplate& control) {
  std::unique_ptr<QAbstractButton> pButton;
  if (control.kind == ControlKind::Radio) {
    pButton = std::make_unique<QRadioButton>(this);
    pButton->installEventFilter(this);
  } else if (control.kind == ControlKind::Check) {
    pButton = std::make_unique<QCheckBox>(this);
  } else {
    auto pPush = std::make_unique<QPushButton>(this);
    pPush->setDefault(control.kind == ControlKind::DefaultButton);
    pButton = std::move(pPush);
  }
  pButton->setText(ToCaption(control.strText));
  connect(pButton.get(), &QAbstractButton::clicked, this,
          [this, nId = control.nId] { Notify(nId, DialogEvent::Clicked); });
  return pButton;
}

std::unique_ptr<QWidget> CDialogWindow::MakeEdit(const ControlTemplate& control) {
  auto pEdit = std::make_unique<QLineEdit>(ToQt(control.strText), this);
  connect(pEdit.get(), &QLineEdit::textEdited, this, [this, nId = control.nId] {
    m_nTyping = nId;
    Notify(nId, DialogEvent::TextChanged);
    m_nTyping = -1;
  });
  return pEdit;
}

std::unique_ptr<QWidget> CDialogWindow::MakeDropList(const ControlTemplate& control) {
  auto pCombo = std::make_unique<QComboBox>(this);
  for (const std::string_view strItem : control.items) pCombo->addItem(ToQt(strItem));
  pCombo->setCurrentIndex(-1);
  connect(pCombo.get(), &QComboBox::activated, this,
          [this, nId = control.nId] { Notify(nId, DialogEvent::SelectionChanged); });
  return pCombo;
}

std::unique_ptr<QWidget> CDialogWindow::MakeListBox(const ControlTemplate& control) {
  auto pView = std::make_unique<CRowView<QListView>>(this);
  auto pModel = std::make_unique<QStandardItemModel>(0, 1, pView.get());
  for (const std::string_view strItem : control.items) pModel->appendRow(FormRow(*pModel, strItem));
  pView->setModel(pModel.release());  // its parent owns it
  SetUpView(*pView, control);
  ConnectRows(*pView, control);
  return pView;
}

std::unique_ptr<QWidget> CDialogWindow::MakeListView(const ControlTemplate& control) {
  auto pView = std::make_unique<CRowView<QTreeView>>(this);
  auto pModel = std::make_unique<QStandardItemModel>(0, static_cast<int>(control.items.size()), pView.get());
  QStringList titles;
  for (const std::string_view strItem : control.items) titles.append(ToQt(strItem));
  pModel->setHorizontalHeaderLabels(titles);
  pView->setModel(pModel.release());  // its parent owns it
  pView->setRootIsDecorated(false);
  pView->setItemsExpandable(false);
  pView->header()->setStretchLastSection(false);  // all columns share the width
  pView->header()->setSectionResizeMode(QHeaderView::Stretch);
  SetUpView(*pView, control);
  ConnectRows(*pView, control);
  return pView;
}

template <class View>
void CDialogWindow::ConnectRows(View& view, const ControlTemplate& control) {
  const int nId = control.nId;
  view.m_onClick = [this, nId](QMouseEvent*, const std::function<void()>& process) {
    {
      const CSilence silence(m_nSilent);
      process();
    }
    Notify(nId, DialogEvent::SelectionChanged);
  };
  connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, nId] {
    if (m_nSilent == 0) Notify(nId, DialogEvent::SelectionChanged);
  });
  connect(&view, &QAbstractItemView::doubleClicked, this, [this, nId] { Notify(nId, DialogEvent::DoubleClicked); });
}

void CDialogWindow::GroupRadioButtons() {
  const DialogTemplate& layout = m_dialog.GetTemplate();
  std::map<int, QButtonGroup*> groups;
  for (const Control& control : m_controls) {
    if (control.pTemplate->kind != ControlKind::Radio) continue;
    QButtonGroup*& pGroup = groups[layout.GetGroupStart(control.pTemplate->nId)];
    if (pGroup == nullptr) pGroup = m_radioGroups.emplace_back(std::make_unique<QButtonGroup>()).get();
    pGroup->addButton(qobject_cast<QAbstractButton*>(control.pWidget.get()));
  }
}

void CDialogWindow::OpenDialog() {
  m_bOpen = true;
  m_dialog.Open(*this);
  setFixedSize(MeasureClient(FormDialogUnits(font())));
  FocusFirst();
}

QSize CDialogWindow::MeasureClient(const CDialogUnits& units) {
  const PaintPoint painted = MeasurePainting(m_dialog);
  if (painted == PaintPoint{}) return size();
  const QRect used = childrenRect().united({0, 0, qCeil(painted.dX * m_dScale), qCeil(painted.dY * m_dScale)});
  return QSize(used.right(), used.bottom()) + ToQt(units.ToPixels({0, 0, c_nPaintMargin, c_nPaintMargin})).size();
}

void CDialogWindow::FocusFirst() {
  if (GetFocus() == -1) SetFocus(FindFirstFocus(m_dialog.GetTemplate(), *this));
}

int CDialogWindow::Run() {
  OpenDialog();
  if (!m_dialog.HasEnded()) exec();
  m_timers.clear();
  m_bOpen = false;
  m_dialog.Close();
  if (m_failure) std::rethrow_exception(m_failure);
  return m_dialog.GetResult();
}

void CDialogWindow::Notify(int nId, DialogEvent event) {
  Guard([this, nId, event] { m_dialog.Notify(nId, event); });
}

void CDialogWindow::Guard(const std::function<void()>& action) {
  if (!m_bOpen || m_dialog.HasEnded()) return;
  try {
    action();
  } catch (...) {
    m_failure = std::current_exception();  // no exception may pass through Qt's event loop
    return done(c_nIdCancel);
  }
  if (m_dialog.HasEnded()) done(m_dialog.GetResult());
}

void CDialogWindow::reject() { Notify(c_nIdCancel, DialogEvent::Clicked); }

bool CDialogWindow::eventFilter(QObject* pObject, QEvent* pEvent) {
  auto* const pKey = pEvent->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(pEvent) : nullptr;
  const int nSteps = pKey == nullptr ? 0 : GetArrowSteps(pKey->key());
  if (nSteps == 0) return QDialog::eventFilter(pObject, pEvent);
  const int nRadio = FindNextRadio(m_dialog.GetTemplate(), *this, pObject->objectName().toInt(), nSteps);
  SetFocus(nRadio);
  As<QAbstractButton>(nRadio)->click();
  return true;
}

void CDialogWindow::paintEvent(QPaintEvent* pEvent) {
  QDialog::paintEvent(pEvent);
  QPainter painter(this);
  painter.scale(m_dScale, m_dScale);
  CQtPaintContext paint(painter);
  if (m_bOpen) m_dialog.Paint(paint);
}

const CDialogWindow::Control* CDialogWindow::Find(int nId) const {
  const auto it = std::find_if(m_controls.begin(), m_controls.end(),
                               [nId](const Control& control) { return control.pTemplate->nId == nId; });
  return it == m_controls.end() || nId == -1 ? nullptr : &*it;
}

QWidget* CDialogWindow::FindWidget(int nId) const {
  const Control* const pControl = Find(nId);
  return pControl == nullptr ? nullptr : pControl->pWidget.get();
}

template <class Widget>
Widget* CDialogWindow::As(int nId) const {
  return qobject_cast<Widget*>(FindWidget(nId));
}

QStandardItemModel* CDialogWindow::GetRows(int nId) const {
  if (const auto* const pCombo = As<QComboBox>(nId)) return qobject_cast<QStandardItemModel*>(pCombo->model());
  if (const auto* const pView = As<QAbstractItemView>(nId)) return qobject_cast<QStandardItemModel*>(pView->model());
  return nullptr;
}

QStandardItem* CDialogWindow::GetItem(int nId, int nRow, int nColumn) const {
  const QStandardItemModel* const pRows = GetRows(nId);
  return pRows == nullptr ? nullptr : pRows->item(nRow, nColumn);
}

void CDialogWindow::SetText(int nId, std::string_view strText) {
  if (auto* const pEdit = As<QLineEdit>(nId)) pEdit->setText(ToQt(strText));
  if (auto* const pLabel = As<QLabel>(nId)) pLabel->setText(ToQt(strText));
  if (auto* const pButton = As<QAbstractButton>(nId)) pButton->setText(ToCaption(strText));
}

std::string CDialogWindow::GetText(int nId) const {
  if (const auto* const pEdit = As<QLineEdit>(nId)) return ToUtf8(pEdit->text());
  if (const auto* const pLabel = As<QLabel>(nId)) return ToUtf8(pLabel->text());
  if (const auto* const pButton = As<QAbstractButton>(nId)) {
    return ToUtf8(pButton->text().replace(QStringLiteral("&&"), QStringLiteral("&")));
  }
  return {};
}

void CDialogWindow::SetCheck(int nId, bool bOn) {
  auto* const pButton = As<QAbstractButton>(nId);
  if (pButton == nullptr) return;
  QButtonGroup* const pGroup = pButton->group();
  if (pGroup == nullptr) return pButton->setChecked(bOn);
  pGroup->setExclusive(false);  // an exclusive group does not let go of its last checked button
  if (bOn) {
    for (QAbstractButton* const pOther : pGroup->buttons()) pOther->setChecked(false);
  }
  pButton->setChecked(bOn);
  pGroup->setExclusive(true);
}

bool CDialogWindow::GetCheck(int nId) const {
  const auto* const pButton = As<QAbstractButton>(nId);
  return pButton != nullptr && pButton->isChecked();
}

void CDialogWindow::InsertItem(int nId, int nRow, std::string_view strText) {
  QStandardItemModel* const pRows = GetRows(nId);
  if (pRows == nullptr) return;
  const CSilence silence(m_nSilent);
  nRow = std::clamp(nRow, 0, pRows->rowCount());
  const int nCurrent = GetCurrent(nId);
  pRows->insertRow(nRow, FormRow(*pRows, strText));
  SetCurrent(nId, CurrentAfterInsert(nCurrent, nRow));
}

int CDialogWindow::AddItem(int nId, std::string_view strText) {
  if (GetRows(nId) == nullptr) return -1;
  const int nRow = FindSortedRow(*Find(nId)->pTemplate, *this, strText);
  InsertItem(nId, nRow, strText);
  return nRow;
}

void CDialogWindow::DeleteItem(int nId, int nRow) {
  QStandardItemModel* const pRows = GetRows(nId);
  if (pRows == nullptr || nRow < 0 || nRow >= pRows->rowCount()) return;
  const CSilence silence(m_nSilent);
  const int nCurrent = GetCurrent(nId);
  if (nCurrent == nRow) SetCurrent(nId, -1);  // else the view would choose a neighbour
  pRows->removeRow(nRow);
  SetCurrent(nId, CurrentAfterDelete(nCurrent, nRow));
}

int CDialogWindow::GetItemCount(int nId) const {
  const QStandardItemModel* const pRows = GetRows(nId);
  return pRows == nullptr ? 0 : pRows->rowCount();
}

std::string CDialogWindow::GetItemText(int nId, int nRow, int nColumn) const {
  const QStandardItem* const pItem = GetItem(nId, nRow, nColumn);
  return pItem == nullptr ? std::string{} : ToUtf8(pItem->text());
}

void CDialogWindow::SetCell(int nId, int nRow, int nColumn, std::string_view strText) {
  if (QStandardItem* const pItem = GetItem(nId, nRow, nColumn)) pItem->setText(ToQt(strText));
}

void CDialogWindow::Select(int nId, int nRow, bool bOn) {
  const CSilence silence(m_nSilent);
  const auto* const pView = As<QAbstractItemView>(nId);
  if (pView == nullptr) {
    if (bOn && nRow >= 0 && nRow < GetItemCount(nId)) SetCurrent(nId, nRow);
    return;
  }
  const QModelIndex index = pView->model()->index(nRow, 0);
  if (!index.isValid()) return;
  QItemSelectionModel* const pSelection = pView->selectionModel();
  const bool bMultiple = pView->selectionMode() == QAbstractItemView::MultiSelection;
  if (bOn && !bMultiple) {
    pSelection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  } else {
    pSelection->select(index,
                       (bOn ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) | QItemSelectionModel::Rows);
  }
}

bool CDialogWindow::IsSelected(int nId, int nRow) const {
  const auto* const pView = As<QAbstractItemView>(nId);
  if (pView == nullptr) return nRow >= 0 && GetCurrent(nId) == nRow;
  return pView->selectionModel()->isSelected(pView->model()->index(nRow, 0));
}

void CDialogWindow::SetCurrent(int nId, int nRow) {
  const CSilence silence(m_nSilent);
  if (nRow >= GetItemCount(nId)) nRow = -1;
  if (auto* const pCombo = As<QComboBox>(nId)) return pCombo->setCurrentIndex(std::max(nRow, -1));
  const auto* const pView = As<QAbstractItemView>(nId);
  if (pView == nullptr) return;
  pView->selectionModel()->setCurrentIndex(pView->model()->index(nRow, 0), QItemSelectionModel::NoUpdate);
}

int CDialogWindow::GetCurrent(int nId) const {
  if (const auto* const pCombo = As<QComboBox>(nId)) return pCombo->currentIndex();
  const auto* const pView = As<QAbstractItemView>(nId);
  return pView == nullptr ? -1 : pView->currentIndex().row();
}

void CDialogWindow::Enable(int nId, bool bOn) {
  if (QWidget* const pWidget = FindWidget(nId)) pWidget->setEnabled(bOn);
}

bool CDialogWindow::IsEnabled(int nId) const {
  const QWidget* const pWidget = FindWidget(nId);
  return pWidget != nullptr && pWidget->isEnabledTo(this);
}

void CDialogWindow::SetFocus(int nId) {
  QWidget* const pWidget = FindWidget(nId);
  if (pWidget == nullptr) return;
  // A field that is checked at each key keeps its cursor; any other is selected whole, as by the Tab key.
  auto* const pEdit = qobject_cast<QLineEdit*>(pWidget);
  if (pEdit != nullptr && nId != m_nTyping) pEdit->selectAll();
  pWidget->setFocus(Qt::OtherFocusReason);
}

int CDialogWindow::GetFocus() const {
  const QWidget* const pFocus = focusWidget();
  const auto it = std::find_if(m_controls.begin(), m_controls.end(),
                               [pFocus](const Control& control) { return control.pWidget.get() == pFocus; });
  return pFocus == nullptr || it == m_controls.end() ? -1 : it->pTemplate->nId;
}

void CDialogWindow::StartTimer(int nTimer, int nMilliseconds) {
  std::unique_ptr<QTimer>& pTimer = m_timers[nTimer];
  if (pTimer == nullptr) {
    pTimer = std::make_unique<QTimer>();
    connect(pTimer.get(), &QTimer::timeout, this, [this, nTimer] { Guard([this, nTimer] { m_dialog.Tick(nTimer); }); });
  }
  pTimer->start(std::max(nMilliseconds, 1));
}

void CDialogWindow::StopTimer(int nTimer) {
  if (const auto it = m_timers.find(nTimer); it != m_timers.end()) it->second->stop();
}

void CDialogWindow::Repaint() { update(); }

}  // namespace skyframe
