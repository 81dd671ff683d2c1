#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "skyframe/values/Export.h"

namespace skyframe {

class CDialog;
class IDialogView;
class IPaintContext;

/// One thing a person does in an open dialog.
struct SKYFRAME_API DialogStep {
  enum class Action {
    Type,         ///< replaces the text of an edit
    Tick,         ///< sets or clears a check
    Choose,       ///< clicks a radio button, or picks the item strText (or nRow) of a drop list
    ToggleRow,    ///< clicks a row of a list
    DoubleClick,  ///< double-clicks a row of a list
    Click,        ///< clicks a button
    Wait,         ///< lets nRow milliseconds pass; timers of every open dialog run
    Inspect,      ///< looks at the dialog without touching it
    Draw          ///< has the dialog's own area drawn
  };
  Action action = Action::Click;
  int nId = 0;
  std::string strText;
  int nRow = -1;
  bool bOn = true;
  std::function<void(const IDialogView&)> look;
  IPaintContext* pPaint = nullptr;

  /// Whether it presses OK or Cancel.
  [[nodiscard]] bool IsClosing() const;

  static DialogStep Type(int nId, std::string strText);
  static DialogStep Tick(int nId, bool bOn = true);
  static DialogStep Choose(int nRadioId);
  static DialogStep ChooseItem(int nListId, int nRow);
  static DialogStep ChooseItem(int nListId, std::string strText);
  static DialogStep ToggleRow(int nListId, int nRow);
  static DialogStep ToggleRow(int nListId, std::string strText);
  static DialogStep DoubleClick(int nListId, int nRow);
  static DialogStep Click(int nButtonId);
  static DialogStep Ok();
  static DialogStep Cancel();
  static DialogStep Wait(int nMilliseconds);
  static DialogStep Inspect(std::function<void(const IDialogView&)> look);
  static DialogStep Draw(IPaintContext& paint);
};

/// Does in an open dialog what a person would, on whatever view it has. Empty when it could be done, else the reason
/// why not. Time does not pass here: Wait is for the view.
[[nodiscard]] SKYFRAME_API std::string_view PerformStep(CDialog& dialog, IDialogView& view, const DialogStep& step);

}  // namespace skyframe
