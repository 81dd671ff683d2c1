#pragma once

#include <string>

#include "skyframe/job/Job.h"

namespace skyframe::host {

/// Puts a job together; node ids are the host numbers.
class CJobBuilder {
 public:
  explicit CJobBuilder(std::string strTitle) { m_job.strTitle = std::move(strTitle); }

  /// Returns the host number. Coordinates are rounded to 1e-9 m. Restraint as in job files.
  int AddNode(double dX, double dY, double dZ, JointKind joint, std::string_view strRestraint = "000000");
  /// Returns the place of the section.
  int AddSection(const JobSection& section);
  void AddElement(ElementType type, int nNodeI, int nNodeJ, int nSection);
  /// A load of value 0 is left out.
  void AddLoad(int nCase, int nNode, int nDirection, double dValue);
  /// Linear or nonlinear static analysis of all cases in use with factor 1.
  void AddStatic(StaticJob analysis);
  /// Modes and their response to an earthquake along X, with the representative gravity load as mass.
  void AddEarthquake(int nModes, double dDamping);

  [[nodiscard]] Job Take() { return std::move(m_job); }

 private:
  /// Dead load and half of the live load, turned upwards: such loads become mass. Cases without loads are left out.
  [[nodiscard]] JobCombination FormMassCombination() const;

  Job m_job;
};

}  // namespace skyframe::host
