#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/job/Job.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/Reading.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/tables/Table.h"
#include "skyframe/values/HistorySet.h"

namespace skyframe::host {

enum class TableKind { Modes, Displacements, Levels, Reactions, Forces, Extremes };

/// Their names on the command line.
inline constexpr std::array<std::string_view, 6> c_strTableKinds = {"modes",     "displacements", "levels",
                                                                    "reactions", "forces",        "extremes"};

[[nodiscard]] std::string_view GetName(ResultKind result);
[[nodiscard]] std::string_view GetName(TableKind kind);
/// The tables that a result fills.
[[nodiscard]] std::span<const TableKind> ListTables(ResultKind result);

/// Masses along X, Y, Z, kg.
struct ModalMasses {
  std::array<double, 3> total = {};                   ///< r^T M r
  std::vector<std::array<double, 3>> effective = {};  ///< (r^T M phi_i)^2 by mode
};
/// Those of the run of this session when it wrote the mode file; else from its shapes and the mass that its stamp tells
/// of, for which the job must be the one in the host records. Nothing without a stamp or when the model has changed.
[[nodiscard]] std::optional<ModalMasses> FindModalMasses(const Job& job, const std::string& strJobPath,
                                                         const ModeResultFile& file);

struct TableChoice {
  ResultKind result = ResultKind::Linear;
  TableKind kind = TableKind::Displacements;
  int nMode = 1;  ///< of displacements and levels of modes, from 1

  [[nodiscard]] bool IsOfOneMode() const { return result == ResultKind::Modes && kind != TableKind::Modes; }
  bool operator==(const TableChoice&) const = default;
};

// The table of a choice, which its result must have; nothing and the reason when the result belongs to another model.
// Units kN, kN·m, mm, kg, s. What the files have otherwise:
// - reactions are, as in the files, forces of the structure on its supports;
// - what is no more than round-off beside the other values is 0;
// - a mode's largest translation is 1;
// - base shear is that of the run of this session when it wrote the file.

[[nodiscard]] Reading<Table> FormTable(const Job& job, const StaticResultFile& file, TableKind kind);
/// masses: for the table of modes.
[[nodiscard]] Reading<Table> FormTable(const Job& job, const ModeResultFile& file, TableKind kind, int nMode,
                                       const std::optional<ModalMasses>& masses);
[[nodiscard]] Reading<Table> FormTable(const Job& job, const SpectrumResultFile& file, TableKind kind);
[[nodiscard]] Reading<Table> FormTable(const Job& job, const HistorySet& histories, TableKind kind);
/// From the file beside the job, which must be the one in the host records.
[[nodiscard]] Reading<Table> ReadTable(const Job& job, const std::string& strJobPath, const TableChoice& choice);

}  // namespace skyframe::host
