#pragma once

#include <array>

namespace skyframe {

using Vector3 = std::array<double, 3>;
/// Rows local x, local y, local z; columns global X, Y, Z.
using LocalAxes = std::array<Vector3, 3>;

/// Local axes of a member along d (its length need not be 1) whose undeformed chord is d0 and whose section is
/// turned by the angle with cosine c and sine s. With w = unit(x × h): y = c w × x - s w, z right-handed.
/// h = Y when d0 has no Y component, else h along sign(d0_Y) (d_Y, -d_X, 0), horizontal and normal to the member.
/// Taking branch and sign from d0 keeps y and z from turning over when the present d_Y vanishes or changes sign.
/// Where h leaves no plane (d along Y, or vertical), y and z are those of the approach from d0.
[[nodiscard]] LocalAxes FormLocalAxes(const Vector3& d, const Vector3& d0, double c, double s);

/// A two-node member in motion: length and local axes, undeformed and present.
/// Lifecycle: the first SetEnds fixes the undeformed chord, each later one moves the ends; TurnAxes follows.
class MemberFrame {
 public:
  /// End coordinates, m: the present length.
  void SetEnds(const Vector3& xi, const Vector3& xj);
  /// Present axes along the present chord, of a section turned by the angle with cosine c and sine s.
  void TurnAxes(double c, double s);

  [[nodiscard]] double GetLength() const { return m_dLength; }
  [[nodiscard]] double GetInitialLength() const { return m_dInitialLength; }
  [[nodiscard]] const LocalAxes& GetAxes() const { return m_axes; }
  [[nodiscard]] const LocalAxes& GetInitialAxes() const { return m_initialAxes; }
  /// Angle, rad, by which the rule has turned y and z about the member itself since the undeformed state: h follows
  /// the plan projection (or stays at Y), the section of a member that merely sways does not.
  [[nodiscard]] double GetTwist() const;

 private:
  bool m_bPlaced = false;
  bool m_bTurned = false;
  Vector3 m_chord = {};  ///< d = x_j - x_i
  Vector3 m_initialChord = {};
  double m_dLength = 0.0;
  double m_dInitialLength = 0.0;
  LocalAxes m_axes = {};
  LocalAxes m_initialAxes = {};
};

}  // namespace skyframe
