#pragma once

#include "TestPlatform.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe::test {

inline constexpr std::array<std::string_view, 3> c_items = {"a", "b", "c"};

inline constexpr DialogRect c_rect = {5, 5, 80, 14};

inline constexpr ControlTemplate c_probeControls[] = {
    {-1, ControlKind::Label, "label", c_rect, c_nStyleNone, {}},
    {100, ControlKind::Edit, "", c_rect, c_nStyleNone, {}},
    {101, ControlKind::Edit, "", c_rect, c_nStyleNone, {}},
    {102, ControlKind::Edit, "", c_rect, c_nStyleNone, {}},
    {110, ControlKind::Radio, "one", c_rect, c_nStyleGroup, {}},
    {111, ControlKind::Radio, "two", c_rect, c_nStyleNone, {}},
    {112, ControlKind::Radio, "three", c_rect, c_nStyleGroup, {}},
    {113, ControlKind::Radio, "four", c_rect, c_nStyleNone, {}},
    {120, ControlKind::Check, "check", c_rect, c_nStyleGroup, {}},
    {130, ControlKind::DropList, "", c_rect, c_nStyleNone, c_items},
    {140, ControlKind::ListBox, "", c_rect, c_nStyleSorted | c_nStyleMultiple, {}},
    {141, ControlKind::ListBox, "", c_rect, c_nStyleNone, c_items},
    {160, ControlKind::Button, "Fish & chips", c_rect, c_nStyleNone, {}},
    {161, ControlKind::Button, "off", c_rect, c_nStyleDisabled, {}},
    {1, ControlKind::DefaultButton, "OK", c_rect, c_nStyleNone, {}},
    {2, ControlKind::Button, "Cancel", c_rect, c_nStyleNone, {}},
};
inline constexpr DialogTemplate c_probe{900, "probe", 100, 100, c_probeControls};
inline constexpr DialogTemplate c_inner{901, "inner", 100, 100, c_probeControls};

/// A dialog with controls of every kind; keeps what happens to them.
class CProbeDlg : public CDialog {
 public:
  explicit CProbeDlg(const DialogTemplate& layout = c_probe) : CDialog(layout) {
    for (const ControlTemplate& control : layout.controls) {
      if (control.nId > 2) Trace(control.nId);
    }
  }

  int m_nInt = 3, m_nFirst = 1, m_nSecond = -1, m_bCheck = 0, m_nItem = 1;
  double m_dReal = 0.25;
  std::string m_strText = "text";
  Strings m_trace;
  std::function<void(IDialogView&)> m_onInit = [](IDialogView&) {};
  std::function<void(IDialogView&)> m_onButton = [](IDialogView&) {};  ///< the button 160
  using CDialog::EndDialog;

 protected:
  void OnInitDialog() override {
    m_onInit(View());
    CDialog::OnInitDialog();
  }
  void OnTimer(int nTimer) override { m_trace.push_back("timer " + std::to_string(nTimer)); }
  void DoDataExchange(CDataExchange& exchange) override {
    exchange.Text(100, m_nInt);
    exchange.Text(101, m_dReal);
    exchange.Text(102, m_strText);
    exchange.Radio(110, m_nFirst);
    exchange.Radio(112, m_nSecond);
    exchange.Check(120, m_bCheck);
    exchange.Index(130, m_nItem);
  }

 private:
  void Trace(int nId) {
    static constexpr std::array<const char*, 4> c_names = {"clicked", "double", "selection", "text"};
    for (const DialogEvent event :
         {DialogEvent::Clicked, DialogEvent::DoubleClicked, DialogEvent::SelectionChanged, DialogEvent::TextChanged}) {
      On(nId, event, [this, nId, event] {
        m_trace.push_back(c_names[static_cast<size_t>(event)] + (" " + std::to_string(nId)));
        if (nId == 160) m_onButton(View());
      });
    }
  }
};

/// The lists of an open probe: they sort, select and keep the current row; what the program does raises no event.
inline void CheckLists(IDialogView& view, const CProbeDlg& dialog) {
  for (const char* szItem : {"m", "z", "b"}) view.AddItem(140, szItem);
  view.InsertItem(140, 1, "zz");  // b zz m z
  EXPECT_EQ(view.AddItem(140, "n"), 1) << "before the first greater one, which InsertItem put there";
  view.Select(140, 0, true);
  view.Select(140, 2, true);
  EXPECT_TRUE(view.IsSelected(140, 0) && view.IsSelected(140, 2)) << "several rows at once";
  view.Select(141, 1, true);
  view.Select(141, 2, true);
  EXPECT_TRUE(view.IsSelected(141, 2) && !view.IsSelected(141, 1)) << "one row at a time";
  view.SetCurrent(141, 1);
  for (const auto& [nInserted, nDeleted, nCurrent] : {std::tuple(1, -1, 2), {3, -1, 2}, {-1, 0, 1}, {-1, 1, -1}}) {
    nDeleted < 0 ? view.InsertItem(141, nInserted, "new") : view.DeleteItem(141, nDeleted);
    EXPECT_EQ(view.GetCurrent(141), nCurrent) << "the current row moves with its neighbours";
  }
  EXPECT_EQ(dialog.m_trace, Strings{});
}

}  // namespace skyframe::test
