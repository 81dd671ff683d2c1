#pragma once

#include "skyframe/checks/ModalQuantities.h"
#include "skyframe/results/HistoryResultFile.h"

namespace skyframe::host {

/// Base shear of a linear time history along a horizontal direction, from its displacements. The modes are fitted to
/// them at each step, weighted with the masses:
///   sum_n m_n |u_n - sum_i phi_i,n q_i|^2 = min,  V = sum_i omega_i^2 L_i q_i.
/// By step, N: elastic forces, without those of damping. Mass that the modes leave out has no part in it.
[[nodiscard]] std::vector<double> FormHistoryShear(const ModalBasis& basis, const HistoryResultFile& history,
                                                   const std::array<double, 2>& e);

/// The same as the run itself formed it, when that is the run of this program whose histories the file holds.
[[nodiscard]] std::optional<std::vector<double>> FindHistoryShear(const HistorySet& run,
                                                                  const HistoryResultFile& history,
                                                                  const std::array<double, 2>& e);

/// Largest values of a storey over time along a horizontal direction, m.
struct StoreyPeaks {
  double dDisplacement = 0.0;
  double dDrift = 0.0;
  double dAngle = 0.0;
};
[[nodiscard]] std::vector<StoreyPeaks> FormStoreyPeaks(const StoreyModel& storeys, const HistoryResultFile& history,
                                                       const std::array<double, 2>& e);

}  // namespace skyframe::host
