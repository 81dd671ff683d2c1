#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>
#include <functional>
#include <vector>

#include "skyframe/gui/StructureView.h"
#include "skyframe/job/Job.h"

namespace skyframe::gui {

/// A regular structure from a few numbers, drawn while they change.
class CGeneratorDialog : public QDialog {
 public:
  explicit CGeneratorDialog(QWidget* pParent = nullptr);

  /// What is drawn; without nodes while the numbers do not go together.
  [[nodiscard]] const host::Job& GetJob() const { return m_job; }

 private:
  /// Adds a page with the parameters of a structure.
  template <class Parameters>
  void AddPage(const host::Words& title, const char* pszName);
  void Draw();

  std::vector<std::function<void()>> m_generators;  ///< by page, each makes m_job or m_strConflict
  host::Job m_job;
  std::string m_strConflict;

  QVBoxLayout m_layout;
  QHBoxLayout m_columns;
  QTabWidget m_pages;
  CStructureView m_view;
  QLabel m_conflict;
  QDialogButtonBox m_buttons;
};

}  // namespace skyframe::gui
