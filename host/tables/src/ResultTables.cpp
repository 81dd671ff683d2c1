#include "skyframe/tables/ResultTables.h"

#include <algorithm>
#include <cmath>

#include "TableParts.h"
#include "skyframe/results/Histories.h"
#include "skyframe/results/HistoryResultFile.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Kind = TableKind;

constexpr std::array c_staticTables = {Kind::Displacements, Kind::Levels, Kind::Reactions, Kind::Forces,
                                       Kind::Extremes};
constexpr std::array c_modeTables = {Kind::Modes, Kind::Displacements, Kind::Levels};
constexpr std::array c_spectrumTables = {Kind::Modes,     Kind::Displacements, Kind::Levels,
                                         Kind::Reactions, Kind::Forces,        Kind::Extremes};
constexpr std::array c_historyTables = {Kind::Displacements, Kind::Extremes};

/// Largest translation along an axis 1, and the rotations that go with it.
DisplacementUnits FormShapeScale(const std::vector<NodeValues>& shape) {
  double dLargest = 0.0;
  for (const NodeValues& v : shape) {
    for (std::size_t d = 0; d < 3; ++d) dLargest = std::max(dLargest, std::abs(v[d]));
  }
  const double dScale = dLargest > 0.0 ? 1.0 / dLargest : 1.0;
  return {dScale, dScale, "", "1/m"};
}

/// The displacements with their extremes below.
Table FormNodeTable(const Job& job, const std::vector<NodeValues>& u, bool bCombined) {
  Table table = FormDisplacementTable(job, u, bCombined);
  AddExtremes(table, 1, table.columns.size(), bCombined);
  if (bCombined) table.note = texts::c_combined;
  return table;
}

/// Tables of displacements and forces; combined ones have no sign, and the file has the rotations with them.
template <class File>
Reading<Table> FormFileTable(const Job& job, const File& file, TableKind kind, bool bCombined) {
  switch (kind) {
    case Kind::Levels:
      return {FormLevelTable(job, WithoutRoundOff(file.displacements), !bCombined)};
    case Kind::Reactions:
      return {FormReactionTable(job, file)};
    case Kind::Forces:
    case Kind::Extremes:
      return FormForceTable(job, file, kind == Kind::Extremes);
    default:
      return {FormNodeTable(job, WithoutRoundOff(file.displacements), bCombined)};
  }
}

/// The table of a file that a reader has read.
template <class File, class Form>
Reading<Table> FormRead(const Reading<File>& file, Form form) {
  return file ? form(*file) : RefuseTable(file.strError);
}

Reading<HistorySet> ReadHistories(const Job& job, const std::string& strPath) {
  const HistoryModel model = {static_cast<int>(job.nodes.size()), static_cast<int>(job.elements.size())};
  const Reading<HistoryResultFile> file = ReadHistoryFile(strPath, model);
  Reading<HistorySet> histories;
  if (file) histories.emplace(FormHistorySet(*file));
  histories.strError = file.strError;
  return histories;
}

}  // namespace

std::string_view GetName(ResultKind result) { return Say(texts::c_results[static_cast<std::size_t>(result)]); }

std::string_view GetName(TableKind kind) { return Say(texts::c_kinds[static_cast<std::size_t>(kind)]); }

std::span<const TableKind> ListTables(ResultKind result) {
  switch (result) {
    case ResultKind::Modes:
      return c_modeTables;
    case ResultKind::Spectrum:
      return c_spectrumTables;
    case ResultKind::History:
      return c_historyTables;
    default:
      return c_staticTables;
  }
}

Reading<Table> FormTable(const Job& job, const StaticResultFile& file, TableKind kind) {
  return FormFileTable(job, file, kind, false);
}

Reading<Table> FormTable(const Job& job, const ModeResultFile& file, TableKind kind, int nMode,
                         const std::optional<ModalMasses>& masses) {
  if (kind == Kind::Modes) return {FormModeTable(file, masses)};
  if (nMode < 1 || nMode > std::ssize(file.shapes)) return RefuseTable(Say(texts::c_noMode, {std::to_string(nMode)}));
  const std::vector<NodeValues> shape = WithoutRoundOff(file.shapes[static_cast<std::size_t>(nMode - 1)]);
  const DisplacementUnits units = FormShapeScale(shape);
  if (kind == Kind::Levels) return {FormLevelTable(job, shape, true, units)};
  Table table = FormDisplacementTable(job, shape, true, units);
  table.note = texts::c_shapeScale;
  return {std::move(table)};
}

Reading<Table> FormTable(const Job& job, const SpectrumResultFile& file, TableKind kind) {
  return kind == Kind::Modes ? Reading<Table>(FormParticipationTable(file)) : FormFileTable(job, file, kind, true);
}

Reading<Table> FormTable(const Job& job, const HistorySet& histories, TableKind kind) {
  return {kind == Kind::Extremes ? FormForcePeakTable(job, histories) : FormPeakTable(job, histories)};
}

Reading<Table> ReadTable(const Job& job, const std::string& strJobPath, const TableChoice& choice) {
  const std::string strPath = strJobPath + std::string(GetSuffix(choice.result));
  const auto form = [&](const auto& file) { return FormTable(job, file, choice.kind); };
  switch (choice.result) {
    case ResultKind::Modes:
      return FormRead(ReadModeResultFile(strPath, job.nodes), [&](const ModeResultFile& file) {
        const bool bMasses = choice.kind == Kind::Modes;
        return FormTable(job, file, choice.kind, choice.nMode,
                         bMasses ? FindModalMasses(job, strJobPath, file) : std::nullopt);
      });
    case ResultKind::Spectrum:
      return FormRead(ReadSpectrumResultFile(strPath, job.nodes), form);
    case ResultKind::History:
      return FormRead(ReadHistories(job, strPath), form);
    default:
      return FormRead(ReadStaticResultFile(strPath, job.nodes.size()), form);
  }
}

}  // namespace skyframe::host
