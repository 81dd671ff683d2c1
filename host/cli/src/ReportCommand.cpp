#include <CLI/CLI.hpp>

#include "Commands.h"
#include "skyframe/book/CalculationReport.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CReportCommand final : public CCommand {
 public:
  explicit CReportCommand(const CommandContext& context) : CCommand("report", Say(texts::c_report), context) {}

  int Run() override {
    if (IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    const JobFile file = ReadJobFile(m_strJobFile);
    PrintProblems(m_strJobFile, file.errors, "");
    if (!file.errors.empty()) return c_nExitBadInput;
    const CalculationReport report = WriteReport(file.job, GetJobPath(m_strJobFile), file.warnings);
    for (const Advice& warning : report.warnings) m_err << EscapeControls(FormatAdvice(warning)) << '\n';
    return Save(m_strOutput, report.strPage);
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, Help(texts::c_solvedJob));
    app.add_option("-o,--output", m_strOutput, Help(texts::c_reportOutput))->required();
  }

  std::string m_strOutput;
};

}  // namespace

std::unique_ptr<CCommand> MakeReportCommand(const CommandContext& context) {
  return std::make_unique<CReportCommand>(context);
}

}  // namespace skyframe::host
