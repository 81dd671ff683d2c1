#pragma once

#include <cmath>

namespace skyframe::host {

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

[[nodiscard]] inline double Dot(Point3 a, Point3 b) { return a.dX * b.dX + a.dY * b.dY + a.dZ * b.dZ; }

[[nodiscard]] inline Point3 Cross(Point3 a, Point3 b) {
  return {a.dY * b.dZ - a.dZ * b.dY, a.dZ * b.dX - a.dX * b.dZ, a.dX * b.dY - a.dY * b.dX};
}

[[nodiscard]] inline double Length(Point3 a) { return std::hypot(a.dX, a.dY, a.dZ); }

}  // namespace skyframe::host
