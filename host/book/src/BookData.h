#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "skyframe/checks/CheckList.h"
#include "skyframe/checks/HistoryResponse.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/run/Stamps.h"

namespace skyframe::host {

/// A result file of the job, the analysis behind it and the run that wrote it.
template <class Content, class Parameters>
struct BookResult {
  std::string strFile;                   ///< name without directory
  bool bThere = false;                   ///< there is such a file
  Reading<Content> content;              ///< nothing: not there, or strError tells why
  std::optional<Parameters> parameters;  ///< of the run when it is known, else the job's; with defaults
  const ResultStamp* pStamp = nullptr;   ///< null: the run is not known
  bool bOutdated = false;                ///< from another model
  bool bAsked = false;                   ///< the job has such an analysis
  bool bOwnParameters = false;           ///< the run had others than the job's analyses
};

using StaticResult = BookResult<StaticResultFile, StaticJob>;
using ModalResult = BookResult<ModeResultFile, ModalJob>;
using SpectrumResult = BookResult<SpectrumResultFile, SpectrumJob>;
using HistoryResult = BookResult<HistoryResultFile, NewmarkJob>;

/// One response spectrum: what follows from the modes of the mode file, with the forces of their stiffness and so with
/// the mass of the modal run; the participation factors are those of the spectrum's own mass.
struct SpectrumChapter {
  SpectrumJob job;  ///< with defaults
  SpectrumSite site;
  DesignSpectrumValue curve;  ///< Tg and the highest value
  Doubt doubt = Doubt::None;
  ModalBasis basis;       ///< the modes combined; none when there are not so many
  bool bVirtual = false;  ///< the last of them is the virtual mode
  ModalLoads loads;
  Vector3 baseShear = {};  ///< combined, N
  std::optional<std::array<double, 2>> horizontal;
  std::vector<StoreyResponse> storeys;  ///< along the horizontal direction; none without storeys
  /// Largest difference of a displacement from the result file's, part of the largest one; nothing when the file is of
  /// another analysis.
  std::optional<double> deviation;

  [[nodiscard]] bool IsFormed() const { return basis.GetCount() > 0; }
};

/// The time history and what follows from it; horizontal ground motion alone.
struct HistoryChapter {
  Vector3 direction = {};
  double dPeak = 0.0;  ///< asked for, m/s2
  std::optional<std::array<double, 2>> horizontal;
  Doubt doubt = Doubt::None;
  std::vector<double> shear;         ///< along it by step, N; empty for a nonlinear run, or without modes
  bool bOwnShear = false;            ///< formed by the run itself, not fitted to the modes
  std::vector<StoreyPeaks> storeys;  ///< likewise; none without storeys
};

/// A history that the result viewer wrote.
struct HistoryExtract {
  std::string strFile;  ///< name without directory
  HistoryChoice choice;
  Reading<SingleHistory> history;
};

/// A time history that leaves no file of all its histories.
struct ExtractedHistory {
  JobAnalysis analysis;  ///< of the run when it is known
  const ResultStamp* pStamp = nullptr;
  bool bOutdated = false;
  std::vector<HistoryExtract> extracts;
};

/// All that the report tells, collected once.
struct BookData {
  const Job& job;
  std::string strJobPath;
  std::vector<JobProblem> warnings;  ///< of the job file
  CStamps stamps;

  StaticResult linear = {};
  StaticResult nonlinear = {};
  ModalResult modal = {};
  SpectrumResult spectrum = {};
  HistoryResult history = {};

  std::optional<StoreyModel> storeys = {};
  std::optional<ModalBasis> basis = {};  ///< all modes of the mode file with the mass of the modal run
  double dOwnMass = 0.0;                 ///< of the members alone, kg
  std::vector<MotionShares> shares = {};
  FirstModes first = {};
  std::optional<int> modesBelow = {};  ///< by a Sturm count below dCountedBelow
  double dCountedBelow = 0.0;          ///< rad/s
  std::vector<SpectrumChapter> spectra = {};
  std::optional<HistoryChapter> historyChapter = {};
  std::vector<ExtractedHistory> extracted = {};
  std::vector<Check> checks = {};
  std::string strMessages = {};  ///< of the module while the data were collected

  [[nodiscard]] std::string GetTitle() const;
  /// First period of translation, else the first of all, s; 0 without modes.
  [[nodiscard]] double GetFirstPeriod() const;
};

/// Nothing of it needs a run; the host records hold the job afterwards.
[[nodiscard]] BookData CollectBook(const Job& job, const std::string& strJobPath, std::vector<JobProblem> warnings);

}  // namespace skyframe::host
