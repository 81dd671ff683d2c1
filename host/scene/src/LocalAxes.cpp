#include "skyframe/scene/LocalAxes.h"

namespace skyframe::host {

namespace {

constexpr double c_dSamePlace = 1.0e-15;  // m

Point3 Normalise(Point3 a) { return (1.0 / Length(a)) * a; }

/// As the host's records hold it.
double ToRecord(double d) { return static_cast<double>(static_cast<float>(d)); }

Point3 ToRecord(Point3 a) { return {ToRecord(a.dX), ToRecord(a.dY), ToRecord(a.dZ)}; }

}  // namespace

LocalAxes FindLocalAxes(Point3 endI, Point3 endJ) {
  const Point3 d = ToRecord(endJ) - ToRecord(endI);
  if (!(Length(d) > 0.0)) return {};
  const Point3 x = Normalise(d);
  const bool bAlongY = std::abs(d.dY) > c_dSamePlace;
  const Point3 h = bAlongY ? Normalise({1.0, -d.dX / d.dY, 0.0}) : Point3{0.0, 1.0, 0.0};
  const Point3 z = Normalise(Cross(x, h));
  return {x, Cross(z, x), z};
}

}  // namespace skyframe::host
