#pragma once

#include <optional>

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe {

class IPaintContext;

extern const DialogTemplate c_hisResultTemplate;

/// One history that the viewer can show.
struct HistorySelection {
  bool bElement = false;  ///< axial force of an element; otherwise displacement of a node
  int nNumber = 1;        ///< 1-based
  int nDirection = 0;     ///< of a node: X, Y, Z

  friend bool operator==(const HistorySelection&, const HistorySelection&) = default;
};

/// The histories as the viewer sees them.
class IHistoryView {
 public:
  virtual ~IHistoryView() = default;

  [[nodiscard]] virtual int GetNodeCount() const = 0;
  [[nodiscard]] virtual int GetElementCount() const = 0;
  /// Without a selection only the empty frame. Pixels from the client area's top left corner.
  virtual void Plot(IPaintContext& paint, const std::optional<HistorySelection>& selection) const = 0;
  /// Writes the history to its own file; false when that was not possible.
  [[nodiscard]] virtual bool WriteOut(const HistorySelection& selection) const = 0;
};

/// Viewer of time-history results. Draws the selection of the last successful refresh.
class CHisResultDlg : public CDialog {
 public:
  /// The histories must outlive the dialog.
  explicit CHisResultDlg(const IHistoryView& histories);

 protected:
  void OnInitDialog() override;
  void OnPaint(IPaintContext& paint) override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void OnRefresh();
  void OnOutput();
  /// What the controls name; empty after a message when a field is invalid or there is no such history.
  [[nodiscard]] std::optional<HistorySelection> ReadSelection();

  const IHistoryView& m_histories;
  int m_nKind = 0;  ///< radio index: 0 node, 1 element
  int m_nNode = 1;
  int m_nDirection = 0;
  int m_nElement = 1;
  std::optional<HistorySelection> m_shown;
};

}  // namespace skyframe
