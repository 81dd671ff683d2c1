#pragma once

#include <array>
#include <string>
#include <vector>

#include "skyframe/values/SpectrumSite.h"

namespace skyframe {

// What a person sets for an analysis. A dialog fills it, the model computes with it, and both have it as a base.
// The values here are those that a model starts from; codes, never indices of radio buttons.

struct ModalSettings {
  int m_nModes = 10;
  int m_nRootCheck = 0;  ///< 0 "STURM法", 1 "模态比较法"
  double m_dModeTol = 1.0e-16;
  int m_nIterMultiple = 6;
  int m_bShear = 0;
};

struct SpectrumSettings : SpectrumSite {
  int m_nExpandModes = 0;
  std::array<double, 3> m_dDirCoef = {1.0, 0.0, 0.0};  ///< of any length
  double m_dDampRatio = 0.02;
  int m_nCombMethod = 0;  ///< 0 SRSS, 1 CQC, 2 GRP
  int m_nMeshDiv = 0;
  int m_bVirtualModes = 0;
  int m_nPseudoLoadNo = 0;
  double DesignAcceleration = 0.15;  ///< g
};

enum ConvergenceCriterion : int {
  c_nAbsoluteForce,
  c_nAbsoluteDisplacement,
  c_nRelativeForce,
  c_nRelativeDisplacement
};

/// Equilibrium iteration.
struct EquilibriumSettings {
  int m_nConvCriterion = c_nAbsoluteForce;  ///< ConvergenceCriterion
  double m_dConvTol = 1.0e-5;
  int m_nMaxIter = 30;
};

struct StaticSettings : EquilibriumSettings {
  int m_bNonlinear = 1;
};

/// Steps of a time history, s.
struct StepSettings {
  double m_dTimeStep = 0.01;
  double m_dDuration = 10.0;
};

/// What both methods of direct integration need.
struct HistorySettings : StepSettings {
  /// Ratios of the first and the second mode; the others are not used.
  std::vector<double> m_pDamping = {0.02, 0.02, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
};

struct WilsonSettings {
  double m_dWilsonTheta = 1.4;
};

struct NewmarkSettings {
  int m_nLoadType = 0;  ///< 0 nodal force, 1 ground motion
  double m_dNewmarkDelta = 0.5;
  double m_dNewmarkAlpha = 0.25;
  int m_bLoadFromFile = 0;
};

/// m/s2.
struct QuakePeaks {
  std::array<double, 3> m_dPeak = {1.0, 1.0, 1.0};
  double m_dPeakOblique = 1.0;
};

/// What excites the structure at its supports.
struct QuakeSettings : QuakePeaks {
  int m_nQuakeMode = 0;                                    ///< 0 principal directions, 1 oblique
  std::array<int, 3> m_bQuakeDir = {0, 0, 0};              ///< principal mode: the first one that is set is used
  std::array<double, 3> m_dObliqueCoef = {1.0, 0.0, 0.0};  ///< oblique mode: direction cosines
  std::string m_strQuakeFile;                              ///< standard record
};

/// Peak of an impulse on one node.
struct ImpulseLoad {
  int nNode = 0;       ///< 1-based, as entered
  int nDirection = 0;  ///< 0 X, 1 Y, 2 Z; anything else acts nowhere
  double dPeak = 0.0;  ///< kN
};

}  // namespace skyframe
