#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "skyframe/values/Export.h"

namespace skyframe {

struct Colour {
  std::uint8_t nRed = 0;
  std::uint8_t nGreen = 0;
  std::uint8_t nBlue = 0;

  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour c_black{0, 0, 0};
inline constexpr Colour c_white{255, 255, 255};

/// Position in pixels from the top left corner, y downwards.
struct PaintPoint {
  double dX = 0.0;
  double dY = 0.0;

  friend bool operator==(const PaintPoint&, const PaintPoint&) = default;
};

/// Which point of a text the given position is.
enum class HorizontalAlign { Left, Centre, Right };
enum class VerticalAlign { Top, Middle, Baseline, Bottom };

/// From a text's position down to its baseline, for a font that reaches dAscent above it and dDescent below.
[[nodiscard]] constexpr double GetBaselineShift(VerticalAlign vertical, double dAscent, double dDescent) {
  switch (vertical) {
    case VerticalAlign::Top:
      return dAscent;
    case VerticalAlign::Middle:
      return 0.5 * (dAscent - dDescent);
    case VerticalAlign::Bottom:
      return -dDescent;
    case VerticalAlign::Baseline:
      break;
  }
  return 0.0;
}

struct PaintState {
  Colour pen = c_black;
  double dPenWidth = 1.0;
  Colour brush = c_white;
  double dTextHeight = 12.0;

  friend bool operator==(const PaintState&, const PaintState&) = default;
};

/// A surface to draw on. Lines and outlines take the pen, areas the brush, texts the pen's colour.
/// Starts with the PaintState defaults. Items with a coordinate that is not finite are left out.
class SKYFRAME_API IPaintContext {
 public:
  virtual ~IPaintContext() = default;

  void SetPen(Colour colour, double dWidth = 1.0);
  void SetBrush(Colour colour);
  /// Height of the letters in pixels.
  void SetTextHeight(double dHeight);
  [[nodiscard]] const PaintState& GetState() const { return m_state; }

  /// Outlined and filled; width and height may be negative.
  void Rectangle(double dX, double dY, double dWidth, double dHeight);
  void Line(double dX1, double dY1, double dX2, double dY2);
  /// Open line through the points; fewer than two draw nothing.
  void Polyline(std::span<const PaintPoint> points);
  /// Closed, outlined and filled; fewer than three points draw nothing.
  void Polygon(std::span<const PaintPoint> points);
  void Text(double dX, double dY, std::string_view strText, HorizontalAlign horizontal = HorizontalAlign::Left,
            VerticalAlign vertical = VerticalAlign::Top);

 protected:
  virtual void DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) = 0;
  virtual void DrawPolyline(std::span<const PaintPoint> points) = 0;
  virtual void DrawPolygon(std::span<const PaintPoint> points) = 0;
  virtual void DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal,
                        VerticalAlign vertical) = 0;

 private:
  PaintState m_state;
};

/// One thing that was drawn, with the state it was drawn in.
struct PaintItem {
  enum class Kind { Rectangle, Polyline, Polygon, Text };
  Kind kind = Kind::Rectangle;
  PaintState state;
  std::vector<PaintPoint> points;  ///< rectangle: top left and bottom right corner; text: its position
  std::string strText;
  HorizontalAlign horizontal = HorizontalAlign::Left;
  VerticalAlign vertical = VerticalAlign::Top;
};

/// Keeps what is drawn.
class SKYFRAME_API CPaintRecorder : public IPaintContext {
 public:
  [[nodiscard]] const std::vector<PaintItem>& GetItems() const { return m_items; }

 protected:
  void DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) override;
  void DrawPolyline(std::span<const PaintPoint> points) override;
  void DrawPolygon(std::span<const PaintPoint> points) override;
  void DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal, VerticalAlign vertical) override;

 private:
  std::vector<PaintItem> m_items;
};

/// Draws an SVG 1.1 picture in UTF-8 on a white ground. Lines of one pen, drawn one after another, are one path, each
/// of them once; of their points those are left out that nobody could see missing.
class SKYFRAME_API CSvgPaintContext : public IPaintContext {
 public:
  /// Size in pixels, both above 0.
  CSvgPaintContext(int nWidth, int nHeight);

  /// The whole document. Characters that XML forbids and broken UTF-8 become U+FFFD.
  [[nodiscard]] std::string GetDocument() const;
  void Write(std::ostream& strm) const;

 protected:
  void DrawRectangle(PaintPoint topLeft, double dWidth, double dHeight) override;
  void DrawPolyline(std::span<const PaintPoint> points) override;
  void DrawPolygon(std::span<const PaintPoint> points) override;
  void DrawText(PaintPoint at, std::string_view strText, HorizontalAlign horizontal, VerticalAlign vertical) override;

 private:
  /// Ends the path.
  void AddShape(const std::string& strElement);
  /// The path as it stands; nothing without lines.
  [[nodiscard]] std::string FormPath() const;

  int m_nWidth;
  int m_nHeight;
  std::string m_strBody;
  PaintState m_pathState;
  std::string m_strPath;
  std::unordered_set<std::string> m_pathLines;
};

}  // namespace skyframe
