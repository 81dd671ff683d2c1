#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/DialogStep.h"

namespace skyframe {

/// The controls of one dialog that a script drives. Requests for a control that the template does
/// not have change nothing, answer empty, and are reported as script errors.
class CScriptedView : public IDialogView {
 public:
  /// pParent: view of the dialog that opened this one, or null.
  CScriptedView(CDialog& dialog, CScriptedView* pParent, std::vector<std::string>& errors);

  [[nodiscard]] CDialog& GetDialog() const { return m_dialog; }

  /// Gives the focus to the first control that can take it, unless one has it.
  void FocusFirst();
  /// What a person does; empty when it could be done, else the reason why not.
  [[nodiscard]] std::string_view Perform(const DialogStep& step);

  void SetText(int nId, std::string_view strText) override;
  [[nodiscard]] std::string GetText(int nId) const override;
  void SetCheck(int nId, bool bOn) override;
  [[nodiscard]] bool GetCheck(int nId) const override;
  void InsertItem(int nId, int nRow, std::string_view strText) override;
  int AddItem(int nId, std::string_view strText) override;
  void DeleteItem(int nId, int nRow) override;
  [[nodiscard]] int GetItemCount(int nId) const override;
  [[nodiscard]] std::string GetItemText(int nId, int nRow, int nColumn) const override;
  void SetCell(int nId, int nRow, int nColumn, std::string_view strText) override;
  void Select(int nId, int nRow, bool bOn) override;
  [[nodiscard]] bool IsSelected(int nId, int nRow) const override;
  void SetCurrent(int nId, int nRow) override;
  [[nodiscard]] int GetCurrent(int nId) const override;
  void Enable(int nId, bool bOn) override;
  [[nodiscard]] bool IsEnabled(int nId) const override;
  void SetFocus(int nId) override;
  [[nodiscard]] int GetFocus() const override { return m_nFocus; }
  void StartTimer(int nTimer, int nMilliseconds) override;
  void StopTimer(int nTimer) override;
  void Repaint() override {}

 private:
  struct Row {
    std::vector<std::string> cells;
    bool bSelected = false;
  };
  struct Control {
    const ControlTemplate* pTemplate = nullptr;
    std::string strText;
    bool bChecked = false;
    bool bEnabled = true;
    size_t nColumns = 1;
    std::vector<Row> rows;
    int nCurrent = -1;

    [[nodiscard]] bool HasRow(int nRow) const { return nRow >= 0 && nRow < static_cast<int>(rows.size()); }
    [[nodiscard]] Row& At(int nRow) { return rows[static_cast<size_t>(nRow)]; }
    [[nodiscard]] const Row& At(int nRow) const { return rows[static_cast<size_t>(nRow)]; }
  };
  struct Timer {
    int nPeriod = 0;
    int nRemaining = 0;  ///< milliseconds until it fires next
  };

  static Control MakeControl(const ControlTemplate& control);
  [[nodiscard]] const Control* Find(int nId) const;
  [[nodiscard]] Control* Find(int nId);

  void PassTime(int nMilliseconds);
  /// Fires the timers whose time is up.
  void RunTimers(int nMilliseconds);
  [[nodiscard]] int GetTimeToNextTimer() const;

  CDialog& m_dialog;
  CScriptedView* m_pParent;
  std::vector<std::string>& m_errors;
  std::map<int, Control> m_controls;
  std::map<int, Timer> m_timers;
  int m_nFocus = -1;
};

}  // namespace skyframe
