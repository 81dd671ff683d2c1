#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/tables/ResultTables.h"

namespace skyframe::host {

namespace {

bool IsThere(const std::string& strJobPath, TableResult result) {
  std::error_code error;
  return std::filesystem::exists(ToFilePath(strJobPath + std::string(GetSuffix(result))), error);
}

/// The names with their places.
template <class Choice, std::size_t n>
std::map<std::string, Choice> MapNames(const std::array<std::string_view, n>& names) {
  std::map<std::string, Choice> places;
  for (std::size_t i = 0; i < n; ++i) places.emplace(names[i], static_cast<Choice>(i));
  return places;
}

class CTableCommand final : public CCommand {
 public:
  explicit CTableCommand(const CommandContext& context)
      : CCommand("table", "Write results of a job as a table (CSV)", context) {}

  int Run() override {
    if (!m_strOutput.empty() && IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::string strJobPath = GetJobPath(m_strJobFile);
    if (m_pResult->count() == 0) ChooseResult(strJobPath);
    const std::string strKind(c_strTableKinds[static_cast<std::size_t>(m_choice.kind)]);
    if (!HasTable(m_choice.result)) return Refuse("--what " + strKind + ": the result has no such table");
    if (m_pMode->count() > 0 && !m_choice.IsOfOneMode()) return Refuse("--mode: belongs to the shape of a mode");
    const std::string strFile = strJobPath + std::string(GetSuffix(m_choice.result));
    const Reading<Table> table = ReadTable(*job, strJobPath, m_choice);
    if (!table) return Refuse(strFile + ": " + table.strError);
    for (const Advice& advice : AdviseOnAge(*job, strJobPath, GetSuffix(m_choice.result))) {
      m_err << EscapeControls(FormatAdvice(advice)) << '\n';
    }
    return Deliver(m_strOutput, FormatCsv(*table));
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, "Job file (JSON) whose analyses have run");
    app.add_option("--what", m_choice.kind, "Table: " + JoinWords(c_strTableKinds))
        ->required()
        ->transform(CLI::CheckedTransformer(MapNames<TableKind>(c_strTableKinds)).description(""));
    m_pResult = app.add_option("--of", m_choice.result,
                               "Result: " + JoinWords(c_strTableResults) + " (default: the first that is there)")
                    ->transform(CLI::CheckedTransformer(MapNames<TableResult>(c_strTableResults)).description(""));
    m_pMode =
        app.add_option("--mode", m_choice.nMode, "Mode, from 1, of displacements and levels of modes (default 1)");
    app.add_option("-o,--output", m_strOutput, "CSV file to write (default: standard output)");
  }

  [[nodiscard]] bool HasTable(TableResult result) const {
    return std::ranges::find(ListTables(result), m_choice.kind) != ListTables(result).end();
  }

  /// The first one with such a table whose file is there; without one the first with such a table.
  void ChooseResult(const std::string& strJobPath) {
    std::vector<TableResult> results;
    for (std::size_t i = 0; i < c_strTableResults.size(); ++i) {
      if (HasTable(static_cast<TableResult>(i))) results.push_back(static_cast<TableResult>(i));
    }
    const auto it = std::ranges::find_if(results, [&](TableResult result) { return IsThere(strJobPath, result); });
    m_choice.result = it == results.end() ? results.front() : *it;
  }

  std::string m_strOutput;
  TableChoice m_choice;
  CLI::Option* m_pResult = nullptr;
  CLI::Option* m_pMode = nullptr;
};

}  // namespace

std::unique_ptr<CCommand> MakeTableCommand(const CommandContext& context) {
  return std::make_unique<CTableCommand>(context);
}

}  // namespace skyframe::host
