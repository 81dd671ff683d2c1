#pragma once

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTimer>
#include <QWidget>
#include <array>
#include <vector>

#include "skyframe/gui/Document.h"
#include "skyframe/gui/HistoryChart.h"
#include "skyframe/gui/HistoryCurves.h"
#include "skyframe/gui/HistoryPlayer.h"
#include "skyframe/gui/ShapeBar.h"

namespace skyframe::gui {

/// Curves of a time history that a person chooses, and the motion of the structure: the cursor of the charts and the
/// player have one time. Histories are looked at while the panel is seen.
class CHistoryPanel : public QWidget {
 public:
  /// Both must outlive the panel.
  CHistoryPanel(CDocument& document, CShapeBar& shapes, QWidget* pParent = nullptr);

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
  void resizeEvent(QResizeEvent* pEvent) override;
  void hideEvent(QHideEvent* pEvent) override;

 private:
  void MakeControls();
  void NameWidgets();
  void MakeCharts();
  void ConnectAll();
  void Speak();

  /// The histories drawn; null: none, or out of date and not asked for.
  [[nodiscard]] const HistorySet* GetShown();
  [[nodiscard]] bool IsOutdated();
  /// Histories may be others.
  void Refresh();
  /// When they are looked at.
  void RefreshSoon();
  void ShowState();
  void ShowCurves();
  void ShowTime();
  /// The curves with their values at a step.
  void ShowValues(const HistorySet& shown, int nStep);
  void AddCurve(const CurveId& curve);
  void AddChosen();
  void AddSelected();
  void RemoveCurrent();
  void SelectCurrent();
  void FillKinds();
  void LimitNumber();
  void OnSaveCurves();
  [[nodiscard]] CurveKind GetKind() const;
  [[nodiscard]] CurveUnits GetUnits() const;
  /// Curves of a chart in their order.
  [[nodiscard]] std::vector<CurveId> FindCurves(CurveGroup group) const;

  CDocument& m_document;
  CShapeBar& m_shapes;
  std::vector<CurveId> m_curves;  ///< in the order of the list, groups together
  QString m_strFile;              ///< of the job that they were chosen in
  bool m_bShowOld = false;        ///< histories out of date are asked for
  bool m_bStale = true;           ///< what is shown may not be the document's any more
  QTimer m_soon;                  ///< to look at once whether the panel is seen
  double m_dLargest = 0.0;        ///< of the motion, m
  double m_dEnd = 0.0;            ///< of the histories shown, s

  // Parents before their children.
  QSplitter m_splitter;
  QWidget m_head;
  QWidget m_choice;
  QLabel m_state;
  QPushButton m_showOld;
  QComboBox m_kind;
  QSpinBox m_number;
  QPushButton m_add;
  QPushButton m_addSelected;
  QPushButton m_remove;
  QComboBox m_lengthUnit;
  QComboBox m_forceUnit;
  QPushButton m_save;
  QListWidget m_list;
  QBoxLayout* m_pChartLayout = nullptr;  ///< of the charts' common parent
  std::array<CHistoryChart, c_curveGroups.size()> m_charts;
  CHistoryPlayer m_player;
};

}  // namespace skyframe::gui
