#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Windows.h"
#include "skyframe/platform/Dialog.h"

namespace skyframe {

/// Rows of a list of one kind, whatever messages its window takes. Rows are those that there are.
class INativeList {
 public:
  virtual ~INativeList() = default;

  [[nodiscard]] virtual int GetCount(HWND hList) const = 0;
  virtual void Insert(HWND hList, int nRow, const std::wstring& strText) const = 0;
  virtual void Delete(HWND hList, int nRow) const = 0;
  [[nodiscard]] virtual std::wstring GetCell(HWND hList, int nRow, int nColumn) const = 0;
  virtual void SetCell(HWND hList, int nRow, int nColumn, const std::wstring& strText) const = 0;
  [[nodiscard]] virtual bool IsSelected(HWND hList, int nRow) const = 0;
  virtual void Select(HWND hList, int nRow, bool bOn) const = 0;
  /// -1: none.
  virtual void SetCurrent(HWND hList, int nRow) const = 0;
  [[nodiscard]] virtual int GetCurrent(HWND hList) const = 0;
};

/// Null for a control that is no list.
[[nodiscard]] const INativeList* FindList(ControlKind kind);

}  // namespace skyframe
