#include "StaticReport.h"

#include <cmath>

#include "Format.h"
#include "StaticResultFile.h"

namespace skyframe::host {

namespace {

constexpr double c_dKilonewtonPerNewton = 1.0e-3;

double Norm(const std::array<double, 3>& u) { return std::hypot(u[0], u[1], u[2]); }

/// Spring supports hold like rigid ones where their stiffness is positive.
bool IsRestrained(const Job& job, const JobNode& node, int nDirection) {
  if (!node.nSpring) return node.restraint[nDirection] == 1;
  for (const JobSpring& spring : job.springs) {
    if (spring.nGroup == *node.nSpring) return std::array{spring.dKx, spring.dKy, spring.dKz}[nDirection] > 0.0;
  }
  return false;
}

std::vector<bool> FindUsedNodes(const Job& job) {
  std::vector<bool> isUsed(job.nodes.size() + 1);
  for (const JobElement& element : job.elements) isUsed[element.nNodeI] = isUsed[element.nNodeJ] = true;
  return isUsed;
}

void PrintLargestDisplacement(const Job& job, const StaticResultFile& result, std::ostream& out) {
  std::size_t nLargest = 0;
  for (std::size_t k = 1; k < result.displacements.size(); ++k) {
    if (Norm(result.displacements[k]) > Norm(result.displacements[nLargest])) nLargest = k;
  }
  const std::array<double, 3>& u = result.displacements[nLargest];
  out << Format("  largest displacement  %.6g m at node %d: X %.6g, Y %.6g, Z %.6g\n", Norm(u), job.nodes[nLargest].nId,
                u[0], u[1], u[2]);
}

void PrintForces(std::string_view strLabel, const std::array<double, 3>& force, std::ostream& out) {
  out << Format("  %-22sX %.3f, Y %.3f, Z %.3f kN\n", std::string(strLabel).c_str(), force[0], force[1], force[2]);
}

}  // namespace

std::array<double, 3> SumLoads(const Job& job, const JobCombination& combination) {
  const std::vector<bool> isUsed = FindUsedNodes(job);
  std::array<double, 3> sum = {};
  for (const JobLoad& load : job.loads) {
    const auto it = combination.find(load.nCase);
    if (it == combination.end() || load.nDirection >= 3 || !isUsed[load.nNode]) continue;
    if (IsRestrained(job, job.nodes[load.nNode - 1], load.nDirection)) continue;
    sum[load.nDirection] += it->second * load.dValue;
  }
  return sum;
}

void PrintStaticReport(const Job& job, const StaticJob& analysis, const std::string& strResultFile, std::ostream& out) {
  std::optional<StaticResultFile> result = ReadStaticResultFile(strResultFile);
  if (!result || result->displacements.size() != job.nodes.size()) {
    out << "  the result file cannot be read back\n";
    return;
  }
  for (double& dForce : result->supportForce) dForce *= c_dKilonewtonPerNewton;
  PrintLargestDisplacement(job, *result, out);
  PrintForces("sum of loads", SumLoads(job, analysis.combination), out);
  PrintForces("force on supports", result->supportForce, out);
}

}  // namespace skyframe::host
