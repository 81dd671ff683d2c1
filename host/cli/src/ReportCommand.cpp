#include <CLI/CLI.hpp>
#include <map>

#include "Commands.h"
#include "skyframe/book/CalculationReport.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Language.h"

namespace skyframe::host {

namespace {

class CReportCommand final : public CCommand {
 public:
  explicit CReportCommand(const CommandContext& context)
      : CCommand("report", "Write the calculation report of a job as HTML", context) {}

  int Run() override {
    if (IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    const CLanguageScope language(m_language);
    const JobFile file = ReadJobFile(m_strJobFile);
    PrintProblems(m_strJobFile, file.errors, "");
    if (!file.errors.empty()) return c_nExitBadInput;
    return Save(m_strOutput, WriteReport(file.job, GetJobPath(m_strJobFile), file.warnings));
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, "Job file (JSON) whose analyses have run");
    app.add_option("-o,--output", m_strOutput, "HTML file to write")->required();
    const std::map<std::string, Language> languages = {{"en", Language::English}, {"zh", Language::Chinese}};
    app.add_option("--lang", m_language, "Language of the report: en or zh (default en)")
        ->transform(CLI::CheckedTransformer(languages, CLI::ignore_case));
  }

  std::string m_strOutput;
  Language m_language = Language::English;
};

}  // namespace

std::unique_ptr<CCommand> MakeReportCommand(const CommandContext& context) {
  return std::make_unique<CReportCommand>(context);
}

}  // namespace skyframe::host
