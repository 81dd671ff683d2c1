#pragma once

#include <QDialog>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "skyframe/platform/Dialog.h"

class QButtonGroup;
class QStandardItem;
class QStandardItemModel;
class QTimer;

namespace skyframe {

class CDialogUnits;

/// A dialog as a window: its template's controls as widgets in tab order, each named by its
/// identifier in decimal (objectName). What a person does is passed on to the dialog; programmatic
/// changes are not. Enter presses the default button; Esc and the frame's close button are Cancel.
/// Requests for a control that the template does not have change nothing and answer empty.
/// Lifecycle: construct, Run once; or construct and OpenDialog to look at the dialog without running it.
class CDialogWindow : public QDialog, public IDialogView {
 public:
  /// The dialog must outlive the window. The scale is that of the font and of all rectangles.
  explicit CDialogWindow(CDialog& dialog, double dScale = 1.0, QWidget* pParent = nullptr,
                         TipLanguage tips = TipLanguage::Chinese);
  ~CDialogWindow() override;

  /// Attaches the dialog, which initialises the controls. The window is not shown yet.
  void OpenDialog();
  /// Opens the dialog and lets a person work until it ends; c_nIdOk or c_nIdCancel.
  /// An exception of one of the dialog's handlers ends it and leaves from here.
  int Run();

  [[nodiscard]] CDialog& GetDialog() const { return m_dialog; }
  /// Null when the template has no such control.
  [[nodiscard]] QWidget* FindWidget(int nId) const;

  void SetText(int nId, std::string_view strText) override;
  [[nodiscard]] std::string GetText(int nId) const override;
  void SetCheck(int nId, bool bOn) override;
  [[nodiscard]] bool GetCheck(int nId) const override;
  void InsertItem(int nId, int nRow, std::string_view strText) override;
  int AddItem(int nId, std::string_view strText) override;
  void DeleteItem(int nId, int nRow) override;
  [[nodiscard]] int GetItemCount(int nId) const override;
  [[nodiscard]] std::string GetItemText(int nId, int nRow, int nColumn = 0) const override;
  void SetCell(int nId, int nRow, int nColumn, std::string_view strText) override;
  void Select(int nId, int nRow, bool bOn) override;
  [[nodiscard]] bool IsSelected(int nId, int nRow) const override;
  void SetCurrent(int nId, int nRow) override;
  [[nodiscard]] int GetCurrent(int nId) const override;
  void Enable(int nId, bool bOn) override;
  [[nodiscard]] bool IsEnabled(int nId) const override;
  void SetFocus(int nId) override;
  [[nodiscard]] int GetFocus() const override;
  void StartTimer(int nTimer, int nMilliseconds) override;
  void StopTimer(int nTimer) override;
  void Repaint() override;

  /// Cancel.
  void reject() override;

  /// The arrow keys step through a group of radio buttons.
  bool eventFilter(QObject* pObject, QEvent* pEvent) override;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;

 private:
  struct Control {
    const ControlTemplate* pTemplate = nullptr;
    std::unique_ptr<QWidget> pWidget;
  };

  void MakeControls(const CDialogUnits& units, TipLanguage tips);
  [[nodiscard]] std::unique_ptr<QWidget> MakeWidget(const ControlTemplate& control);
  [[nodiscard]] std::unique_ptr<QWidget> MakeButton(const ControlTemplate& control);
  [[nodiscard]] std::unique_ptr<QWidget> MakeEdit(const ControlTemplate& control);
  [[nodiscard]] std::unique_ptr<QWidget> MakeDropList(const ControlTemplate& control);
  [[nodiscard]] std::unique_ptr<QWidget> MakeListBox(const ControlTemplate& control);
  [[nodiscard]] std::unique_ptr<QWidget> MakeListView(const ControlTemplate& control);
  template <class View>
  void ConnectRows(View& view, const ControlTemplate& control);
  void GroupRadioButtons();
  /// The template's area. A dialog that paints in pixels gets the area that its controls and its painting take.
  [[nodiscard]] QSize MeasureClient(const CDialogUnits& units);

  /// Passes an event on and leaves the window when it ended the dialog.
  void Notify(int nId, DialogEvent event);
  void Guard(const std::function<void()>& action);
  void FocusFirst();

  [[nodiscard]] const Control* Find(int nId) const;
  template <class Widget>
  [[nodiscard]] Widget* As(int nId) const;
  /// Model of a list of any kind; null for other controls.
  [[nodiscard]] QStandardItemModel* GetRows(int nId) const;
  [[nodiscard]] QStandardItem* GetItem(int nId, int nRow, int nColumn) const;

  CDialog& m_dialog;
  double m_dScale;
  std::vector<Control> m_controls;  ///< in template order
  std::vector<std::unique_ptr<QButtonGroup>> m_radioGroups;
  std::map<int, std::unique_ptr<QTimer>> m_timers;
  int m_nSilent = 0;   ///< above 0 while the program itself changes a list
  int m_nTyping = -1;  ///< field whose change the dialog is being told
  bool m_bOpen = false;
  std::exception_ptr m_failure;
};

}  // namespace skyframe
