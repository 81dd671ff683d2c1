#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSlider>
#include <QToolBar>
#include <optional>
#include <vector>

#include "skyframe/gui/Document.h"
#include "skyframe/gui/StructureView.h"
#include "skyframe/scene/DeformedShape.h"

namespace skyframe::gui {

/// The shape that the drawing shows: which one, how large, whether it swings. A shape is known by its kind and number:
/// it stays chosen when its file is written anew, unless that comes from another model.
class CShapeBar : public QToolBar {
 public:
  /// Both must outlive the bar.
  CShapeBar(CDocument& document, CStructureView& view, QWidget* pParent = nullptr);

  /// Draws the first shape of the kind, if there is one.
  void Choose(host::ShapeKind kind);
  /// Draws a moment of a history instead of the shape chosen, or none again.
  void ShowMoment(std::optional<host::DeformedShape> moment, bool bOutdated = false);
  /// A person has chosen a shape while a moment was drawn.
  CNotice momentLeft;
  /// Draws the next shape in the list, or the one before for -1.
  void Step(int nStep);
  /// "mode3": the shape drawn, for the name of its picture; "structure" without one.
  [[nodiscard]] std::string FormFileName() const;

 private:
  struct Id {
    host::ShapeKind kind = host::ShapeKind::LinearState;
    int nMode = 0;
    bool operator==(const Id&) const = default;
  };

  void MakeWidgets();
  void Refresh();
  void FillList();
  void OnChosen();
  void ShowShape();
  void ShowMagnification();
  [[nodiscard]] bool IsOutdated(const host::DeformedShape& shape) const;
  [[nodiscard]] int FindRow(const Id& id) const;

  CDocument& m_document;
  CStructureView& m_view;
  std::vector<host::DeformedShape> m_shapes;
  std::optional<Id> m_chosen;
  std::optional<host::DeformedShape> m_moment;
  bool m_bMomentOutdated = false;
  QString m_strFile;  ///< of the job that the choice was made in

  QLabel m_label;
  QComboBox m_list;
  QLabel m_amplitudeLabel;
  QSlider m_amplitude;
  QDoubleSpinBox m_magnification;
  QCheckBox m_animate;
};

}  // namespace skyframe::gui
