#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "skyframe/platform/Dialog.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// A row of the impulse list: node number, direction letter, peak in kN.
using ImpulseRow = std::array<std::string, 3>;

/// What the row says; empty when a cell is no node number, direction or number.
std::optional<ImpulseLoad> ParseImpulseRow(const ImpulseRow& row);

/// List of nodal impulses of one common shape.
class CImpulseLoadDlg : public CDialog, public StepSettings {
 public:
  CImpulseLoadDlg();

  int m_nType = 0;  ///< 0 triangular, 1 rectangular
  int m_nNode = 1;
  int m_nDirection = 0;
  double m_dPeak = 0.0;            ///< kN
  double m_dPeakTime = 0.0;        ///< s
  double m_dUnloadTime = 0.0;      ///< s
  std::vector<ImpulseRow> m_rows;  ///< the list as it stood at OK

  /// Time that shapes the impulse: the peak time of a triangle, the unload time of a rectangle.
  [[nodiscard]] double GetCharacteristicTime() const { return m_nType == 0 ? m_dPeakTime : m_dUnloadTime; }

 protected:
  void OnOk() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  void OnInsert();
  void OnRemove();
};

}  // namespace skyframe
