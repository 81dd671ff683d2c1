#pragma once

#include "skyframe/values/Export.h"

namespace skyframe {

/// The module's five entry points. Each shows its parameter dialog, builds the model from the host
/// records (skyframe/hostdata/HostData.h), runs one analysis and writes text files named as the job
/// path plus a suffix. Called on the host's user-interface thread; no exception leaves them.
class SKYFRAME_API CModeConnect {
 public:
  /// Modal analysis.
  static void OnMode();
  /// Response-spectrum analysis of the modes in the job's mode file. 0 = cancelled, 1 = otherwise.
  static int OnAnsysSpectrum();
  /// Time history by direct integration. 0 = cancelled, 1 = otherwise.
  static int OnTimeHistoryAnalysis();
  /// Viewer of the last time history.
  static void OnTimeHistoryRes();
  /// Static analysis, linear or geometrically nonlinear.
  static void OnStaticNonlinearSol();
};

}  // namespace skyframe
