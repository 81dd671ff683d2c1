#pragma once

#include <vector>

#include "Windows.h"
#include "skyframe/platform/PaintContext.h"

namespace skyframe {

/// Draws on a device of GDI. A line of width 1 at whole coordinates covers exactly those pixels at scale 1.
class CGdiPaintContext : public IPaintContext {
 public:
  /// dScale: pixels of the device a pixel of the picture.
  CGdiPaintContext(HDC hDc, double dScale);
  ~CGdiPaintContext() override;
  CGdiPaintContext(const CGdiPaintContext&) = delete;
  CGdiPaintContext& operator=(const CGdiPaintContext&) = delete;

 protected:
  void DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) override;
  void DrawPolyline(std::span<const PaintPoint> points) override;
  void DrawPolygon(std::span<const PaintPoint> points) override;
  void DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal, VerticalAlign vertical) override;

 private:
  [[nodiscard]] int Scale(double dValue) const;
  [[nodiscard]] POINT Scale(PaintPoint point) const { return {Scale(point.dX), Scale(point.dY)}; }
  [[nodiscard]] std::vector<POINT> Scale(std::span<const PaintPoint> points) const;
  [[nodiscard]] HPEN MakePen() const;

  HDC m_hDc;
  double m_dScale;
  int m_nSaved;
};

}  // namespace skyframe
