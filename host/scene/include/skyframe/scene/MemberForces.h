#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/job/Language.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/scene/Scene.h"

namespace skyframe::host {

/// Section forces in local axes as engineers name them: My bends in the plane of x and z, by Iy; Mx is the torque. The
/// last two are lengths of (Qy, Qz) and (My, Mz).
enum class MemberQuantity { N, Qy, Qz, Mx, My, Mz, Shear, Moment };
inline constexpr std::size_t c_nForceComponents = 6;
inline constexpr std::array<std::string_view, 8> c_strMemberQuantities = {"N", "Qy", "Qz", "Mx", "My", "Mz", "Q", "M"};

[[nodiscard]] bool IsMoment(MemberQuantity quantity);
/// "kN" or "kN·m".
[[nodiscard]] std::string_view GetUnit(MemberQuantity quantity);
/// "bending moment My", in the language in force.
[[nodiscard]] std::string_view GetName(MemberQuantity quantity);

/// N, Qy, Qz, Mx, My, Mz, kN and kNm, at equal distances from end i to end j: two stations or more, one with N alone in
/// a bar, none for a member that the result does not have.
struct MemberForces {
  std::vector<std::array<double, c_nForceComponents>> stations;

  [[nodiscard]] bool Has(MemberQuantity quantity) const;
  /// By station.
  [[nodiscard]] std::vector<double> Get(MemberQuantity quantity) const;
};

/// Forces of a support on the structure.
struct SupportForces {
  int nNode = 0;                      ///< index
  std::array<double, 6> forces = {};  ///< X Y Z RX RY RZ, kN and kNm
};

/// What a result says of the forces in a structure.
struct StructureForces {
  bool bAbsolute = false;             ///< combined values without sign
  std::vector<MemberForces> members;  ///< by member of the scene
  std::vector<SupportForces> reactions;
};

/// Counts of the structure that a result must belong to.
struct StructureSize {
  std::size_t nNodes = 0;
  std::size_t nMembers = 0;
};

// Nothing and the reason when the result belongs to another structure or has a value that cannot be drawn.

[[nodiscard]] Reading<StructureForces> FormMemberForces(const StaticResultFile& file, StructureSize size);
[[nodiscard]] Reading<StructureForces> FormMemberForces(const SpectrumResultFile& file, StructureSize size);
/// A step of a time history: axial forces by element, N.
[[nodiscard]] Reading<StructureForces> FormMemberForces(std::span<const double> axialForces, StructureSize size);

/// Where a quantity is largest and smallest.
struct ForceExtremes {
  double dLowest = 0.0;
  double dHighest = 0.0;
  std::optional<std::size_t> nLowest;  ///< index of the member; none when no member has the quantity
  std::optional<std::size_t> nHighest;

  [[nodiscard]] double GetMagnitude() const;
};
[[nodiscard]] ForceExtremes FindExtremes(const StructureForces& forces, MemberQuantity quantity,
                                         const CShownParts& shown = {});

}  // namespace skyframe::host
