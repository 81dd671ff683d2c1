#include <CLI/CLI.hpp>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/JobSchema.h"

namespace skyframe::host {

namespace {

class CSchemaCommand final : public CCommand {
 public:
  explicit CSchemaCommand(const CommandContext& context)
      : CCommand("schema", "Write the JSON Schema of job files", context) {}

  int Run() override {
    if (m_strTable.empty()) return Deliver(m_strOutput, FormatJobSchema());
    const std::string strTable = FormatFieldTable(m_strTable, m_bChinese ? Language::Chinese : Language::English);
    return strTable.empty() ? Refuse(m_strTable + ": no such table") : Deliver(m_strOutput, strTable);
  }

 private:
  void Define(CLI::App& app) override {
    app.add_option("-o,--output", m_strOutput, "File to write (default: standard output)");
    CLI::Option* pTable = app.add_option("--table", m_strTable, "Instead the manual's table of an analysis");
    app.add_flag("--chinese", m_bChinese, "The table of the Chinese manual")->needs(pTable);
  }

  std::string m_strOutput;
  std::string m_strTable;
  bool m_bChinese = false;
};

}  // namespace

std::unique_ptr<CCommand> MakeSchemaCommand(const CommandContext& context) {
  return std::make_unique<CSchemaCommand>(context);
}

}  // namespace skyframe::host
