#pragma once

#include <QTimer>
#include <QWidget>
#include <chrono>
#include <optional>
#include <string>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/DeformedShape.h"
#include "skyframe/scene/Scene.h"
#include "skyframe/scene/ScenePainter.h"

namespace skyframe::gui {

/// What is drawn besides the members.
struct ViewOptions {
  bool bSupports = true;
  bool bLoads = false;
  bool bNodeNumbers = false;
  bool bElementNumbers = false;
};

/// The structure in wire lines. The left button turns, the others move, the wheel zooms, a double
/// click shows all. A shape is drawn in colour over the pale structure and may swing.
class CStructureView : public QWidget {
 public:
  explicit CStructureView(QWidget* pParent = nullptr);

  /// Takes the shape away; bKeepCamera: the structure is the one shown before.
  void SetScene(host::CScene scene, bool bKeepCamera = false);
  [[nodiscard]] const host::CScene& GetScene() const { return m_scene; }
  /// bOutdated: it comes from another model, and the caption says so.
  void SetShape(std::optional<host::DeformedShape> shape, bool bOutdated = false);
  /// Largest drawn displacement in parts of the structure's radius.
  void SetAmplitude(double dAmplitude);
  /// The same by how many times displacements are enlarged; no effect without a shape.
  void SetMagnification(double dMagnification);
  void SetAnimated(bool bAnimated);
  [[nodiscard]] bool IsAnimated() const { return m_timer.isActive(); }
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

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
  void resizeEvent(QResizeEvent* pEvent) override;
  void mousePressEvent(QMouseEvent* pEvent) override;
  void mouseMoveEvent(QMouseEvent* pEvent) override;
  void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
  void wheelEvent(QWheelEvent* pEvent) override;

 private:
  using Clock = std::chrono::steady_clock;

  void Paint(IPaintContext& paint) const;
  void PaintMembers(host::CScenePainter& painter) const;
  void PaintShape(host::CScenePainter& painter) const;
  [[nodiscard]] std::string FormCaption() const;
  [[nodiscard]] bool IsLarge() const;

  host::CScene m_scene;
  host::CCamera m_camera;
  std::optional<host::DeformedShape> m_shape;
  bool m_bOutdated = false;
  double m_dAmplitude = 0.1;
  ViewOptions m_options;
  QTimer m_timer;
  Clock::time_point m_swingStart;
  QPointF m_lastMouse;
  bool m_bFitted = true;  ///< nobody has zoomed or moved since all was shown
};

}  // namespace skyframe::gui
