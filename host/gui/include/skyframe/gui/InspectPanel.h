#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWidget>
#include <string>

#include "skyframe/gui/Document.h"
#include "skyframe/gui/StructureView.h"

namespace skyframe::gui {

/// Finds nodes, elements and sections by what they are called, hides what is not selected, and tells of what is: its
/// data, loads and results.
class CInspectPanel : public QWidget {
 public:
  /// Both must outlive the panel.
  CInspectPanel(CDocument& document, CStructureView& view, QWidget* pParent = nullptr);

 private:
  void MakeWidgets();
  void Find();
  void ShowAlone();
  void Fill();

  CDocument& m_document;
  CStructureView& m_view;
  QVBoxLayout m_layout;
  QComboBox m_what;
  QLineEdit m_text;
  QCheckBox m_alone;
  QTreeWidget m_data;
};

/// A line for what the mouse rests on.
[[nodiscard]] QString DescribePart(const CDocument& document, host::ScenePart part);

}  // namespace skyframe::gui
