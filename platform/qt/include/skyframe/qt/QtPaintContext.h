#pragma once

#include <QFont>
#include <QPainter>

#include "skyframe/platform/PaintContext.h"

namespace skyframe {

/// Draws with a Qt painter. A line of width 1 at whole coordinates covers exactly those pixels as
/// long as the painter neither scales nor smooths.
class CQtPaintContext : public IPaintContext {
 public:
  /// The painter must be active for the life of the object.
  explicit CQtPaintContext(QPainter& painter);

 protected:
  void DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) override;
  void DrawPolyline(std::span<const PaintPoint> points) override;
  void DrawPolygon(std::span<const PaintPoint> points) override;
  void DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal, VerticalAlign vertical) override;

 private:
  [[nodiscard]] QPen FormPen() const;

  QPainter& m_painter;
  QFont m_font;  ///< looked up once
};

}  // namespace skyframe
