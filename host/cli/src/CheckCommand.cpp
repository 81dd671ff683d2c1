#include <CLI/CLI.hpp>
#include <streambuf>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/run/JobRunner.h"

namespace skyframe::host {

namespace {

/// Swallows the module's progress lines.
class CNullBuffer final : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize nCount) override { return nCount; }
};

class CCheckCommand final : public CCommand {
 public:
  explicit CCheckCommand(const CommandContext& context)
      : CCommand("check", "Validate a job; print counts, profile and memory", context) {}

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
