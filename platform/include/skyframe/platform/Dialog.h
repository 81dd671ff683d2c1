#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "skyframe/platform/Platform.h"
#include "skyframe/values/Export.h"

namespace skyframe {

class IPaintContext;

/// Rectangle in dialog units: x and width in quarters of the mean character width of the dialog's
/// font, y and height in eighths of its height.
struct DialogRect {
  int nX = 0;
  int nY = 0;
  int nWidth = 0;
  int nHeight = 0;
};

enum class ControlKind {
  Label,
  Group,
  Edit,
  Radio,
  Check,
  Button,
  DefaultButton,
  DropList,  ///< closed list with one current item
  ListBox,
  ListView  ///< rows of cells under column titles
};

/// What a control is before its dialog touches it.
enum ControlFlag : unsigned {
  c_nStyleNone = 0,
  c_nStyleDisabled = 1U << 0U,  ///< created disabled
  c_nStyleGroup = 1U << 1U,     ///< first control of a group; radios run up to the next group start
  c_nStyleSorted = 1U << 2U,    ///< AddItem keeps the items sorted (InsertItem does not)
  c_nStyleMultiple = 1U << 3U,  ///< several rows may be selected at once
};

struct ControlTemplate {
  int nId = -1;  ///< -1 for labels and groups nobody addresses
  ControlKind kind = ControlKind::Label;
  std::string_view strText;
  DialogRect rect;
  unsigned nStyle = c_nStyleNone;
  std::span<const std::string_view> items;  ///< initial list items, or column titles of a list view
};

/// What a window tells of a control at which the mouse rests, in either language.
struct ControlTip {
  int nId = -1;
  std::string_view strChinese;
  std::string_view strEnglish;
};
enum class TipLanguage { Chinese, English };

/// A dialog's fixed part. Controls stand in tab order.
struct SKYFRAME_API DialogTemplate {
  int nId = 0;
  std::string_view strTitle;
  int nWidth = 0;   ///< dialog units
  int nHeight = 0;  ///< dialog units
  std::span<const ControlTemplate> controls;
  std::span<const ControlTip> tips = {};

  /// Null when no control carries the identifier.
  [[nodiscard]] const ControlTemplate* Find(int nControlId) const;

  /// Empty when the control has none.
  [[nodiscard]] std::string_view GetTip(int nControlId, TipLanguage language) const;

  /// Identifiers of the radio buttons from nFirstId to the end of its group, in template order.
  [[nodiscard]] std::vector<int> GetRadioGroup(int nFirstId) const;

  /// First radio button of the group that nRadioId belongs to; -1 when it is no radio button.
  [[nodiscard]] int GetGroupStart(int nRadioId) const;
};

/// The controls of an open dialog as the dialog sees them. Rows and items count from 0.
/// Programmatic changes (SetText, SetCheck, ...) raise no event.
class SKYFRAME_API IDialogView {
 public:
  virtual ~IDialogView() = default;

  virtual void SetText(int nId, std::string_view strText) = 0;
  [[nodiscard]] virtual std::string GetText(int nId) const = 0;

  /// Radio buttons and checks. Checking a radio button clears the others of its group.
  virtual void SetCheck(int nId, bool bOn) = 0;
  [[nodiscard]] virtual bool GetCheck(int nId) const = 0;

  /// Lists of any kind. InsertItem puts the text at the row; AddItem where the list's order wants it.
  virtual void InsertItem(int nId, int nRow, std::string_view strText) = 0;
  virtual int AddItem(int nId, std::string_view strText) = 0;
  virtual void DeleteItem(int nId, int nRow) = 0;
  [[nodiscard]] virtual int GetItemCount(int nId) const = 0;
  [[nodiscard]] virtual std::string GetItemText(int nId, int nRow, int nColumn = 0) const = 0;
  virtual void SetCell(int nId, int nRow, int nColumn, std::string_view strText) = 0;
  virtual void Select(int nId, int nRow, bool bOn) = 0;
  [[nodiscard]] virtual bool IsSelected(int nId, int nRow) const = 0;

  /// Current item: the chosen one of a drop list, the row with the focus of other lists; -1 none.
  virtual void SetCurrent(int nId, int nRow) = 0;
  [[nodiscard]] virtual int GetCurrent(int nId) const = 0;

  virtual void Enable(int nId, bool bOn) = 0;
  [[nodiscard]] virtual bool IsEnabled(int nId) const = 0;
  virtual void SetFocus(int nId) = 0;
  /// Identifier of the control that has the focus; -1 when none has.
  [[nodiscard]] virtual int GetFocus() const = 0;

  virtual void StartTimer(int nTimer, int nMilliseconds) = 0;
  virtual void StopTimer(int nTimer) = 0;

  /// Asks for the dialog's own painted area to be drawn again.
  virtual void Repaint() = 0;
};

enum class DialogEvent { Clicked, DoubleClicked, SelectionChanged, TextChanged };

/// Moves values between a dialog's members and its controls, in either direction. Integers are
/// decimal and fit an int; reals are decimal, finite, shown with the fewest digits that keep the
/// value. Blanks around a number are allowed, anything else beside it is not.
/// When saving, the first field that does not parse shows a message, takes the focus, and makes
/// every later transfer do nothing.
class SKYFRAME_API CDataExchange {
 public:
  CDataExchange(const DialogTemplate& layout, IDialogView& view, bool bSaving);

  [[nodiscard]] bool IsSaving() const { return m_bSaving; }
  [[nodiscard]] bool HasFailed() const { return m_bFailed; }

  void Text(int nId, int& nValue);
  void Text(int nId, double& dValue);
  void Text(int nId, std::string& strValue);

  /// 0 or 1.
  void Check(int nId, int& nValue);

  /// Index of the checked button in the group that starts at nFirstId; -1 when none is.
  void Radio(int nFirstId, int& nIndex);

  /// Index of the current item; -1 when none is.
  void Index(int nId, int& nIndex);

 private:
  void Fail(int nId, std::string_view strMessage);

  const DialogTemplate& m_layout;
  IDialogView& m_view;
  bool m_bSaving;
  bool m_bFailed = false;
};

/// A modal dialog: a template, members, one data exchange for both directions, handlers by control.
/// Lifecycle: constructed with the members' defaults; DoModal opens it on the platform's view,
/// runs OnInitDialog, then handlers until EndDialog; afterwards the members are read.
class SKYFRAME_API CDialog {
 public:
  explicit CDialog(const DialogTemplate& layout);
  virtual ~CDialog();
  CDialog(const CDialog&) = delete;
  CDialog& operator=(const CDialog&) = delete;

  /// Returns c_nIdOk or c_nIdCancel.
  int DoModal();

  [[nodiscard]] const DialogTemplate& GetTemplate() const { return m_layout; }

  // For the platform's view, in this order: Open, then Notify and Tick until HasEnded, then Close.

  /// Attaches the view and initialises the controls.
  void Open(IDialogView& view);
  /// A person did something with a control. Default processing: button 1 is OK, button 2 is Cancel.
  void Notify(int nId, DialogEvent event);
  void Tick(int nTimer) { OnTimer(nTimer); }
  /// Draws the dialog's own area, if it has one, in pixels from the client area's top left corner.
  void Paint(IPaintContext& paint) { OnPaint(paint); }
  [[nodiscard]] bool HasEnded() const { return m_bEnded; }
  [[nodiscard]] int GetResult() const { return m_nResult; }
  void Close();

 protected:
  /// Default: transfers the members to the controls.
  virtual void OnInitDialog();
  /// Default: transfers the controls to the members and, when all fields are valid, ends with OK.
  virtual void OnOk();
  virtual void OnCancel();
  virtual void OnTimer(int nTimer);
  virtual void OnPaint(IPaintContext& paint);
  virtual void DoDataExchange(CDataExchange& exchange) = 0;

  /// True to save (controls to members); false when a field is invalid.
  bool UpdateData(bool bSave);
  void EndDialog(int nResult);

  void On(int nId, DialogEvent event, std::function<void()> handler);

  /// Only between Open and Close.
  [[nodiscard]] IDialogView& View() const { return *m_pView; }

 private:
  const DialogTemplate& m_layout;
  IDialogView* m_pView = nullptr;
  bool m_bEnded = false;
  int m_nResult = c_nIdCancel;
  std::map<std::pair<int, DialogEvent>, std::function<void()>> m_handlers;
};

}  // namespace skyframe
