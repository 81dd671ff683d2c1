#pragma once

#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/Reading.h"
#include "skyframe/tables/ResultTables.h"
#include "skyframe/tables/Table.h"
#include "skyframe/values/Findings.h"

// Parts that several tables have.
namespace skyframe::host {

inline constexpr double c_dMillimetres = 1.0e3;  // per m
inline constexpr double c_dNewtons = 1.0e3;      // per kN: divided by it, a file's decimals stay as they are
inline constexpr double c_dPercent = 100.0;
inline constexpr double c_dRoundOff = 1.0e-9;  // of the largest; the files have six digits

/// A column of as many rows without a number.
TableColumn& AddColumn(Table& table, const Words& heading, std::string_view strUnit,
                       ColumnKind kind = ColumnKind::Number);

/// Rows for nodes, with a column of their numbers. Indices.
[[nodiscard]] Table StartNodeTable(const Job& job, std::vector<int> nodes);
/// Likewise for elements.
[[nodiscard]] Table StartElementTable(std::vector<int> elements);
/// A column of the elements' sections.
void AddSections(Table& table, const Job& job);
/// 0, 1, ... n - 1.
[[nodiscard]] std::vector<int> CountUp(std::size_t nCount);

/// Largest and smallest of each column from nFirst to before nEnd; bAbsolute: the largest alone.
void AddExtremes(Table& table, std::size_t nFirst, std::size_t nEnd, bool bAbsolute);

/// What is no more than round-off beside the largest of its kind, translations or rotations, becomes 0.
[[nodiscard]] std::vector<NodeValues> WithoutRoundOff(std::vector<NodeValues> values);
/// Likewise in columns of numbers of one kind.
void DropRoundOff(Table& table, std::initializer_list<std::size_t> columns);

/// Whether numbers that a run found are those of the file: the run wrote it.
[[nodiscard]] bool AreOfFile(const std::vector<double>& found, const std::vector<double>& file);

[[nodiscard]] Reading<Table> RefuseTable(std::string_view strReason);

/// How displacements are shown.
struct DisplacementUnits {
  double dTranslation = c_dMillimetres;  ///< factor
  double dRotation = 1.0e3;
  std::string_view strTranslation = "mm";
  std::string_view strRotation = "mrad";
};

/// bRotations: there are rotations at rigid nodes.
[[nodiscard]] Table FormDisplacementTable(const Job& job, const std::vector<NodeValues>& u, bool bRotations,
                                          const DisplacementUnits& units = {});
/// Nodes of equal height; bMean: the values have signs.
[[nodiscard]] Table FormLevelTable(const Job& job, const std::vector<NodeValues>& u, bool bMean,
                                   const DisplacementUnits& units = {});
[[nodiscard]] Table FormModeTable(const ModeResultFile& file, const std::optional<ModalMasses>& masses);
[[nodiscard]] Table FormParticipationTable(const SpectrumResultFile& file);
[[nodiscard]] Table FormReactionTable(const Job& job, const StaticResultFile& file);
[[nodiscard]] Table FormReactionTable(const Job& job, const SpectrumResultFile& file);
[[nodiscard]] Table FormPeakTable(const Job& job, const HistorySet& histories);
[[nodiscard]] Table FormForcePeakTable(const Job& job, const HistorySet& histories);

/// Of both ends of each member, or with bExtremes the largest along each.
template <class File>
[[nodiscard]] Reading<Table> FormForceTable(const Job& job, const File& file, bool bExtremes);

}  // namespace skyframe::host
