#pragma once

namespace skyframe::gui {

/// Position or direction in space, m; Z up.
struct Point3 {
  double dX = 0.0;
  double dY = 0.0;
  double dZ = 0.0;

  friend Point3 operator+(Point3 a, Point3 b) { return {a.dX + b.dX, a.dY + b.dY, a.dZ + b.dZ}; }
  friend Point3 operator-(Point3 a, Point3 b) { return {a.dX - b.dX, a.dY - b.dY, a.dZ - b.dZ}; }
  friend Point3 operator*(double d, Point3 a) { return {d * a.dX, d * a.dY, d * a.dZ}; }
  friend bool operator==(const Point3&, const Point3&) = default;
};

[[nodiscard]] double Dot(Point3 a, Point3 b);
[[nodiscard]] Point3 Cross(Point3 a, Point3 b);
[[nodiscard]] double Length(Point3 a);

/// Where a point comes to lie on the screen: pixels from the top left corner, y downwards; a larger
/// depth is nearer to the eye.
struct ScreenPoint {
  double dX = 0.0;
  double dY = 0.0;
  double dDepth = 0.0;
};

/// Parallel projection. The eye looks at the target from direction
///   e = (cos p cos a, cos p sin a, sin p), a azimuth from X, p elevation, in degrees;
/// X Y Z of the screen are r = (-sin a, cos a, 0), u = e x r, e.
class CCamera {
 public:
  void SetDirection(double dAzimuth, double dElevation);
  /// Turns by so many degrees; the elevation stays within straight down and straight up.
  void Turn(double dAzimuth, double dElevation);
  void SetViewport(double dWidth, double dHeight);
  /// Centres a sphere and makes it fill the viewport. The radius is above 0.
  void Fit(Point3 centre, double dRadius);
  /// Moves the picture by pixels.
  void Pan(double dX, double dY);
  /// Enlarges by the factor and keeps what lies under the given pixel.
  void Zoom(double dFactor, double dX, double dY);

  [[nodiscard]] ScreenPoint Project(Point3 point) const;
  /// Direction on the screen of a direction in space, in units of its length.
  [[nodiscard]] ScreenPoint ProjectDirection(Point3 direction) const;
  [[nodiscard]] double GetPixelsPerMetre() const { return m_dScale; }

 private:
  Point3 m_right{1.0, 0.0, 0.0};
  Point3 m_up{0.0, 0.0, 1.0};
  Point3 m_eye{0.0, -1.0, 0.0};
  double m_dAzimuth = -90.0;
  double m_dElevation = 0.0;
  Point3 m_target;
  double m_dScale = 1.0;  ///< pixels a metre
  double m_dWidth = 1.0;
  double m_dHeight = 1.0;
  double m_dPanX = 0.0;  ///< pixels
  double m_dPanY = 0.0;
};

}  // namespace skyframe::gui
