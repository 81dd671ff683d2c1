#pragma once

#include <array>
#include <string>

#include "skyframe/dialogs/LoadCombination.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Editor of a load combination: the load types on offer to the right, those that take part to the
/// left, one row "factor name" each. Rows of both lists stand in the order of the load types.
/// Failure: more than 20 load types: a message, and both lists stay empty.
class CLoadCombDlg : public CDialog {
 public:
  CLoadCombDlg();

  LoadCombination m_loadComb;

 protected:
  void OnInitDialog() override;
  void DoDataExchange(CDataExchange& exchange) override;

 private:
  using Flags = std::array<bool, c_nLoadTypes>;

  void FillLists();
  /// Takes over which rows of both lists are selected.
  void ReadSelection();
  void OnAdd();
  void OnRemove();

  void InsertRow(int nType);
  void RemoveRow(int nRow);
  void ClearSelection();
  [[nodiscard]] std::string GetRowText(int nType) const;

  double m_dFactor = 1.0;  ///< given to the types that are added
  std::array<std::string, c_nLoadTypes> m_names;
  Flags m_bAvailableSelected = {};            ///< by load type
  Flags m_bCombinedSelected = {};             ///< by load type
  int m_nRows = 0;                            ///< rows of the combination list
  std::array<int, c_nLoadTypes> m_typeOfRow;  ///< ascending; -1 beyond m_nRows
};

}  // namespace skyframe
