#include <CLI/CLI.hpp>
#include <functional>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/generate/Generate.h"
#include "skyframe/values/Capacities.h"

namespace skyframe::host {

namespace {

class CGenerateCommand final : public CCommand {
 public:
  explicit CGenerateCommand(const CommandContext& context)
      : CCommand("generate", "Write a job file for a regular structure", context) {}

  int Run() override { return m_action(); }

 private:
  void Define(CLI::App& app) override {
    app.require_subcommand(1);
    DefineBuilding(app);
    DefineTower(app);
    DefineDome(app);
    DefineArch(app);
  }

  CLI::App* AddShape(CLI::App& generate, const std::string& strName, const std::string& strHelp) {
    CLI::App* pShape = generate.add_subcommand(strName, strHelp);
    pShape->add_option("-o,--output", m_strOutput, "Job file to write (default: standard output)");
    return pShape;
  }

  static void AddCount(CLI::App& app, const std::string& strName, int& nValue, const std::string& strHelp,
                       int nLowest = 1) {
    app.add_option(strName, nValue, strHelp)->check(CLI::Range(nLowest, c_nMaxNodes))->capture_default_str();
  }

  static void AddLength(CLI::App& app, const std::string& strName, double& dValue, const std::string& strHelp) {
    app.add_option(strName, dValue, strHelp)->check(CLI::Range(1.0e-3, 1.0e5))->capture_default_str();
  }

  static void AddLoad(CLI::App& app, const std::string& strName, double& dValue, const std::string& strHelp) {
    app.add_option(strName, dValue, strHelp)->check(CLI::Range(-1.0e9, 1.0e9))->capture_default_str();
  }

  void DefineBuilding(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "building", "Rectangular frame of rigid beams and columns");
    AddCount(*p, "--bays-x", m_building.nBaysX, "Bays along X");
    AddCount(*p, "--bays-y", m_building.nBaysY, "Bays along Y");
    CLI::Option* pStoreys =
        p->add_option("--storeys", m_building.nStoreys, "Storeys")->check(CLI::Range(1, c_nMaxNodes));
    pStoreys->capture_default_str();
    p->add_option("--nodes", m_nNodes, "About so many nodes: chooses the storeys, and the bays if these are not given")
        ->check(CLI::Range(8, c_nMaxNodes))
        ->excludes(pStoreys);
    AddLength(*p, "--span", m_building.dSpan, "Length of a bay, m");
    AddLength(*p, "--height", m_building.dHeight, "Height of a storey, m");
    AddLoad(*p, "--dead", m_building.dDeadLoad, "Dead load, kN/m2, case 0");
    AddLoad(*p, "--live", m_building.dLiveLoad, "Live load, kN/m2, case 1");
    AddLoad(*p, "--wind", m_building.dWindLoad, "Wind along X, kN/m2, case 2");
    p->callback([this, p] { m_action = [this, p] { return OnGenerateBuilding(*p); }; });
  }

  void DefineTower(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "tower", "Square lattice tower of bars");
    AddCount(*p, "--panels", m_tower.nPanels, "Panels one above the other");
    AddLength(*p, "--base", m_tower.dBase, "Side at the foot, m");
    AddLength(*p, "--top", m_tower.dTop, "Side at the top, m");
    AddLength(*p, "--panel-height", m_tower.dPanelHeight, "Height of a panel, m");
    p->callback([this] {
      m_action = [this] { return Write([this] { return GenerateTower(m_tower); }, 4, m_tower.nPanels + 1.0); };
    });
  }

  void DefineDome(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "dome", "Reticulated spherical cap");
    AddCount(*p, "--rings", m_dome.nRings, "Rings around the crown");
    AddCount(*p, "--segments", m_dome.nSegments, "Fields around a ring", 3);
    AddLength(*p, "--span", m_dome.dSpan, "Span, m");
    AddLength(*p, "--rise", m_dome.dRise, "Rise, m; at most half the span");
    AddLoad(*p, "--load", m_dome.dLoad, "Load in plan, kN/m2");
    p->add_flag("--beams", m_dome.bBeams, "Rigid beams instead of bars");
    p->callback([this] { m_action = [this] { return OnGenerateDome(); }; });
  }

  void DefineArch(CLI::App& generate) {
    CLI::App* p = AddShape(generate, "arch", "Two-bar arch, or an arch of rigid beams, loaded at its apex");
    AddCount(*p, "--segments", m_arch.nSegments, "Members, an even number; 2 makes bars", 2);
    AddLength(*p, "--half-span", m_arch.dHalfSpan, "Half the span, m");
    AddLength(*p, "--rise", m_arch.dRise, "Rise, m");
    AddLoad(*p, "--load", m_arch.dLoad, "Load at the apex, kN, downwards");
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
    if (m_dome.dRise > 0.5 * m_dome.dSpan) return Refuse("--rise: must be at most half the span");
    return Write([this] { return GenerateDome(m_dome); }, m_dome.nRings, m_dome.nSegments);
  }

  int OnGenerateArch() {
    if (m_arch.nSegments % 2 != 0) return Refuse("--segments: must be an even number");
    return Write([this] { return GenerateArch(m_arch); }, m_arch.nSegments + 1.0, 1.0);
  }

  /// Generates and writes the job of about so many rows of nodes, unless the host records are too small.
  template <class Generator>
  int Write(Generator generator, double dRows, double dNodesPerRow) {
    if (dRows * dNodesPerRow > c_nMaxNodes) return Refuse("more than " + std::to_string(c_nMaxNodes) + " nodes");
    const std::string strText = FormatJob(generator());
    const JobFile check = ParseJob(strText);
    PrintProblems("generated job", check.errors, "");
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
