#include "CompareShapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nDofs = 6;
using Shape = std::vector<NodeValues>;
using Shapes = std::vector<Shape>;

double Dot(const Shape& a, const Shape& b) {
  double dSum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t d = 0; d < c_nDofs; ++d) dSum += a[i][d] * b[i][d];
  }
  return dSum;
}

/// a <- a + factor b
void AddTo(Shape& a, double dFactor, const Shape& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t d = 0; d < c_nDofs; ++d) a[i][d] += dFactor * b[i][d];
  }
}

void Scale(Shape& a, double dFactor) {
  for (NodeValues& values : a) {
    for (double& d : values) d *= dFactor;
  }
}

/// Takes away the parts along shapes of length 1 that are normal to each other; twice, as once leaves round-off.
void MakeNormalTo(Shape& shape, const Shapes& basis) {
  for (int nPass = 0; nPass < 2; ++nPass) {
    for (const Shape& q : basis) AddTo(shape, -Dot(q, shape), q);
  }
}

/// Of the same space; shapes that are no more than round-off beside the others are left out.
Shapes Orthonormalise(std::span<const Shape> shapes) {
  constexpr double c_dRoundOff = 1.0e-10;
  Shapes basis;
  for (Shape shape : shapes) {
    const double dLength = std::sqrt(Dot(shape, shape));
    MakeNormalTo(shape, basis);
    const double dRest = std::sqrt(Dot(shape, shape));
    if (dRest <= c_dRoundOff * dLength) continue;
    Scale(shape, 1.0 / dRest);
    basis.push_back(std::move(shape));
  }
  return basis;
}

/// At each DOF the root of the sum of squares, which does not change when the shapes are turned among themselves.
Shape FindMagnitudes(std::span<const Shape> shapes) {
  Shape sums(shapes.front().size());
  for (const Shape& shape : shapes) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
      for (std::size_t d = 0; d < c_nDofs; ++d) sums[i][d] = std::hypot(sums[i][d], shape[i][d]);
    }
  }
  return sums;
}

class CModeComparison {
 public:
  CModeComparison(const ModeResultFile& first, const ModeResultFile& second, const std::vector<JobNode>& nodes)
      : m_first(first), m_second(second), m_nodes(nodes), m_nModes(std::min(first.omega.size(), second.omega.size())) {}

  std::vector<Difference> Run(double dTolerance) {
    std::vector<Difference> differences = {CompareFrequencies(dTolerance)};
    for (std::size_t nStart = 0, nEnd = 0; nStart < m_nModes; nStart = nEnd) {
      nEnd = FindEnd(nStart);
      nEnd == nStart + 1 ? AddSingle(nStart) : AddGroup(nStart, nEnd - nStart);
    }
    differences.push_back(m_translation.Conclude(dTolerance));
    differences.push_back(m_rotation.Conclude(dTolerance));
    if (m_bGroups) differences.push_back(m_space.Conclude(dTolerance));
    return differences;
  }

 private:
  /// Each is measured by itself; the largest relative difference.
  [[nodiscard]] Difference CompareFrequencies(double dTolerance) const {
    Difference largest;
    bool bAbove = false;
    for (std::size_t k = 0; k < m_nModes; ++k) {
      CLargestDifference one(texts::c_frequency, "Hz");
      one.Add(ToHertz(m_first.omega[k]), ToHertz(m_second.omega[k]), {.nMode = static_cast<int>(k) + 1});
      const Difference difference = one.Conclude(dTolerance);
      bAbove = bAbove || difference.bAbove;
      if (k == 0 || difference.GetRelative() > largest.GetRelative()) largest = difference;
    }
    largest.bAbove = bAbove;
    largest.bRounding = largest.bRounding && !bAbove;
    return largest;
  }

  static double ToHertz(double omega) { return omega / (2.0 * std::numbers::pi); }

  /// Behind the last mode that has the frequency of the one before, in one of the sets at least.
  [[nodiscard]] std::size_t FindEnd(std::size_t nStart) const {
    constexpr double c_dEqual = 1.0e-4;  // shapes closer than that are mixed by small changes
    const auto isNear = [](const std::vector<double>& omega, std::size_t k) {
      return omega[k] - omega[k - 1] <= c_dEqual * omega[k];
    };
    std::size_t nEnd = nStart + 1;
    while (nEnd < m_nModes && (isNear(m_first.omega, nEnd) || isNear(m_second.omega, nEnd))) ++nEnd;
    return nEnd;
  }

  void AddSingle(std::size_t k) {
    Shape second = m_second.shapes[k];
    if (Dot(m_first.shapes[k], second) < 0.0) Scale(second, -1.0);
    Add(m_first.shapes[k], second, k);
  }

  void AddGroup(std::size_t nStart, std::size_t nCount) {
    m_bGroups = true;
    const auto first = std::span(m_first.shapes).subspan(nStart, nCount);
    const auto second = std::span(m_second.shapes).subspan(nStart, nCount);
    Add(FindMagnitudes(first), FindMagnitudes(second), nStart);
    const Shapes basis = Orthonormalise(first);
    for (const Shape& shape : second) {
      Shape rest = shape;
      MakeNormalTo(rest, basis);
      const double dLength = std::sqrt(Dot(shape, shape));
      m_space.Add(0.0, dLength > 0.0 ? std::sqrt(Dot(rest, rest)) / dLength : 1.0,
                  {.nMode = static_cast<int>(nStart) + 1});
    }
    m_space.Add(1.0, 1.0, {});
  }

  void Add(const Shape& first, const Shape& second, std::size_t nMode) {
    for (std::size_t i = 0; i < first.size(); ++i) {
      for (std::size_t d = 0; d < c_nDofs; ++d) {
        (d < 3 ? m_translation : m_rotation)
            .Add(first[i][d], second[i][d],
                 {.nMode = static_cast<int>(nMode) + 1, .nNode = m_nodes[i].nId, .strComponent = c_strDirections[d]});
      }
    }
  }

  const ModeResultFile& m_first;
  const ModeResultFile& m_second;
  const std::vector<JobNode>& m_nodes;
  std::size_t m_nModes;
  CLargestDifference m_translation{texts::c_shapeTranslation, "/√kg"};
  CLargestDifference m_rotation{texts::c_shapeRotation, "/(m√kg)"};
  CLargestDifference m_space{texts::c_space, "", 1.0e-5};
  bool m_bGroups = false;
};

}  // namespace

std::vector<Difference> CompareModes(const ModeResultFile& first, const ModeResultFile& second,
                                     const std::vector<JobNode>& nodes, double dTolerance) {
  return CModeComparison(first, second, nodes).Run(dTolerance);
}

}  // namespace skyframe::host
