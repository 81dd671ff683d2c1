#pragma once

#include <array>
#include <string>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::gui {

/// What a curve of the histories dock shows over time.
enum class CurveKind { X, Y, Z, AxialForce, ShearX, ShearY, ShearZ };
inline constexpr std::array<CurveKind, 7> c_curveKinds = {CurveKind::X,          CurveKind::Y,      CurveKind::Z,
                                                          CurveKind::AxialForce, CurveKind::ShearX, CurveKind::ShearY,
                                                          CurveKind::ShearZ};
/// Curves of a group share a chart.
enum class CurveGroup { Displacement, AxialForce, BaseShear };
inline constexpr std::array<CurveGroup, 3> c_curveGroups = {CurveGroup::Displacement, CurveGroup::AxialForce,
                                                            CurveGroup::BaseShear};

struct CurveId {
  CurveKind kind = CurveKind::X;
  int nIndex = 0;  ///< of the node or element; 0 for a base shear
  bool operator==(const CurveId&) const = default;

  [[nodiscard]] CurveGroup GetGroup() const;
};

/// How values are shown.
struct CurveUnits {
  host::HistoryUnit length = host::c_displacementUnits.front();
  host::HistoryUnit force = host::c_forceUnits.front();

  [[nodiscard]] const host::HistoryUnit& Get(CurveGroup group) const;
};

/// Whether time runs on in the histories, so that they can be drawn.
[[nodiscard]] bool CanDraw(const HistorySet& history);
[[nodiscard]] bool HasCurve(const HistorySet& history, const CurveId& curve);
/// m or N at a step, from 0. Curve and step are there.
[[nodiscard]] double ReadValue(const HistorySet& history, const CurveId& curve, int nStep);
/// The node's displacement with the largest value.
[[nodiscard]] CurveId FindLargestCurve(const HistorySet& history);

/// "node 12, X", in the language in force. The job has the node.
[[nodiscard]] std::string NameCurve(const host::Job& job, const CurveId& curve);
/// All but range and cursor; every curve is there and of the group.
[[nodiscard]] host::HistoryPicture FormPicture(const host::Job& job, const HistorySet& history, CurveGroup group,
                                               const std::vector<CurveId>& curves, const CurveUnits& units);
/// Time and every curve by column, in UTF-8 with its byte order mark, so that spreadsheets know it.
[[nodiscard]] std::string FormCsv(const host::Job& job, const HistorySet& history, const std::vector<CurveId>& curves,
                                  const CurveUnits& units);

}  // namespace skyframe::gui
