#include "skyframe/gui/Camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace skyframe::gui {

namespace {

constexpr double c_dDegree = std::numbers::pi / 180.0;
constexpr double c_dFill = 0.92;  // part of the viewport that a fitted sphere takes
constexpr double c_dLeastScale = 1.0e-6;
constexpr double c_dLargestScale = 1.0e9;

}  // namespace

double Dot(Point3 a, Point3 b) { return a.dX * b.dX + a.dY * b.dY + a.dZ * b.dZ; }

Point3 Cross(Point3 a, Point3 b) {
  return {a.dY * b.dZ - a.dZ * b.dY, a.dZ * b.dX - a.dX * b.dZ, a.dX * b.dY - a.dY * b.dX};
}

double Length(Point3 a) { return std::sqrt(Dot(a, a)); }

void CCamera::SetDirection(double dAzimuth, double dElevation) {
  m_dAzimuth = std::remainder(dAzimuth, 360.0);
  m_dElevation = std::clamp(dElevation, -90.0, 90.0);
  const double a = m_dAzimuth * c_dDegree;
  const double p = m_dElevation * c_dDegree;
  m_eye = {std::cos(p) * std::cos(a), std::cos(p) * std::sin(a), std::sin(p)};
  m_right = {-std::sin(a), std::cos(a), 0.0};
  m_up = Cross(m_eye, m_right);
}

void CCamera::Turn(double dAzimuth, double dElevation) {
  SetDirection(m_dAzimuth + dAzimuth, m_dElevation + dElevation);
}

void CCamera::SetViewport(double dWidth, double dHeight) {
  m_dWidth = std::max(dWidth, 1.0);
  m_dHeight = std::max(dHeight, 1.0);
}

void CCamera::Fit(Point3 centre, double dRadius) {
  m_target = centre;
  m_dScale = c_dFill * std::min(m_dWidth, m_dHeight) / (2.0 * dRadius);
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
  const double x = dX - 0.5 * m_dWidth;
  const double y = dY - 0.5 * m_dHeight;
  m_dPanX = x - f * (x - m_dPanX);
  m_dPanY = y - f * (y - m_dPanY);
  m_dScale = dScale;
}

ScreenPoint CCamera::Project(Point3 point) const {
  const ScreenPoint d = ProjectDirection(point - m_target);
  return {0.5 * m_dWidth + m_dPanX + m_dScale * d.dX, 0.5 * m_dHeight + m_dPanY + m_dScale * d.dY, d.dDepth};
}

ScreenPoint CCamera::ProjectDirection(Point3 direction) const {
  return {Dot(m_right, direction), -Dot(m_up, direction), Dot(m_eye, direction)};
}

}  // namespace skyframe::gui
