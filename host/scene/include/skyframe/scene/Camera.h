#pragma once

#include <span>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/Box.h"
#include "skyframe/scene/Point3.h"

namespace skyframe::host {

/// Where the eye is, seen from the structure: azimuth from X and elevation, degrees.
struct ViewDirection {
  double dAzimuth = 0.0;
  double dElevation = 0.0;
};

inline constexpr ViewDirection c_isometricView{-45.0, 35.264389682754654};  ///< sin p = 1/sqrt(3)
inline constexpr ViewDirection c_obliqueView{-60.0, 22.0};                  ///< from the front right above
inline constexpr ViewDirection c_frontView{-90.0, 0.0};                     ///< X to the right, Z up
inline constexpr ViewDirection c_sideView{0.0, 0.0};                        ///< Y to the right, Z up
inline constexpr ViewDirection c_planView{-90.0, 90.0};                     ///< X to the right, Y up

/// Where a point comes to lie in the picture; a larger depth, m, is nearer to the eye.
struct ScreenPoint {
  PaintPoint at;
  double dDepth = 0.0;
};

/// Parallel projection. The eye looks at the target from direction
///   e = (cos p cos a, cos p sin a, sin p), a azimuth, p elevation;
/// X Y Z of the screen are r = (-sin a, cos a, 0), u = e x r, e.
class CCamera {
 public:
  void SetDirection(ViewDirection direction);
  /// Turns by so many degrees; the elevation stays within straight down and straight up.
  void Turn(double dAzimuth, double dElevation);
  void SetViewport(const Box& viewport);
  /// Centres a sphere and makes it fill the viewport. The radius is above 0.
  void Fit(Point3 centre, double dRadius);
  /// Makes what is seen of the points fill the viewport but for a margin of so many pixels.
  void Fit(std::span<const Point3> points, double dMargin);
  /// Moves the picture by pixels.
  void Pan(double dX, double dY);
  /// Enlarges by the factor and keeps what lies under the given pixel.
  void Zoom(double dFactor, double dX, double dY);

  [[nodiscard]] ScreenPoint Project(Point3 point) const;
  /// Direction on the screen of a direction in space, in units of its length.
  [[nodiscard]] ScreenPoint ProjectDirection(Point3 direction) const;
  [[nodiscard]] double GetPixelsPerMetre() const { return m_dScale; }

 private:
  [[nodiscard]] PaintPoint GetMiddle() const;

  Point3 m_right{1.0, 0.0, 0.0};
  Point3 m_up{0.0, 0.0, 1.0};
  Point3 m_eye{0.0, -1.0, 0.0};
  ViewDirection m_direction = c_frontView;
  Point3 m_target;
  double m_dScale = 1.0;  ///< pixels a metre
  Box m_viewport{0.0, 0.0, 1.0, 1.0};
  double m_dPanX = 0.0;  ///< pixels
  double m_dPanY = 0.0;
};

}  // namespace skyframe::host
