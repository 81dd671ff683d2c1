#pragma once

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "skyframe/gui/Document.h"
#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/BentMember.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/DeformedShape.h"
#include "skyframe/scene/LabelField.h"
#include "skyframe/scene/MemberForces.h"
#include "skyframe/scene/Picking.h"
#include "skyframe/scene/ResultPainter.h"
#include "skyframe/scene/Scene.h"
#include "skyframe/scene/ScenePainter.h"

class QPrinter;

namespace skyframe::gui {

/// What is drawn besides the members.
struct ViewOptions {
  bool bSupports = true;
  bool bNodeNumbers = false;
  bool bElementNumbers = false;
  bool bSectionNames = false;
  bool bLocalAxes = false;
};

/// Forces over the drawing.
struct DrawnForces {
  host::ResultKind kind = host::ResultKind::Linear;  ///< whose forces
  std::string strTitle;
  bool bOutdated = false;
  host::StructureForces forces;
  std::optional<host::MemberQuantity> diagram;
  double dDiagramFactor = 1.0;  ///< of the usual size
  std::optional<host::MemberQuantity> colours;
  bool bReactions = false;
};

/// The structure in wire lines. The left button turns, the others move, the wheel zooms, a double
/// click shows all. A shape is drawn in colour over the pale structure and may swing; markers and colours by force lie
/// on it, and a click picks what it hits there. Diagrams belong to the structure as it stands: with one no shape is
/// drawn.
class CStructureView : public QWidget {
 public:
  explicit CStructureView(QWidget* pParent = nullptr);

  /// Takes the shape away; bKeepCamera: the structure is the one shown before.
  void SetScene(host::CScene scene, bool bKeepCamera = false);
  [[nodiscard]] const host::CScene& GetScene() const { return m_scene; }
  /// bOutdated: it comes from another model, and the caption says so.
  void SetShape(std::optional<host::DeformedShape> shape, bool bOutdated = false);
  /// The shape in colours by its displacement, with a legend.
  void SetShapeColours(bool bOn);
  void SetForces(std::optional<DrawnForces> forces);
  [[nodiscard]] const std::optional<DrawnForces>& GetForces() const { return m_forces; }
  void SetLoads(std::vector<host::SceneLoad> loads);
  void SetSelection(Selection selection);
  /// These members alone; the others are not drawn and cannot be picked.
  void SetShown(host::CShownParts shown);
  /// Called at a click with what was hit, or nothing; bAdd: a key was held that adds to the selection.
  using PickHandler = std::function<void(std::optional<host::ScenePart> part, bool bAdd)>;
  void SetPickHandler(PickHandler handler) { m_pick = std::move(handler); }
  /// Words for what the mouse rests on.
  void SetHoverText(std::function<QString(host::ScenePart)> describe) { m_describe = std::move(describe); }
  /// Largest drawn displacement in parts of the structure's radius.
  void SetAmplitude(double dAmplitude);
  /// The same by how many times displacements are enlarged; no effect without a shape.
  void SetMagnification(double dMagnification);
  void SetAnimated(bool bAnimated);
  void SetOptions(ViewOptions options);
  [[nodiscard]] ViewOptions GetOptions() const { return m_options; }
  /// Looks from there at all of the structure.
  void SetDirection(host::ViewDirection direction);
  void FitAll();
  [[nodiscard]] const host::CCamera& GetCamera() const { return m_camera; }
  /// Displacements are drawn this many times enlarged, at the swing's extreme; 0 without a shape.
  [[nodiscard]] double GetMagnification() const;
  /// Part of the extreme that is drawn now: -1..1 for a mode, 0..1 for a state.
  [[nodiscard]] double GetPhaseFactor() const;

  /// Whether there is a shape, and no diagram in its place.
  [[nodiscard]] bool IsShapeDrawn() const;
  /// Where nodes and members are seen now.
  [[nodiscard]] host::CDrawnPlaces GetPlaces() const;

  /// What is drawn now, as large as the page lets it.
  void Print(QPrinter& printer) const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
  void resizeEvent(QResizeEvent* pEvent) override;
  void mousePressEvent(QMouseEvent* pEvent) override;
  void mouseMoveEvent(QMouseEvent* pEvent) override;
  void mouseReleaseEvent(QMouseEvent* pEvent) override;
  void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
  void leaveEvent(QEvent* pEvent) override;
  void wheelEvent(QWheelEvent* pEvent) override;

 private:
  using Clock = std::chrono::steady_clock;

  void Paint(IPaintContext& paint) const;
  void PaintMembers(host::CScenePainter& painter) const;
  void PaintShape(host::CScenePainter& painter, host::CResultPainter& results) const;
  void PaintForceColours(host::CResultPainter& results) const;
  void PaintDiagram(host::CResultPainter& results, host::CLabelField& labels) const;
  void PaintSelection(IPaintContext& paint) const;
  void PaintPart(IPaintContext& paint, host::ScenePart part, Colour colour, double dWidth) const;
  void PaintNotes(IPaintContext& paint) const;
  void Hover(QMouseEvent* pEvent);
  [[nodiscard]] std::string FormCaption() const;
  [[nodiscard]] std::optional<host::ScenePart> Pick(QPointF at) const;
  [[nodiscard]] bool IsLarge() const;

  host::CScene m_scene;
  host::CCamera m_camera;
  std::optional<host::DeformedShape> m_shape;
  bool m_bOutdated = false;
  bool m_bShapeColours = false;
  std::optional<DrawnForces> m_forces;
  std::vector<host::SceneLoad> m_loads;
  Selection m_selection;
  host::CShownParts m_shown;
  PickHandler m_pick;
  std::function<QString(host::ScenePart)> m_describe;
  std::optional<host::ScenePart> m_hovered;
  double m_dAmplitude = 0.1;
  ViewOptions m_options;
  QTimer m_timer;
  Clock::time_point m_swingStart;
  QPointF m_lastMouse;
  QPointF m_pressedAt;
  bool m_bFitted = true;  ///< nobody has zoomed or moved since all was shown
};

}  // namespace skyframe::gui
