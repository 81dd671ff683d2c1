#include <CLI/CLI.hpp>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/JobSchema.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CSchemaCommand final : public CCommand {
 public:
  explicit CSchemaCommand(const CommandContext& context) : CCommand("schema", Say(texts::c_schema), context) {}

  int Run() override {
    if (m_strTable.empty()) return Deliver(m_strOutput, FormatJobSchema());
    const std::string strTable = FormatFieldTable(m_strTable, m_bChinese ? Language::Chinese : GetLanguage());
    return strTable.empty() ? Refuse(Say(texts::c_noTable, {m_strTable})) : Deliver(m_strOutput, strTable);
  }

 private:
  void Define(CLI::App& app) override {
    app.add_option("-o,--output", m_strOutput, Help(texts::c_schemaOutput));
    CLI::Option* pTable = app.add_option("--table", m_strTable, Help(texts::c_table));
    app.add_flag("--chinese", m_bChinese, Help(texts::c_chinese))->needs(pTable);
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
