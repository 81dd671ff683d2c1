#include <CLI/CLI.hpp>
#include <functional>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/values/Capacities.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CGenerateCommand final : public CCommand {
 public:
  explicit CGenerateCommand(const CommandContext& context) : CCommand("generate", Say(texts::c_generate), context) {}

  int Run() override { return m_action(); }

 private:
  void Define(CLI::App& app) override {
    app.require_subcommand(1);
    DefineBuilding(app);
    DefineTower(app);
    DefineDome(app);
    DefineArch(app);
  }

  CLI::App* AddShape(CLI::App& generate, const std::string& strName, const Words& help) {
    CLI::App* pShape = generate.add_subcommand(strName, Help(help));
    pShape->add_option("-o,--output", m_strOutput, Help(texts::c_generateOutput));
    return pShape;
  }

  static void AddCount(CLI::App& app, const std::string& strName, int& nValue, const Words& help, int nLowest = 1) {
    app.add_option(strName, nValue, Help(help))->check(CLI::Range(nLowest, c_nMaxNodes))->capture_default_str();
  }

  static void AddLength(CLI::App& app, const std::string& strName, double& dValue, const Words& help) {
    app.add_option(strName, dValue, Help(help))->check(CLI::Range(1.0e-3, 1.0e5))->capture_default_str();
  }

  static void AddLoad(CLI::App& app, const std::string& strName, double& dValue, const Words& help) {
    app.add_option(strName, dValue, Help(help))->check(CLI::Range(-1.0e9, 1.0e9))->capture_default_str();
  }

  void DefineBuilding(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "building", texts::c_building);
    AddCount(*p, "--bays-x", m_building.nBaysX, texts::c_baysX);
    AddCount(*p, "--bays-y", m_building.nBaysY, texts::c_baysY);
    CLI::Option* pStoreys =
        p->add_option("--storeys", m_building.nStoreys, Help(texts::c_storeys))->check(CLI::Range(1, c_nMaxNodes));
    pStoreys->capture_default_str();
    p->add_option("--nodes", m_nNodes, Help(texts::c_aboutNodes))
        ->check(CLI::Range(8, c_nMaxNodes))
        ->excludes(pStoreys);
    AddLength(*p, "--span", m_building.dSpan, texts::c_bayLength);
    AddLength(*p, "--height", m_building.dHeight, texts::c_storeyHeight);
    AddLoad(*p, "--dead", m_building.dDeadLoad, texts::c_deadLoad);
    AddLoad(*p, "--live", m_building.dLiveLoad, texts::c_liveLoad);
    AddLoad(*p, "--wind", m_building.dWindLoad, texts::c_windLoad);
    p->callback([this, p] { m_action = [this, p] { return OnGenerateBuilding(*p); }; });
  }

  void DefineTower(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "tower", texts::c_tower);
    AddCount(*p, "--panels", m_tower.nPanels, texts::c_panels);
    AddLength(*p, "--base", m_tower.dBase, texts::c_base);
    AddLength(*p, "--top", m_tower.dTop, texts::c_top);
    AddLength(*p, "--panel-height", m_tower.dPanelHeight, texts::c_panelHeight);
    p->callback([this] {
      m_action = [this] { return Write([this] { return GenerateTower(m_tower); }, 4, m_tower.nPanels + 1.0); };
    });
  }

  void DefineDome(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "dome", texts::c_dome);
    AddCount(*p, "--rings", m_dome.nRings, texts::c_rings);
    AddCount(*p, "--segments", m_dome.nSegments, texts::c_fields, 3);
    AddLength(*p, "--span", m_dome.dSpan, texts::c_span);
    AddLength(*p, "--rise", m_dome.dRise, texts::c_domeRise);
    AddLoad(*p, "--load", m_dome.dLoad, texts::c_planLoad);
    p->add_flag("--beams", m_dome.bBeams, Help(texts::c_domeBeams));
    p->callback([this] { m_action = [this] { return OnGenerateDome(); }; });
  }

  void DefineArch(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "arch", texts::c_arch);
    AddCount(*p, "--segments", m_arch.nSegments, texts::c_archMembers, 2);
    AddLength(*p, "--half-span", m_arch.dHalfSpan, texts::c_halfSpan);
    AddLength(*p, "--rise", m_arch.dRise, texts::c_rise);
    AddLoad(*p, "--load", m_arch.dLoad, texts::c_apexLoad);
    p->callback([this] { m_action = [this] { return OnGenerateArch(); }; });
  }

  int OnGenerateBuilding(const CLI::App& app) {
    if (m_nNodes > 0) {
      const BuildingParameters choice = ChooseBuilding(m_nNodes);
      if (app.count("--bays-x") == 0) m_building.nBaysX = choice.nBaysX;
      if (app.count("--bays-y") == 0) m_building.nBaysY = choice.nBaysY;
      m_building.nStoreys = ChooseStoreys(m_nNodes, m_building.nBaysX, m_building.nBaysY);
    }
    return Write([this] { return GenerateBuilding(m_building); }, (m_building.nBaysX + 1.0) * (m_building.nBaysY + 1.0),
                 m_building.nStoreys + 1.0);
  }

  int OnGenerateDome() {
    if (m_dome.dRise > 0.5 * m_dome.dSpan) return Refuse(Say(texts::c_riseTooLarge));
    return Write([this] { return GenerateDome(m_dome); }, m_dome.nRings, m_dome.nSegments);
  }

  int OnGenerateArch() {
    if (m_arch.nSegments % 2 != 0) return Refuse(Say(texts::c_oddMembers));
    return Write([this] { return GenerateArch(m_arch); }, m_arch.nSegments + 1.0, 1.0);
  }

  /// Generates and writes the job of about so many rows of nodes, unless the host records are too small.
  template <class Generator>
  int Write(Generator generator, double dRows, double dNodesPerRow) {
    if (dRows * dNodesPerRow > c_nMaxNodes) return Refuse(Say(texts::c_tooManyNodes, {std::to_string(c_nMaxNodes)}));
    const std::string strText = FormatJob(generator());
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
