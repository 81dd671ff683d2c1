#pragma once

#include <optional>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// A limit, and whether the job states it in the place of the code.
struct Limit {
  double dValue = 0.0;
  bool bOwn = false;
};

/// Limits of the seismic design code GB 50011 by structure and edition, and of JGJ 3 for tall buildings where it has
/// none; a job may state its own. Intensities are places in c_strIntensities. Nothing where there is no limit.
class CCodeLimits {
 public:
  explicit CCodeLimits(const JobReport& report) : m_report(report) {}

  [[nodiscard]] int GetEdition() const { return m_report.nEdition.value_or(c_nEdition2001); }

  /// Least share of the mass in the earthquake's directions.
  [[nodiscard]] Limit GetMassParticipation() const;
  /// Least ratio of storey shear to weight (5.2.5): one value below 3.5 s, another above 5 s, linear between.
  [[nodiscard]] std::optional<Limit> FindShearWeight(int nIntensity, double dFirstPeriod) const;
  /// Largest angle of elastic drift under frequent earthquakes (5.5.1), or of drift under rare ones (5.5.5).
  [[nodiscard]] std::optional<Limit> FindDrift(int nLevel) const;
  /// Largest ratio of the first torsional to the first lateral period.
  [[nodiscard]] Limit GetPeriodRatio() const;
  /// Ratio of largest to mean displacement from which on a plan is irregular.
  [[nodiscard]] static double GetRegularDisplacementRatio() { return 1.2; }
  /// Ratio that must not be exceeded.
  [[nodiscard]] Limit GetDisplacementRatio() const;

 private:
  const JobReport& m_report;
};

/// Least part of the spectrum's base shear that one time history and the mean of several must have (5.1.2).
inline constexpr double c_dLeastHistoryShear = 0.65;
inline constexpr double c_dLeastMeanHistoryShear = 0.80;
/// Least duration of a record, first periods (5.1.2).
inline constexpr double c_dLeastHistoryPeriods = 5.0;
/// Peak ground acceleration for time histories, m/s2 (table 5.1.2-2); nothing where the code has none.
[[nodiscard]] std::optional<double> FindPeakAcceleration(int nEdition, int nIntensity, int nLevel);

}  // namespace skyframe::host
