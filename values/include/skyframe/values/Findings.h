#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "skyframe/values/Capacities.h"

namespace skyframe {

// What the last run of each analysis found, beside its result files. Filled inside the analysis, kept until
// its entry point is called again. Node and element numbers are those of the host records, from 1, in the
// host's own order; 0: none. Units m, N, kg, s, rad.

/// How a call of an entry point ended.
enum class RunStatus {
  Cancelled,  ///< a dialog was cancelled, or nothing was called yet
  Refused,    ///< the input was refused; nothing was computed
  Failed,     ///< broken off while computing or writing
  Done        ///< computed to the end and written
};

/// X Y Z RX RY RZ of a node.
using NodeValues = std::array<double, 6>;

/// A DOF of a node. nNode 0: none.
struct DofPlace {
  int nNode = 0;
  int nDirection = 0;  ///< 0..5 = X Y Z RX RY RZ
};

/// Digits that a factorisation lost: the largest log10(|A_ii| / |D_ii|), and the equation behind it.
struct Conditioning {
  double dLostDigits = 0.0;
  DofPlace place;  ///< no node: nothing was factorised
};

/// A file that could not be written, and why ("Permission denied").
struct FileFailure {
  std::string strPath;
  std::string strReason;
};

struct RunFindings {
  RunStatus status = RunStatus::Cancelled;
  std::vector<std::string> files;  ///< paths of the files that the run wrote, whole
  std::vector<FileFailure> failures;
  Conditioning conditioning;
  double dSeconds = 0.0;  ///< of the analysis by the clock on the wall, without dialogs
};

struct StaticFindings : RunFindings {
  bool bNonlinear = false;
  std::vector<NodeValues> displacements;  ///< by node
  std::vector<NodeValues> loads;          ///< by node, N and Nm; at free DOFs, the only ones that act
  std::vector<NodeValues> reactions;      ///< by node, force of the structure on its support; 0 at free DOFs

  // Equilibrium iteration of a nonlinear run, after its last pass.
  int nIterations = 0;
  double dForce = 0.0;              ///< ||P||
  double dResidual = 0.0;           ///< ||R||
  double dIncrement = 0.0;          ///< ||du||
  double dPreviousIncrement = 0.0;  ///< ||du|| of the pass before
  DofPlace largestIncrement;        ///< where |du| is largest
  /// By element slot: axial force N of the present state over pi^2 E I / L^2 with the smaller I; tension
  /// positive, 0 for bars. Empty for a linear run.
  std::vector<double> eulerRatios;
  /// Largest angle, rad, by which the rule for the local axes turned a beam's section about the member itself while
  /// it moved, and its element from 1: its forces may be wrong by about this part. Sections with Iy = Iz do not
  /// count; 0 for a linear run.
  double dLargestTwist = 0.0;
  int nTwistedElement = 0;
};

struct ModalFindings : RunFindings {
  std::vector<double> omega;      ///< rad/s, ascending
  std::vector<double> residuals;  ///< |K phi - omega^2 M phi| / |K phi| by mode
  int nSubspace = 0;              ///< size of the Lanczos basis at the end
  int nIterations = 0;            ///< passes until the root-loss test accepted
  int nEquations = 0;             ///< free equations
  bool bShear = false;
  std::array<int, c_nLoadTypes> loadFlags = {};  ///< load combination that became mass
  std::array<double, c_nLoadTypes> loadFactors = {};
  /// Sturm count of the run's own root-loss test: so many modes lie below dCountedBelow (rad/s).
  std::optional<int> sturmCount;
  double dCountedBelow = 0.0;
  std::array<double, 3> totalMass = {};                ///< r^T M r, r = 1 at the free translations of X, Y, Z
  std::vector<std::array<double, 3>> effectiveMasses;  ///< (r^T M phi_i)^2 by mode
};

struct SpectrumFindings : RunFindings {
  // Entry i of each list belongs to mode i; with bVirtual the last one is the virtual mode.
  std::vector<double> omega;      ///< rad/s
  std::vector<double> gamma;      ///< participation factors along the earthquake
  std::vector<double> alpha;      ///< seismic influence coefficients
  std::vector<double> modalMass;  ///< phi^T M phi of the mode as read; 1 for the combination of the modal run
  std::vector<std::array<double, 3>> effectiveMasses;  ///< (r^T M phi_i)^2 along X, Y, Z
  std::array<double, 3> totalMass = {};                ///< r^T M r along X, Y, Z
  double dQuakeMass = 0.0;                             ///< r^T M r along the earthquake
  std::array<double, 3> direction = {};                ///< of the earthquake, unit length
  int nModes = 0;                                      ///< true modes combined
  bool bVirtual = false;
  int nCombination = 0;  ///< 0 SRSS, 1 CQC, 2 GRP
  double dDampRatio = 0.0;
  /// Support forces along X, Y, Z, summed mode by mode, then the sums combined, N.
  std::array<double, 3> baseShear = {};
  std::vector<NodeValues> displacements;  ///< combined, by node
};

struct HistoryFindings : RunFindings {
  int nMethod = 0;      ///< HistoryMethod
  int nAssumption = 0;  ///< 0 linear, 1 nonlinear
  bool bGroundMotion = false;
  int nSteps = 0;  ///< asked for
  int nStepsDone = 0;
  double dTimeStep = 0.0;     ///< s
  double dMassDamping = 0.0;  ///< C = dMassDamping M + dStiffnessDamping K
  double dStiffnessDamping = 0.0;
  std::vector<double> omega;    ///< rad/s, all modes of the mode file
  std::vector<double> damping;  ///< ratio that the Rayleigh pair gives each of them
  bool bRoughStart = false;     ///< of a nonlinear run: its static stage ended without convergence
  int nRoughSteps = 0;          ///< of a nonlinear run: steps whose iteration ended without convergence
  /// Largest size of HistorySet::baseShear along X, Y, Z, N; that of a nonlinear run contains its static loads.
  std::array<double, 3> baseShear = {};
  /// First value that is not finite: quantity (HistoryQuantity), step and number, both from 1. Step 0: none.
  int nBadQuantity = 0;
  int nBadStep = 0;
  int nBadNumber = 0;
};

}  // namespace skyframe
