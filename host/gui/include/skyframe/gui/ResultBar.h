#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QToolBar>
#include <optional>
#include <string>

#include "skyframe/gui/Document.h"
#include "skyframe/gui/StructureView.h"

namespace skyframe::gui {

/// What is drawn over the structure besides a shape: whose forces, a diagram, colours, reactions; the loads of a case.
class CResultBar : public QToolBar {
 public:
  /// Both must outlive the bar.
  CResultBar(CDocument& document, CStructureView& view, QWidget* pParent = nullptr);

  /// Forces are drawn of that result from now on, if any are.
  void ChooseSource(ResultKind kind);
  /// "linear_My": what is drawn, for the name of its picture; empty without forces.
  [[nodiscard]] std::string FormFileName() const;

 private:
  void MakeWidgets();
  void Speak();
  void FillSources();
  void FillLoads();
  void ShowForces();
  void ShowLoads();
  [[nodiscard]] std::optional<ResultKind> GetSource() const;
  [[nodiscard]] host::Reading<host::StructureForces> FormForces(ResultKind kind);

  CDocument& m_document;
  CStructureView& m_view;
  std::optional<ResultKind> m_source;  ///< chosen; kept while its file is not there

  QLabel m_sourceLabel;
  QComboBox m_sources;
  QLabel m_diagramLabel;
  QComboBox m_diagram;
  QSlider m_size;
  QLabel m_colourLabel;
  QComboBox m_colours;
  QCheckBox m_reactions;
  QLabel m_loadLabel;
  QComboBox m_loads;
};

}  // namespace skyframe::gui
