#include "skyframe/compare/Compare.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "CompareShapes.h"
#include "LargestDifference.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nTranslations = 3;
constexpr double c_dStaticDecimal = 1.0e-3;
constexpr std::string_view c_strDiagramNames[] = {"Mx", "My", "Mz", "Qy", "Qz", "Fy", "Fz"};
constexpr std::string_view c_strStationForces[] = {"N", "Qy", "Qz", "Mx", "My", "Mz"};

using Differences = std::vector<Difference>;

template <class T>
void Rearrange(std::vector<T>& values, const std::vector<std::size_t>& places) {
  std::vector<T> arranged;
  arranged.reserve(values.size());
  for (const std::size_t n : places) arranged.push_back(std::move(values[n]));
  values = std::move(arranged);
}

/// Of all six components, or of the translations alone.
class CNodeDifferences {
 public:
  CNodeDifferences(const CLargestDifference& translations, const CLargestDifference& rotations)
      : m_translations(translations), m_rotations(rotations) {}

  void Add(const NodeValues& first, const NodeValues& second, int nNode) {
    for (std::size_t d = 0; d < first.size(); ++d) {
      (d < c_nTranslations ? m_translations : m_rotations)
          .Add(first[d], second[d], {.nNode = nNode, .strComponent = c_strDirections[d]});
    }
  }
  void AddTo(Differences& list, double dTolerance) const {
    list.push_back(m_translations.Conclude(dTolerance));
    list.push_back(m_rotations.Conclude(dTolerance));
  }

 private:
  CLargestDifference m_translations;
  CLargestDifference m_rotations;
};

class CComparison {
 public:
  CComparison(const ResultSet& first, const ResultSet& second, double dTolerance)
      : m_first(first), m_second(second), m_dTolerance(dTolerance) {}

  Comparison Run() {
    m_found.strError = MatchModels();
    if (!m_found.strError.empty()) return std::move(m_found);
    CompareStatic(ResultKind::Linear);
    CompareStatic(ResultKind::Nonlinear);
    CompareModal();
    CompareSpectrum();
    CompareHistory();
    const bool bNothing = std::ranges::all_of(
        m_found.kinds, [](const KindComparison& kind) { return kind.differences.empty() && kind.strError.empty(); });
    if (bNothing) m_found.strError = Say(texts::c_nothing);
    return std::move(m_found);
  }

 private:
  /// Finds the nodes of the first in the second. The reason why the models do not belong together, or nothing.
  std::string MatchModels() {
    const auto refuse = [](const Words& words, std::size_t nFirst, std::size_t nSecond) {
      return Say(words, {std::to_string(nFirst), std::to_string(nSecond)});
    };
    const std::vector<JobNode>& others = m_second.job.nodes;
    if (m_first.job.nodes.size() != others.size()) {
      return refuse(texts::c_nodeCounts, m_first.job.nodes.size(), others.size());
    }
    if (m_first.job.elements.size() != m_second.job.elements.size()) {
      return refuse(texts::c_elementCounts, m_first.job.elements.size(), m_second.job.elements.size());
    }
    std::unordered_map<int, std::size_t> placeOfId;
    for (std::size_t i = 0; i < others.size(); ++i) placeOfId[others[i].nId] = i;
    for (const JobNode& node : m_first.job.nodes) {
      const auto it = placeOfId.find(node.nId);
      if (it == placeOfId.end()) return Say(texts::c_noNode, {std::to_string(node.nId)});
      m_places.push_back(it->second);
    }
    return {};
  }

  /// Reads the files of both and compares them by a function of their contents, which fills in the rest.
  template <class Read, class Compare>
  void CompareFiles(ResultKind kind, Read read, Compare compare) {
    const std::string strFirst = m_first.strJobPath + std::string(GetSuffix(kind));
    const std::string strSecond = m_second.strJobPath + std::string(GetSuffix(kind));
    const bool bFirst = GetPlatform().OpenForReading(strFirst) != nullptr;
    const bool bSecond = GetPlatform().OpenForReading(strSecond) != nullptr;
    if (!bFirst && !bSecond) return;
    KindComparison& result = m_found.kinds.emplace_back();
    result.kind = GetAnalysisName(kind);
    if (!bFirst || !bSecond) {
      result.strNote = Say(bFirst ? texts::c_onlyFirst : texts::c_onlySecond);
      return;
    }
    auto first = read(strFirst, m_first.job);
    auto second = read(strSecond, m_second.job);
    if (!first || !second) {
      result.strError = first ? strSecond + ": " + second.strError : strFirst + ": " + first.strError;
      return;
    }
    compare(*first, *second, result);
    if (!result.strError.empty()) result.differences.clear();
    std::erase_if(result.differences,
                  [](const Difference& difference) { return difference.dLargest == 0.0 && !difference.bAbove; });
  }

  void CompareStatic(ResultKind kind) {
    const auto read = [](const std::string& strPath, const Job& job) {
      return ReadStaticResultFile(strPath, job.nodes.size());
    };
    CompareFiles(kind, read, [this](StaticResultFile& first, StaticResultFile& second, KindComparison& to) {
      Rearrange(second.displacements, m_places);
      CompareDisplacements(first.displacements, second.displacements, to.differences);
      CompareReactions(first, second, to);
      CompareMembers(first, second, to);
    });
  }

  void CompareDisplacements(const std::vector<NodeValues>& first, const std::vector<NodeValues>& second,
                            Differences& to) const {
    CNodeDifferences nodes({texts::c_displacement, "m"}, {texts::c_rotation, "rad"});
    for (std::size_t i = 0; i < first.size(); ++i) nodes.Add(first[i], second[i], GetId(i));
    nodes.AddTo(to, m_dTolerance);
  }

  void CompareReactions(const StaticResultFile& first, const StaticResultFile& second, KindComparison& to) const {
    CNodeDifferences nodes({texts::c_reactionForce, "N", c_dStaticDecimal},
                           {texts::c_reactionMoment, "N·m", c_dStaticDecimal});
    const auto getValues = [](const StaticSupport* pSupport) {
      NodeValues values = {};
      for (std::size_t d = 0; pSupport != nullptr && d < values.size(); ++d) {
        values[d] = pSupport->forces[d].value_or(0.0);
      }
      return values;
    };
    ForEachSupport(first.supports, second.supports, [&](const StaticSupport* p, const StaticSupport* q, int nNode) {
      nodes.Add(getValues(p), getValues(q), nNode);
    });
    nodes.AddTo(to.differences, m_dTolerance);
  }

  /// Supports by node; null where one model has none. visit(first, second, id)
  template <class Support, class Visit>
  void ForEachSupport(const std::vector<Support>& first, const std::vector<Support>& second, Visit visit) const {
    const auto find = [](const std::vector<Support>& supports, std::size_t nPlace) {
      const auto it = std::ranges::find(supports, static_cast<int>(nPlace) + 1, &Support::nNode);
      return it == supports.end() ? nullptr : &*it;
    };
    for (std::size_t i = 0; i < m_places.size(); ++i) {
      const Support* const p = find(first, i);
      const Support* const q = find(second, m_places[i]);
      if (p != nullptr || q != nullptr) visit(p, q, GetId(i));
    }
  }

  void CompareMembers(const StaticResultFile& first, const StaticResultFile& second, KindComparison& to) const {
    CLargestDifference axial(texts::c_axialForce, "N", c_dStaticDecimal);
    CLargestDifference shear(texts::c_shearForce, "N", c_dStaticDecimal);
    CLargestDifference moment(texts::c_moment, "N·m", c_dStaticDecimal);
    CLargestDifference deflection(texts::c_deflection, "m", c_dStaticDecimal);
    if (first.members.size() != second.members.size()) return RefuseParts(to);
    for (std::size_t k = 0; k < first.members.size(); ++k) {
      const StaticMember& one = first.members[k];
      const StaticMember& other = second.members[k];
      if (one.nElement != other.nElement || one.diagrams.size() != other.diagrams.size()) return RefuseParts(to);
      axial.Add(one.dAxialForce, other.dAxialForce, {.nElement = one.nElement, .strComponent = "N"});
      for (std::size_t q = 0; q < one.diagrams.size(); ++q) {
        CLargestDifference& largest = q < c_nQy ? moment : q < c_nFy ? shear : deflection;
        for (std::size_t p = 0; p < c_nDiagramStations; ++p) {
          largest.Add(
              one.diagrams[q][p], other.diagrams[q][p],
              {.nElement = one.nElement, .strComponent = c_strDiagramNames[q], .nStation = static_cast<int>(p) + 1});
        }
      }
    }
    for (const CLargestDifference* p : {&axial, &shear, &moment, &deflection}) {
      to.differences.push_back(p->Conclude(m_dTolerance));
    }
  }

  void CompareModal() {
    const auto read = [](const std::string& strPath, const Job& job) { return ReadModeResultFile(strPath, job.nodes); };
    const auto compare = [this](ModeResultFile& first, ModeResultFile& second, KindComparison& to) {
      for (std::vector<NodeValues>& shape : second.shapes) Rearrange(shape, m_places);
      to.differences = CompareModes(first, second, m_first.job.nodes, m_dTolerance);
      if (first.omega.size() == second.omega.size()) return;
      to.strNote = Say(texts::c_modeCounts, {std::to_string(first.omega.size()), std::to_string(second.omega.size())});
    };
    CompareFiles(ResultKind::Modes, read, compare);
  }

  void CompareSpectrum() {
    const auto read = [](const std::string& strPath, const Job& job) {
      return ReadSpectrumResultFile(strPath, job.nodes);
    };
    const auto compare = [this](SpectrumResultFile& first, SpectrumResultFile& second, KindComparison& to) {
      Rearrange(second.displacements, m_places);
      CLargestDifference mass(texts::c_mass, "kg");
      mass.Add(first.dComputedMass, second.dComputedMass, {});
      mass.Add(first.dTotalMass, second.dTotalMass, {});
      to.differences.push_back(mass.Conclude(m_dTolerance));
      CompareDisplacements(first.displacements, second.displacements, to.differences);
      CNodeDifferences reactions({texts::c_reactionForce, "N"}, {texts::c_reactionMoment, "N·m"});
      ForEachSupport(
          first.supports, second.supports, [&](const SpectrumSupport* p, const SpectrumSupport* q, int nNode) {
            reactions.Add(p == nullptr ? NodeValues{} : p->forces, q == nullptr ? NodeValues{} : q->forces, nNode);
          });
      reactions.AddTo(to.differences, m_dTolerance);
      CompareMembers(first, second, to);
    };
    CompareFiles(ResultKind::Spectrum, read, compare);
  }

  void CompareMembers(const SpectrumResultFile& first, const SpectrumResultFile& second, KindComparison& to) const {
    CLargestDifference axial(texts::c_axialForce, "N");
    CLargestDifference shear(texts::c_shearForce, "N");
    CLargestDifference moment(texts::c_moment, "N·m");
    if (first.members.size() != second.members.size()) return RefuseParts(to);
    for (std::size_t k = 0; k < first.members.size(); ++k) {
      const SpectrumMember& one = first.members[k];
      const SpectrumMember& other = second.members[k];
      if (one.nElement != other.nElement || one.stations.size() != other.stations.size()) return RefuseParts(to);
      for (std::size_t p = 0; p < one.stations.size(); ++p) {
        for (std::size_t q = 0; q < one.stations[p].size(); ++q) {
          (q == 0                ? axial
           : q < c_nTranslations ? shear
                                 : moment)
              .Add(one.stations[p][q], other.stations[p][q],
                   {.nElement = one.nElement,
                    .strComponent = c_strStationForces[q],
                    .nStation = static_cast<int>(p) + 1});
        }
      }
    }
    for (const CLargestDifference* p : {&axial, &shear, &moment}) to.differences.push_back(p->Conclude(m_dTolerance));
  }

  void CompareHistory() {
    const auto read = [](const std::string& strPath, const Job& job) {
      return ReadHistoryFile(strPath, {static_cast<int>(job.nodes.size()), static_cast<int>(job.elements.size())});
    };
    const auto compare = [this](HistoryResultFile& first, HistoryResultFile& second, KindComparison& to) {
      if (first.nSteps != second.nSteps || first.dTimeStep != second.dTimeStep) {
        to.strError = Say(texts::c_otherTimes, {std::to_string(first.nSteps), FormatNumber(first.dTimeStep),
                                                std::to_string(second.nSteps), FormatNumber(second.dTimeStep)});
        return;
      }
      Rearrange(second.displacements, m_places);
      CompareHistories(first, second, to.differences);
    };
    CompareFiles(ResultKind::History, read, compare);
  }

  void CompareHistories(const HistoryResultFile& first, const HistoryResultFile& second, Differences& to) const {
    CLargestDifference displacement(texts::c_displacement, "m");
    CLargestDifference axial(texts::c_axialForce, "N");
    const auto add = [&](CLargestDifference& largest, const std::vector<double>& one, const std::vector<double>& other,
                         ValuePlace place) {
      for (std::size_t k = 0; k < one.size(); ++k) {
        place.dTime = static_cast<double>(k + 1) * first.dTimeStep;
        largest.Add(one[k], other[k], place);
      }
    };
    for (std::size_t i = 0; i < first.displacements.size(); ++i) {
      for (std::size_t d = 0; d < c_nTranslations; ++d) {
        add(displacement, first.displacements[i][d], second.displacements[i][d],
            {.nNode = GetId(i), .strComponent = c_strDirections[d]});
      }
    }
    for (std::size_t k = 0; k < first.forces.size(); ++k) {
      add(axial, first.forces[k], second.forces[k], {.nElement = static_cast<int>(k) + 1, .strComponent = "N"});
    }
    to = {displacement.Conclude(m_dTolerance), axial.Conclude(m_dTolerance)};
  }

  static void RefuseParts(KindComparison& to) { to.strError = Say(texts::c_otherMembers); }

  [[nodiscard]] int GetId(std::size_t nPlace) const { return m_first.job.nodes[nPlace].nId; }

  const ResultSet& m_first;
  const ResultSet& m_second;
  double m_dTolerance;
  std::vector<std::size_t> m_places;  ///< in the second, by node of the first
  Comparison m_found;
};

}  // namespace

bool Comparison::IsAbove() const {
  return std::ranges::any_of(
      kinds, [](const KindComparison& kind) { return std::ranges::any_of(kind.differences, &Difference::bAbove); });
}

bool Comparison::HasError() const {
  return !strError.empty() || std::ranges::any_of(kinds, [](const KindComparison& k) { return !k.strError.empty(); });
}

Comparison CompareResults(const ResultSet& first, const ResultSet& second, double dTolerance) {
  return CComparison(first, second, dTolerance).Run();
}

}  // namespace skyframe::host
