#include "skyframe/job/FreeBody.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "skyframe/job/Places.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMotions = 6;  // translations along X Y Z, rotations about them over the part's reach
constexpr double c_dNone = 1.0e-12;    // share that counts as none: squared round-off of single-precision coordinates
using Motion = std::array<double, c_nMotions>;
using Matrix = std::array<Motion, c_nMotions>;

struct Eigen {
  Motion values = {};
  Matrix vectors = {};  ///< rows
};

/// A <- J^T A J, V <- J^T V with the rotation that makes A(p, q) zero.
void Rotate(std::size_t p, std::size_t q, Matrix& A, Matrix& V) {
  if (A[p][q] == 0.0) return;
  const double theta = (A[q][q] - A[p][p]) / (2.0 * A[p][q]);
  const double t = std::copysign(1.0, theta) / (std::abs(theta) + std::hypot(theta, 1.0));
  const double c = 1.0 / std::hypot(t, 1.0), s = t * c;
  const auto turn = [c, s](double& x, double& y) {
    const double dOld = x;
    x = c * dOld - s * y;
    y = s * dOld + c * y;
  };
  for (std::size_t k = 0; k < c_nMotions; ++k) turn(A[k][p], A[k][q]);
  for (std::size_t k = 0; k < c_nMotions; ++k) turn(A[p][k], A[q][k]);
  for (std::size_t k = 0; k < c_nMotions; ++k) turn(V[p][k], V[q][k]);
}

/// Of a symmetric matrix, by cyclic Jacobi rotations. Source: Golub and Van Loan (2013), section 8.5.
Eigen SolveEigen(Matrix A) {
  constexpr int c_nSweeps = 20;
  Eigen eigen;
  for (std::size_t i = 0; i < c_nMotions; ++i) eigen.vectors[i][i] = 1.0;
  for (int nSweep = 0; nSweep < c_nSweeps; ++nSweep) {
    for (std::size_t p = 0; p < c_nMotions; ++p) {
      for (std::size_t q = p + 1; q < c_nMotions; ++q) Rotate(p, q, A, eigen.vectors);
    }
  }
  for (std::size_t i = 0; i < c_nMotions; ++i) eigen.values[i] = A[i][i];
  return eigen;
}

double Dot(const Motion& a, const Motion& b) { return std::inner_product(a.begin(), a.end(), b.begin(), 0.0); }

/// Nodes that elements connect, by host number.
std::vector<std::vector<int>> FindParts(const Job& job) {
  std::vector<int> parent(job.nodes.size() + 1);
  std::iota(parent.begin(), parent.end(), 0);
  const auto root = [&parent](int n) {
    while (parent[n] != n) n = parent[n] = parent[parent[n]];
    return n;
  };
  std::vector<bool> isUsed(parent.size());
  for (const JobElement& element : job.elements) {
    parent[root(element.nNodeI)] = root(element.nNodeJ);
    isUsed[element.nNodeI] = isUsed[element.nNodeJ] = true;
  }
  std::vector<std::vector<int>> parts(parent.size());
  for (int n = 1; n < static_cast<int>(parent.size()); ++n) {
    if (isUsed[n]) parts[root(n)].push_back(n);
  }
  std::erase_if(parts, [](const std::vector<int>& part) { return part.empty(); });
  return parts;
}

/// One joint that can neither move nor turn holds its part.
bool HasClampedNode(const Job& job, const std::vector<int>& part) {
  return std::ranges::any_of(part, [&job](int nNode) {
    const JobNode& node = job.nodes[static_cast<std::size_t>(nNode - 1)];
    if (node.nJoint != c_nRigid) return false;
    for (std::size_t d = 0; d < c_nMotions; ++d) {
      if (!IsRestrained(job, node, d)) return false;
    }
    return true;
  });
}

/// Rigid-body motions of one part, about its centre.
class CPart {
 public:
  CPart(const Job& job, const std::vector<int>& nodes) : m_job(job), m_nodes(nodes) {
    for (const int nNode : nodes) {
      const std::array<double, 3> p = GetPosition(nNode);
      for (std::size_t d = 0; d < 3; ++d) m_centre[d] += p[d] / static_cast<double>(nodes.size());
    }
    for (const int nNode : nodes) {
      const std::array<double, 3> p = GetPosition(nNode);
      m_dReach = std::max(m_dReach, std::hypot(p[0] - m_centre[0], p[1] - m_centre[1], p[2] - m_centre[2]));
    }
  }

  /// The motion that the supports hold least, of those that move anything; nothing when each is held.
  [[nodiscard]] std::optional<DofPlace> FindFreeMotion() const {
    const Eigen all = SolveEigen(FormGram(false));
    const double dLargest = *std::ranges::max_element(all.values);
    Matrix W = {};  // rows: motions of unit effect; zero where there is none
    for (std::size_t i = 0; i < c_nMotions; ++i) {
      if (all.values[i] <= c_dNone * dLargest) continue;
      for (std::size_t k = 0; k < c_nMotions; ++k) W[i][k] = all.vectors[i][k] / std::sqrt(all.values[i]);
    }
    const Eigen held = SolveEigen(Project(W, FormGram(true)));
    for (std::size_t i = 0; i < c_nMotions; ++i) {
      Motion v = {};
      for (std::size_t k = 0; k < c_nMotions; ++k) {
        for (std::size_t j = 0; j < c_nMotions; ++j) v[k] += held.vectors[i][j] * W[j][k];
      }
      if (held.values[i] <= c_dNone && Dot(v, v) > 0.0) return FindLargest(v);
    }
    return std::nullopt;
  }

 private:
  [[nodiscard]] const JobNode& GetNode(int nNode) const { return m_job.nodes[static_cast<std::size_t>(nNode - 1)]; }
  [[nodiscard]] std::array<double, 3> GetPosition(int nNode) const {
    const JobNode& node = GetNode(nNode);
    return {static_cast<float>(node.dX), static_cast<float>(node.dY), static_cast<float>(node.dZ)};
  }

  /// Displacement of a DOF under the six motions; rotations are over the reach.
  [[nodiscard]] Motion FormRow(int nNode, std::size_t d) const {
    Motion row = {};
    row[d] = 1.0;
    if (d >= 3) return row;
    const std::array<double, 3> p = GetPosition(nNode);
    const std::size_t e = (d + 1) % 3, f = (d + 2) % 3;
    row[3 + e] = (p[f] - m_centre[f]) / m_dReach;  // u = omega x r
    row[3 + f] = -(p[e] - m_centre[e]) / m_dReach;
    return row;
  }

  /// Sum of r r^T over the part's DOFs, or over the restrained ones.
  [[nodiscard]] Matrix FormGram(bool bRestrained) const {
    Matrix G = {};
    for (const int nNode : m_nodes) {
      for (std::size_t d = 0; d < (GetNode(nNode).nJoint == c_nRigid ? 6U : 3U); ++d) {
        if (bRestrained && !IsRestrained(m_job, GetNode(nNode), d)) continue;
        const Motion r = FormRow(nNode, d);
        for (std::size_t i = 0; i < c_nMotions; ++i) {
          for (std::size_t j = 0; j < c_nMotions; ++j) G[i][j] += r[i] * r[j];
        }
      }
    }
    return G;
  }

  /// W B W^T
  static Matrix Project(const Matrix& W, const Matrix& B) {
    Matrix C = {};
    for (std::size_t i = 0; i < c_nMotions; ++i) {
      for (std::size_t k = 0; k < c_nMotions; ++k) {
        for (std::size_t j = 0; j < c_nMotions; ++j) C[i][j] += W[i][k] * Dot(B[k], W[j]);
      }
    }
    return C;
  }

  [[nodiscard]] DofPlace FindLargest(const Motion& v) const {
    DofPlace place;
    double dLargest = 0.0;
    for (const int nNode : m_nodes) {
      for (std::size_t d = 0; d < (GetNode(nNode).nJoint == c_nRigid ? 6U : 3U); ++d) {
        const double dMove = std::abs(Dot(FormRow(nNode, d), v));
        if (dMove <= dLargest) continue;
        dLargest = dMove;
        place = {nNode, static_cast<int>(d)};
      }
    }
    return place;
  }

  const Job& m_job;
  const std::vector<int>& m_nodes;
  std::array<double, 3> m_centre = {};
  double m_dReach = 0.0;  ///< above 0: no element has zero length
};

}  // namespace

std::optional<DofPlace> FindFreeBody(const Job& job) {
  for (const std::vector<int>& part : FindParts(job)) {
    if (HasClampedNode(job, part)) continue;
    if (const auto place = CPart(job, part).FindFreeMotion()) return place;
  }
  return std::nullopt;
}

}  // namespace skyframe::host
