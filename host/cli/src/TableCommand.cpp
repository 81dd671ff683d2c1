#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "skyframe/run/Session.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/tables/ResultTables.h"
#include "texts.h"

namespace skyframe::host {

namespace {

bool IsThere(const std::string& strJobPath, ResultKind result) {
  std::error_code error;
  return std::filesystem::exists(ToFilePath(strJobPath + std::string(GetSuffix(result))), error);
}

/// The place of a name among those that the parser took it from.
template <class Choice, std::size_t n>
Choice FindName(const std::array<std::string_view, n>& names, std::string_view strName) {
  return static_cast<Choice>(std::ranges::find(names, strName) - names.begin());
}

template <std::size_t n>
CLI::IsMember FormCheck(const std::array<std::string_view, n>& names) {
  return CLI::IsMember(std::vector<std::string>(names.begin(), names.end()));
}

class CTableCommand final : public CCommand {
 public:
  explicit CTableCommand(const CommandContext& context) : CCommand("table", Say(texts::c_writeTable), context) {}

  int Run() override {
    if (!m_strOutput.empty() && IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::string strJobPath = GetJobPath(m_strJobFile);
    m_choice.kind = FindName<TableKind>(c_strTableKinds, m_strKind);
    m_choice.result =
        m_strResult.empty() ? ChooseResult(strJobPath) : FindName<ResultKind>(c_strResultKinds, m_strResult);
    if (!HasTable(m_choice.result)) return Refuse(Say(texts::c_tableMissing, {m_strKind}));
    if (m_pMode->count() > 0 && !m_choice.IsOfOneMode()) return Refuse(std::string(Say(texts::c_shapeOnly)));
    const std::string strFile = strJobPath + std::string(GetSuffix(m_choice.result));
    const std::optional<CSession> session = CSession::Open(*job, strJobPath, "");  // for the masses of modes
    if (!session) return Refuse(Say(texts::c_pathTooLong));
    const Reading<Table> table = ReadTable(*job, strJobPath, m_choice);
    if (!table) return Refuse(strFile + ": " + table.strError);
    for (const Advice& advice : AdviseOnAge(*job, strJobPath, GetSuffix(m_choice.result))) {
      m_err << EscapeControls(FormatAdvice(advice)) << '\n';
    }
    const std::string strCsv = FormatCsv(*table);
    return Deliver(m_strOutput, m_strOutput.empty() ? strCsv.substr(c_strByteOrderMark.size()) : strCsv);
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, Help(texts::c_solvedJob));
    app.add_option("--what", m_strKind, Help(texts::c_tableKind))->required()->check(FormCheck(c_strTableKinds));
    app.add_option("--of", m_strResult, Help(texts::c_tableResult))->check(FormCheck(c_strResultKinds));
    m_pMode = app.add_option("--mode", m_choice.nMode, Help(texts::c_tableMode));
    app.add_option("-o,--output", m_strOutput, Help(texts::c_tableOutput));
  }

  [[nodiscard]] bool HasTable(ResultKind result) const {
    return std::ranges::find(ListTables(result), m_choice.kind) != ListTables(result).end();
  }

  /// The first one with such a table whose file is there; without one the first with such a table.
  [[nodiscard]] ResultKind ChooseResult(const std::string& strJobPath) const {
    std::vector<ResultKind> results;
    std::ranges::copy_if(c_resultKinds, std::back_inserter(results),
                         [this](ResultKind kind) { return HasTable(kind); });
    const auto it = std::ranges::find_if(results, [&](ResultKind result) { return IsThere(strJobPath, result); });
    return it == results.end() ? results.front() : *it;
  }

  std::string m_strOutput;
  std::string m_strKind;
  std::string m_strResult;
  TableChoice m_choice;
  CLI::Option* m_pMode = nullptr;
};

}  // namespace

std::unique_ptr<CCommand> MakeTableCommand(const CommandContext& context) {
  return std::make_unique<CTableCommand>(context);
}

}  // namespace skyframe::host
