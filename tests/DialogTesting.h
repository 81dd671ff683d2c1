#pragma once

#include "TestPlatform.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe::test {

struct ExpectedControl {
  int nId;
  ControlKind kind;
  const char* szText;  ///< of a field: the text of its label
};

inline void ExpectControls(const DialogTemplate& layout, int nDialogId, const char* szTitle,
                           const std::vector<ExpectedControl>& controls) {
  EXPECT_EQ(layout.nId, nDialogId);
  EXPECT_EQ(layout.strTitle, szTitle);
  for (const ExpectedControl& expected : controls) {
    const ControlTemplate* const pControl = layout.Find(expected.nId);
    ASSERT_NE(pControl, nullptr) << expected.nId;
    EXPECT_EQ(pControl->kind, expected.kind) << expected.nId;
    const bool bField = pControl->kind == ControlKind::Edit || pControl->kind == ControlKind::DropList;
    EXPECT_EQ(bField ? (pControl - 1)->strText : pControl->strText, expected.szText) << expected.nId;
  }
}

/// Initial items of a list.
inline Strings GetItems(const DialogTemplate& layout, int nId) {
  const auto items = layout.Find(nId)->items;
  return {items.begin(), items.end()};
}

/// Fresh host records, scripted dialogs; no script may ask for what a person could not do.
class Dialogs : public testing::Test {
 protected:
  Dialogs() { ResetHostData(); }
  ~Dialogs() override { EXPECT_EQ(m_platform->GetScriptErrors(), Strings{}); }

  int Run(CDialog& dialog, Steps steps) {
    m_platform->AddScript(dialog.GetTemplate().nId, std::move(steps));
    return dialog.DoModal();
  }

  CTestPlatform m_platform;
};

/// Looks at the enabling of controls: every entry of on is enabled, every entry of off disabled.
inline DialogStep ExpectEnabled(std::vector<int> on, std::vector<int> off) {
  return DialogStep::Inspect([on = std::move(on), off = std::move(off)](const IDialogView& view) {
    for (const int nId : on) EXPECT_TRUE(view.IsEnabled(nId)) << nId;
    for (const int nId : off) EXPECT_FALSE(view.IsEnabled(nId)) << nId;
  });
}

/// Looks at the text of a control.
inline DialogStep ExpectText(int nId, std::string strText) {
  return DialogStep::Inspect(
      [nId, strText = std::move(strText)](const IDialogView& view) { EXPECT_EQ(view.GetText(nId), strText) << nId; });
}

}  // namespace skyframe::test
