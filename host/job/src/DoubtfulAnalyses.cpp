#include "DoubtfulAnalyses.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <set>

#include "JobReader.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr int c_nDofZ = 2;
constexpr int c_nRectangular = 1;
constexpr double c_dSameMass = 1e-9;
constexpr int c_nOblique = 3;  ///< place behind X, Y, Z among the record files

/// Seconds.
struct TimeAxis {
  double dStep;
  double dDuration;

  /// Whole steps that fit into a time; none for a step that is no step.
  [[nodiscard]] bool HasStepIn(double dTime) const { return dStep > 0.0 && dTime / dStep >= 1.0; }
};

template <class Part>
TimeAxis GetAxis(const Part& part) {
  const Part whole = WithDefaults(part);
  return {*whole.dTimeStep, *whole.dDuration};
}

/// Nothing when no dialog with a time axis is opened: the module's own one is sound.
std::optional<TimeAxis> FindAxis(const NewmarkJob& analysis) {
  if (analysis.earthquake) return GetAxis(*analysis.earthquake);
  if (analysis.impulse) return GetAxis(*analysis.impulse);
  return analysis.generalLoad ? std::optional(GetAxis(*analysis.generalLoad)) : std::nullopt;
}

/// What the module finds in an acceleration record: it reads up to the first word that is no number.
struct RecordText {
  bool bOpened = false;
  bool bWhole = false;
  std::size_t nValues = 0;
  double dLargest = 0.0;
};

RecordText ReadRecord(const std::string& strPath) {
  RecordText record;
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return record;
  record.bOpened = true;
  while (const std::optional<double> value = ReadNumber(*pStream)) {
    ++record.nValues;
    record.dLargest = std::max(record.dLargest, std::abs(*value));
  }
  record.bWhole = pStream->eof();
  return record;
}

/// Nothing when it is sound.
std::string DescribeRecord(const RecordText& record, const std::string& strFile) {
  if (!record.bOpened) return Say(texts::c_recordUnread, {strFile});
  if (record.nValues == 0) return Say(record.bWhole ? texts::c_recordEmpty : texts::c_recordHeading, {strFile});
  if (!record.bWhole) return Say(texts::c_recordPart, {strFile, std::to_string(record.nValues)});
  return record.dLargest == 0.0 ? Say(texts::c_recordZeros, {strFile}) : "";
}

class CDoubtfulAnalyses {
 public:
  CDoubtfulAnalyses(const Job& job, const std::string& strJobPath) : m_job(job), m_strJobPath(strJobPath) {
    for (const JobLoad& load : job.loads) m_casesInUse.insert(load.nCase);
  }

  std::vector<JobProblem> Find() {
    for (std::size_t k = 0; k < m_job.analyses.size(); ++k) {
      m_strPlace = AppendPointer("/analyses", k);
      std::visit([this](const auto& analysis) { Check(analysis); }, m_job.analyses[k]);
    }
    return std::move(m_found);
  }

 private:
  void Check(const StaticJob& analysis) {
    if (analysis.combination.empty()) Warn("no-case", "", Say(texts::c_noCase));
    CheckCases(analysis.combination);
    CheckInclinedSupports();
  }

  void Check(const ModalJob& analysis) {
    CheckMassLoads(analysis.combination);
    m_modalMass = FormNodalMasses(analysis.combination);
  }
  void Check(const SpectrumJob& analysis) { CheckMassLoads(analysis.combination); }

  void Check(const WilsonJob& analysis) {
    const std::string_view strIgnored = Say(texts::c_wilsonIgnores);
    if (!analysis.combination.empty()) Warn("wilson-ignores", "combination", strIgnored);
    const auto IsSet = [](const std::optional<double>& dPeak) { return dPeak.has_value(); };
    if (std::ranges::any_of(analysis.peaks, IsSet)) Warn("wilson-ignores", "peaks", strIgnored);
    if (analysis.bNonlinear.value_or(false)) Warn("wilson-ignores", "nonlinear", strIgnored);
    CheckTimeStep(GetAxis(analysis));
    CheckSameMasses(JobCombination(), texts::c_wilsonMass);
    CheckInclinedSupports();
  }

  void Check(const NewmarkJob& given) {
    const NewmarkJob analysis = WithDefaults(given);
    if (analysis.HasGroundMotion()) {
      CheckGroundMotion(analysis);
    } else {
      CheckNodalForces(analysis);
    }
    const bool bSwapped = given.generalLoad && !(given.generalLoad->dTimeStep && given.generalLoad->dDuration);
    if (bSwapped) {
      const TimeAxis axis = GetAxis(GeneralLoadJob());
      Warn("general-load", "general_load",
           Say(texts::c_generalLoad, {FormatNumber(axis.dStep), FormatNumber(axis.dDuration)}));
    } else if (const auto axis = FindAxis(analysis)) {
      CheckTimeStep(*axis);
    }
    CheckMassLoads(analysis.combination);
    CheckSameMasses(analysis.combination, texts::c_otherMass);
    CheckInclinedSupports();
  }

  void CheckNodalForces(const NewmarkJob& analysis) {
    if (*analysis.bNonlinear) {
      Warn("nonlinear-forces", "nonlinear", Say(texts::c_nonlinearForces));
    }
    if (*analysis.bFromFile) return;
    const ImpulseLoadJob load = WithDefaults(analysis.impulse.value_or(ImpulseLoadJob()));
    const auto HasForce = [](const JobImpulse& impulse) { return impulse.dPeak != 0.0; };
    if (std::none_of(load.impulses.begin(), load.impulses.end(), HasForce)) {
      Warn("no-impulse", "", Say(texts::c_noImpulse));
      return;
    }
    const bool bRectangular = load.nShape == c_nRectangular;
    const double dTime = *(bRectangular ? load.dUnloadTime : load.dPeakTime);
    if (TimeAxis{*load.dTimeStep, *load.dDuration}.HasStepIn(dTime)) return;
    const std::string strKey = bRectangular ? "unload_time" : "peak_time";
    Warn("impulse-time", "impulse", Say(texts::c_impulseTime, {strKey, FormatNumber(dTime)}));
  }

  void CheckGroundMotion(const NewmarkJob& analysis) {
    const EarthquakeJob quake = analysis.earthquake.value_or(EarthquakeJob());
    const auto nDirections = std::count(quake.directions.begin(), quake.directions.end(), true);
    const bool bOblique = quake.nMode == 1;
    if (!bOblique && nDirections == 0) {
      Warn("no-direction", "earthquake", Say(texts::c_noDirection));
      return;
    }
    const auto itFirst = std::find(quake.directions.begin(), quake.directions.end(), true);
    const auto nRecord =
        bOblique ? std::size_t{c_nOblique} : static_cast<std::size_t>(itFirst - quake.directions.begin());
    if (!bOblique && nDirections > 1) {
      Warn("one-direction", "earthquake", Say(texts::c_oneDirection, {c_strPeaks[nRecord]}));
    }
    if (!*analysis.bFromFile || m_strJobPath.empty()) return;
    const std::string strFile = m_strJobPath + std::string(suffix::c_strAcceleration[nRecord]);
    const std::string strReason = DescribeRecord(ReadRecord(strFile), EscapeControls(strFile));
    if (!strReason.empty()) Warn("record", "", strReason);
  }

  void CheckTimeStep(const TimeAxis& axis) {
    if (axis.HasStepIn(axis.dDuration)) return;
    Warn("time-step", "", Say(texts::c_timeStep, {FormatNumber(axis.dStep), FormatNumber(axis.dDuration)}));
  }

  /// False when no case of the combination has a load.
  bool CheckCases(const JobCombination& combination) {
    bool bAny = false;
    for (const auto& [nCase, dFactor] : combination) {
      const bool bInUse = m_casesInUse.contains(nCase);
      bAny = bAny || bInUse;
      if (!bInUse) Warn("empty-case", "combination", Say(texts::c_emptyCase, {std::to_string(nCase)}));
    }
    return bAny;
  }

  void CheckMassLoads(const JobCombination& combination) {
    if (!CheckCases(combination)) return;
    const auto IsMass = [&combination](const JobLoad& load) {
      const auto it = combination.find(load.nCase);
      return it != combination.end() && load.nDirection == c_nDofZ && load.dValue * it->second > 0.0;
    };
    if (std::any_of(m_job.loads.begin(), m_job.loads.end(), IsMass)) return;
    Warn("no-mass-load", "combination", Say(texts::c_noMassLoad));
  }

  /// kN by node: what of the combined loads acts upwards.
  [[nodiscard]] std::vector<double> FormNodalMasses(const JobCombination& combination) const {
    std::vector<double> weights(m_job.nodes.size());
    for (const JobLoad& load : m_job.loads) {
      const auto it = combination.find(load.nCase);
      if (it == combination.end() || load.nDirection != c_nDofZ) continue;
      weights[static_cast<std::size_t>(load.nNode) - 1] += load.dValue * it->second;
    }
    for (double& dWeight : weights) dWeight = std::max(dWeight, 0.0);
    return weights;
  }

  /// The frequencies of the modal analysis before give the damping of a history.
  void CheckSameMasses(const JobCombination& combination, const Words& reason) {
    const std::vector<double> own = FormNodalMasses(combination);
    const auto IsSame = [](double d, double dOther) {
      return std::abs(d - dOther) <= c_dSameMass * std::max(d, dOther);
    };
    if (!m_modalMass || std::ranges::equal(own, *m_modalMass, IsSame)) return;
    const auto Sum = [](const std::vector<double>& weights) {
      return FormatNumber(std::accumulate(weights.begin(), weights.end(), 0.0));
    };
    Warn("other-masses", "", Say(reason, {Sum(own), Sum(*m_modalMass)}));
  }

  void CheckInclinedSupports() {
    if (m_job.inclinedSupports.empty()) return;
    Warn("inclined-support", "", Say(texts::c_inclinedSupport));
  }

  void Warn(std::string_view strName, std::string_view strKey, std::string_view strReason) {
    m_found.push_back({strKey.empty() ? m_strPlace : AppendPointer(m_strPlace, strKey), std::string(strReason),
                       std::string(strName)});
  }

  const Job& m_job;
  const std::string& m_strJobPath;
  std::set<int> m_casesInUse;
  std::optional<std::vector<double>> m_modalMass;  ///< of the last modal analysis, as FormNodalMasses
  std::string m_strPlace;                          ///< of the analysis at hand
  std::vector<JobProblem> m_found;
};

}  // namespace

std::vector<JobProblem> FindDoubtfulAnalyses(const Job& job, const std::string& strJobPath) {
  return CDoubtfulAnalyses(job, strJobPath).Find();
}

}  // namespace skyframe::host
