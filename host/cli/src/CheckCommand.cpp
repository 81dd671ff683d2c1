#include <CLI/CLI.hpp>

#include "Commands.h"
#include "NullBuffer.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/run/JobRunner.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CCheckCommand final : public CCommand {
 public:
  explicit CCheckCommand(const CommandContext& context) : CCommand("check", Say(texts::c_check), context) {}

  int Run() override {
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    CNullBuffer nothing;
    std::ostream console(&nothing);
    return CheckJob(*job, {m_out, m_err, console}) ? c_nExitGood : c_nExitAnalysisFailed;
  }

 private:
  void Define(CLI::App& app) override { AddJobFile(app); }
};

}  // namespace

std::unique_ptr<CCommand> MakeCheckCommand(const CommandContext& context) {
  return std::make_unique<CCheckCommand>(context);
}

}  // namespace skyframe::host
