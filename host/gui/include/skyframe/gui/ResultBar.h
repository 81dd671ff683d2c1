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
  void ChooseSource(host::ResultKind kind);
  /// "linear_My": what is drawn, for the name of its picture; empty without forces.
  [[nodiscard]] std::string FormFileName() const;

 private:
  struct LoadChoice {
    QString strText;
    QString strId;             ///< by which it stays chosen
    std::optional<int> nCase;  ///< none: all
    std::optional<host::JobCombination> combination;
  };

  void MakeWidgets();
  void Speak();
  void FillSources();
  void FillLoads();
  [[nodiscard]] std::vector<LoadChoice> ListLoads() const;
  void ShowForces();
  void ShowLoads();
  [[nodiscard]] std::optional<host::ResultKind> GetSource() const;

  CDocument& m_document;
  CStructureView& m_view;
  std::optional<host::ResultKind> m_source;  ///< chosen; kept while its file is not there

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
  QString m_strFile;  ///< of the job whose loads they are
};

}  // namespace skyframe::gui
