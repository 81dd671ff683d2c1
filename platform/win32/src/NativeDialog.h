#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <vector>

#include "NativeFont.h"
#include "TipWindow.h"
#include "Windows.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// A dialog of the resources as a native window. What a person does is passed on to the dialog; programmatic changes
/// are not. The system's dialog manager sees to Tab, arrows, Enter and Esc; the frame's close button is Cancel.
/// Requests for a control that the template does not have change nothing and answer empty.
/// Lifecycle: construct, Run once.
class CNativeDialog final : public IDialogView {
 public:
  explicit CNativeDialog(CDialog& dialog, TipLanguage tips = TipLanguage::Chinese) : m_dialog(dialog), m_tips(tips) {}
  CNativeDialog(const CNativeDialog&) = delete;
  CNativeDialog& operator=(const CNativeDialog&) = delete;
  ~CNativeDialog() override = default;

  /// Opens the dialog with the resource of its identifier and lets a person work until it ends; c_nIdOk or c_nIdCancel.
  /// An exception of one of the dialog's handlers ends it and leaves from here.
  int Run(HINSTANCE hResources, HWND hParent);

  /// The dialog that is shown by the window; null when it is another's window.
  [[nodiscard]] static CNativeDialog* FromWindow(HWND hWindow);

  [[nodiscard]] CDialog& GetDialog() const { return m_dialog; }
  [[nodiscard]] HWND GetWindow() const { return m_hWindow; }
  /// Null when the template has no such control.
  [[nodiscard]] HWND FindControl(int nId) const;

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

 private:
  struct Control {
    const ControlTemplate* pTemplate = nullptr;
    HWND hWindow = nullptr;
    int nCurrent = -1;  ///< row with the focus of a list box or list view
  };

  static INT_PTR CALLBACK Process(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam);
  /// Whether the message is done with.
  bool Handle(UINT nMessage, WPARAM wParam, LPARAM lParam);

  void Initialise();
  void TakeControls();
  void FillList(const Control& control);
  /// Fonts and rectangles for a screen of so many pixels an inch.
  void LayOut(int nDpi);
  void AddTips();
  void MoveToScreen(int nDpi, const RECT& place);
  [[nodiscard]] SIZE MeasureClient(const CDialogUnits& units) const;
  void Centre() const;
  void PaintArea();

  void HandleCommand(int nId, int nCode);
  void HandleNotice(const NMHDR& notice);
  /// Passes an event on.
  void Notify(int nId, DialogEvent event);
  /// Does what a handler of the dialog asks for, and closes the window when it ended the dialog.
  void Guard(const std::function<void()>& action);
  void End(int nResult);

  [[nodiscard]] const Control* Find(int nId) const;
  [[nodiscard]] Control* Find(int nId);
  void SetOneCheck(int nId, bool bOn) const;

  CDialog& m_dialog;
  TipLanguage m_tips;
  HWND m_hWindow = nullptr;
  std::vector<Control> m_controls;  ///< in template order
  FontHandle m_font;
  std::unique_ptr<CTipWindow> m_pTipWindow;
  double m_dScale = 1.0;  ///< of what the dialog paints itself
  SIZE m_painted = {};    ///< its right and lower end, pixels; 0: it paints nothing
  int m_nSilent = 0;      ///< above 0 while the program itself changes a control
  int m_nTyping = -1;     ///< field whose change the dialog is being told
  bool m_bOpen = false;
  bool m_bGone = false;  ///< the window was destroyed before the dialog ended
  std::exception_ptr m_failure;
};

}  // namespace skyframe
