#include "skyframe/scene/Camera.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace skyframe::host {

namespace {

constexpr double c_dDegree = std::numbers::pi / 180.0;
constexpr double c_dFill = 0.92;  // part of the viewport that a fitted sphere takes
constexpr double c_dLeastScale = 1.0e-6;
constexpr double c_dLargestScale = 1.0e9;
constexpr double c_dLeastExtent = 1.0e-9;  // m

}  // namespace

void CCamera::SetDirection(ViewDirection direction) {
  m_direction = {std::remainder(direction.dAzimuth, 360.0), std::clamp(direction.dElevation, -90.0, 90.0)};
  const double a = m_direction.dAzimuth * c_dDegree;
  const double p = m_direction.dElevation * c_dDegree;
  m_eye = {std::cos(p) * std::cos(a), std::cos(p) * std::sin(a), std::sin(p)};
  m_right = {-std::sin(a), std::cos(a), 0.0};
  m_up = Cross(m_eye, m_right);
}

void CCamera::Turn(double dAzimuth, double dElevation) {
  SetDirection({m_direction.dAzimuth + dAzimuth, m_direction.dElevation + dElevation});
}

void CCamera::SetViewport(const Box& viewport) {
  m_viewport = viewport;
  m_viewport.dRight = std::max(viewport.dRight, viewport.dLeft + 1.0);
  m_viewport.dBottom = std::max(viewport.dBottom, viewport.dTop + 1.0);
}

void CCamera::Fit(Point3 centre, double dRadius) {
  m_target = centre;
  m_dScale = c_dFill * std::min(m_viewport.GetWidth(), m_viewport.GetHeight()) / (2.0 * dRadius);
  m_dPanX = 0.0;
  m_dPanY = 0.0;
}

void CCamera::Fit(std::span<const Point3> points, double dMargin) {
  constexpr double c_dInfinity = std::numeric_limits<double>::infinity();
  Box seen{c_dInfinity, c_dInfinity, -c_dInfinity, -c_dInfinity};
  for (const Point3& point : points) {
    const PaintPoint p = ProjectDirection(point).at;
    seen = {std::min(seen.dLeft, p.dX), std::min(seen.dTop, p.dY), std::max(seen.dRight, p.dX),
            std::max(seen.dBottom, p.dY)};
  }
  const double dWidth = std::max(seen.GetWidth(), c_dLeastExtent);
  const double dHeight = std::max(seen.GetHeight(), c_dLeastExtent);
  m_target = 0.5 * (seen.dLeft + seen.dRight) * m_right - 0.5 * (seen.dTop + seen.dBottom) * m_up;
  m_dScale =
      std::min((m_viewport.GetWidth() - 2.0 * dMargin) / dWidth, (m_viewport.GetHeight() - 2.0 * dMargin) / dHeight);
  m_dPanX = 0.0;
  m_dPanY = 0.0;
}

void CCamera::Pan(double dX, double dY) {
  m_dPanX += dX;
  m_dPanY += dY;
}

void CCamera::Zoom(double dFactor, double dX, double dY) {
  const double dScale = std::clamp(dFactor * m_dScale, c_dLeastScale, c_dLargestScale);
  const double f = dScale / m_dScale;
  const double x = dX - GetMiddle().dX;
  const double y = dY - GetMiddle().dY;
  m_dPanX = x - f * (x - m_dPanX);
  m_dPanY = y - f * (y - m_dPanY);
  m_dScale = dScale;
}

ScreenPoint CCamera::Project(Point3 point) const {
  const auto [d, dDepth] = ProjectDirection(point - m_target);
  const PaintPoint middle = GetMiddle();
  return {{middle.dX + m_dPanX + m_dScale * d.dX, middle.dY + m_dPanY + m_dScale * d.dY}, dDepth};
}

ScreenPoint CCamera::ProjectDirection(Point3 direction) const {
  return {{Dot(m_right, direction), -Dot(m_up, direction)}, Dot(m_eye, direction)};
}

PaintPoint CCamera::GetMiddle() const {
  return {0.5 * (m_viewport.dLeft + m_viewport.dRight), 0.5 * (m_viewport.dTop + m_viewport.dBottom)};
}

}  // namespace skyframe::host
