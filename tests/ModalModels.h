#pragma once

#include "TestPlatform.h"
#include "skyframe/modal/ModalPencil.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::test {

inline constexpr double c_dSteelE = 2.06e11;
inline constexpr double c_dSteelDensity = 7900.0;

/// Cantilever along X: L = 4 m, A = 0.01 m2, Iy = Iz = 2e-5 m4, fixed at node 1.
inline void FillCantilever(CHostModel& host, int nElements) {
  host.SetSection(1, 3, 10000, 1e4, 2e7, 2e7);
  for (int i = 0; i <= nElements; ++i) host.AddNode(4.0 * i / nElements, 0, 0, c_nRigid, i == 0 ? "111111" : "000000");
  for (int i = 1; i <= nElements; ++i) host.AddElement(c_nBeam, i, i + 1, 103);
}

/// One bar along X that moves along X only: L = 2 m, k = 1.03e9 N/m for an area of 0.01 m2.
inline void FillBar(CHostModel& host, double dArea = 10000) {
  host.SetSection(1, 2, dArea);
  host.AddNode(0, 0, 0, c_nPinned, "111000");
  host.AddNode(2, 0, 0, c_nPinned, "011000");
  host.AddElement(c_nBar, 1, 2, 102);
}

/// The same with 100 kN along Z at its end, which is mass.
inline void FillOneBar(CHostModel& host, double dArea = 10000) {
  FillBar(host, dArea);
  host.AddLoad(0, 2, c_nDofZ, 100.0);
}

/// Two bars to an apex 1 m above the supports, half-span 4 m, EA = 2.06e8 N.
inline void FillArch(CHostModel& host) {
  host.SetSection(1, 2, 1000);
  host.AddNode(-4, 0, 0, c_nPinned, "111000");
  host.AddNode(0, 0, 1, c_nPinned, "010000");
  host.AddNode(4, 0, 0, c_nPinned, "111000");
  host.AddElement(c_nBar, 1, 2);
  host.AddElement(c_nBar, 3, 2);
}

/// A frame that leans every way.
inline void FillLeaningFrame(CHostModel& host) {
  host.SetSection(1, 2, 6000, 5e6, 2e7, 4e7);
  host.AddNode(0, 0, 0, c_nRigid, "111111");
  host.AddNode(0.2, 0.1, 3);
  host.AddNode(4, 0, 3.1);
  host.AddNode(4, 0.3, 0, c_nPinned, "111000");
  for (const int n : {1, 2, 3}) host.AddElement(c_nBeam, n, n + 1);
  host.AddElement(c_nBar, 1, 3);
}

/// Square towers of rigid frames, one bay: equal stiffness along X and Y, nothing between them.
inline void FillSquareTower(CHostModel& host, int nStoreys, int nTowers = 1) {
  host.SetSection(1, 2, 20000, 1e8, 2e8, 2e8);
  const auto node = [](int nStorey, int nCorner) { return 4 * nStorey + nCorner + 1; };
  constexpr double c_dX[] = {0, 6, 6, 0}, c_dY[] = {0, 0, 6, 6};
  const int nLevels = nStoreys + 1;
  for (int s = 0; s < nLevels * nTowers; ++s) {
    for (int c = 0; c < 4; ++c) {
      host.AddNode(c_dX[c] + 50.0 * (s / nLevels), c_dY[c], 3.5 * (s % nLevels), c_nRigid,
                   s % nLevels == 0 ? "111111" : "000000");
    }
    for (int c = 0; c < 4 && s % nLevels > 0; ++c) {
      host.AddElement(c_nBeam, node(s - 1, c), node(s, c));
      host.AddElement(c_nBeam, node(s, c), node(s, (c + 1) % 4));
    }
  }
}

/// Largest difference over largest value of a table.
inline double Compare(const CHistoryTable& found, const CHistoryTable& expected) {
  if (found.GetRows() != expected.GetRows() || found.GetCols() != expected.GetCols()) return 1.0;
  double dLargest = 0.0, dDifference = 0.0;
  for (int k = 0; k < found.GetRows(); ++k) {
    for (int i = 0; i < found.GetCols(); ++i) {
      dLargest = std::max(dLargest, std::abs(expected[k][i]));
      dDifference = std::max(dDifference, std::abs(found[k][i] - expected[k][i]));
    }
  }
  return dLargest > 0.0 ? dDifference / dLargest : 1.0;
}

/// Worst |K phi - omega^2 M phi| / |K phi| and worst |Phi^T M Phi - I| of a model's modes.
struct ModeErrors {
  double dResidual = 0.0;
  double dOrthogonality = 0.0;
};
inline ModeErrors FormModeErrors(const CAnalysisModel& model, bool bUseLoadMass) {
  SparseMatrix K, M;
  EXPECT_TRUE(AssembleModalMass(model, bUseLoadMass, M) && model.AssembleStiffness(K, false, model.m_bShear != 0));
  const int F = model.GetFreeDofs(), n = static_cast<int>(model.Omega.size());
  ModeErrors errors;
  for (int i = 0; i < n; ++i) {
    CMatrix phi(F, 1);
    for (int k = 0; k < F; ++k) phi[k][0] = model.ModeShapes[k][i];
    const CMatrix Kphi = K * phi, Mphi = M * phi;
    double dResidual2 = 0.0, dForce2 = 0.0;
    for (int k = 0; k < F; ++k) {
      dResidual2 += std::pow(Kphi[k][0] - model.Omega[i] * model.Omega[i] * Mphi[k][0], 2);
      dForce2 += std::pow(Kphi[k][0], 2);
    }
    errors.dResidual = std::max(errors.dResidual, std::sqrt(dResidual2 / dForce2));
    for (int j = 0; j < n; ++j) {
      double dProduct = i == j ? -1.0 : 0.0;
      for (int k = 0; k < F; ++k) dProduct += model.ModeShapes[k][j] * Mphi[k][0];
      errors.dOrthogonality = std::max(errors.dOrthogonality, std::abs(dProduct));
    }
  }
  return errors;
}

}  // namespace skyframe::test
