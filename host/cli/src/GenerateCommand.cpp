#include <CLI/CLI.hpp>
#include <functional>

#include "Commands.h"
#include "NumberRange.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/generate/GeneratorFields.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// An option for each parameter of a generator.
class COptionMaker {
 public:
  explicit COptionMaker(CLI::App& app) : m_app(app) {}

  void Visit(const GeneratorField& field, int& nValue, GeneratorRange<int> range) {
    Add(field, nValue)->check(CLI::Range(range.lowest, range.highest));
  }
  void Visit(const GeneratorField& field, double& dValue, GeneratorRange<double> range) {
    Add(field, dValue)->check(CNumberRange(range.lowest, range.highest));
  }
  void Visit(const GeneratorField& field, bool& bValue) {
    m_app.add_flag(FormName(field), bValue, std::string(Say(field.meaning)));
  }

 private:
  static std::string FormName(const GeneratorField& field) { return "--" + std::string(field.pszOption); }

  template <class T>
  CLI::Option* Add(const GeneratorField& field, T& value) {
    return m_app.add_option(FormName(field), value, std::string(Say(field.meaning)))->capture_default_str();
  }

  CLI::App& m_app;
};

class CGenerateCommand final : public CCommand {
 public:
  explicit CGenerateCommand(const CommandContext& context) : CCommand("generate", Say(texts::c_generate), context) {}

  int Run() override { return m_action(); }

 private:
  void Define(CLI::App& app) override {
    app.require_subcommand(1);
    DefineBuilding(app);
    AddShape(app, "tower", texts::c_tower, m_tower);
    AddShape(app, "dome", texts::c_dome, m_dome);
    AddShape(app, "arch", texts::c_arch, m_arch);
  }

  template <class Parameters>
  CLI::App* AddShape(CLI::App& generate, const std::string& strName, const Words& help, Parameters& parameters) {
    CLI::App* pShape = generate.add_subcommand(strName, Help(help));
    pShape->add_option("-o,--output", m_strOutput, Help(texts::c_generateOutput));
    COptionMaker maker(*pShape);
    VisitFields(maker, parameters);
    pShape->callback([this, &parameters] { m_action = [this, &parameters] { return Write(parameters); }; });
    return pShape;
  }

  void DefineBuilding(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "building", texts::c_building, m_building);
    p->add_option("--nodes", m_nNodes, Help(texts::c_aboutNodes))
        ->check(CLI::Range(8, c_nMaxNodes))
        ->excludes("--storeys");
    p->callback([this, p] { m_action = [this, p] { return OnGenerateBuilding(*p); }; });
  }

  int OnGenerateBuilding(const CLI::App& app) {
    if (m_nNodes > 0) {
      const BuildingParameters choice = ChooseBuilding(m_nNodes);
      if (app.count("--bays-x") == 0) m_building.nBaysX = choice.nBaysX;
      if (app.count("--bays-y") == 0) m_building.nBaysY = choice.nBaysY;
      m_building.nStoreys = ChooseStoreys(m_nNodes, m_building.nBaysX, m_building.nBaysY);
    }
    return Write(m_building);
  }

  template <class Parameters>
  int Write(const Parameters& parameters) {
    if (const std::optional<std::string> conflict = FindConflict(parameters)) return Refuse(*conflict);
    const std::string strText = FormatJob(Generate(parameters));
    const JobFile check = ParseJob(strText);
    PrintProblems(Help(texts::c_generatedJob), check.errors, "");
    return check.errors.empty() ? Deliver(m_strOutput, strText) : c_nExitBadInput;
  }

  std::function<int()> m_action;
  std::string m_strOutput;
  int m_nNodes = 0;
  BuildingParameters m_building;
  TowerParameters m_tower;
  DomeParameters m_dome;
  ArchParameters m_arch;
};

}  // namespace

std::unique_ptr<CCommand> MakeGenerateCommand(const CommandContext& context) {
  return std::make_unique<CGenerateCommand>(context);
}

}  // namespace skyframe::host
