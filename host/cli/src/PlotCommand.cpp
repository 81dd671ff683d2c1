#include <CLI/CLI.hpp>
#include <map>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/run/JobRunner.h"

namespace skyframe::host {

namespace {

class CPlotCommand final : public CCommand {
 public:
  explicit CPlotCommand(const CommandContext& context) : CCommand("plot", "Draw a result of a job as SVG", context) {}

  int Run() override {
    const bool bHistory = m_pNode->count() + m_pElement->count() > 0;
    if (IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    if (m_plot.bViewer && !bHistory) return Refuse("--viewer: belongs to --node or --element");
    using Kind = PlotRequest::Kind;
    m_plot.kind = m_pWhat->count("--mode") > 0 ? Kind::Mode
                  : m_bDeformed                ? Kind::Deformed
                  : m_pNode->count() > 0       ? Kind::Node
                  : m_pElement->count() > 0    ? Kind::Element
                                               : Kind::Spectrum;
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    m_plot.numbers = {m_nPlotted};
    m_plot.directions = {m_nPlotDirection};
    const std::optional<std::string> strPicture = DrawPlot(*job, GetJobPath(m_strJobFile), m_plot, m_err);
    return strPicture ? Save(m_strOutput, *strPicture) : c_nExitBadInput;
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, "Job file (JSON) whose analyses have run");
    app.add_option("-o,--output", m_strOutput, "SVG file to write")->required();
    m_pWhat = app.add_option_group("What to draw", "one of these");
    m_pWhat->require_option(1);
    m_pWhat->add_flag("--spectrum", m_bSpectrum, "Design spectrum with the periods of the modes");
    m_pWhat->add_option("--mode", m_plot.nMode, "Mode shape, from 1");
    m_pNode = m_pWhat->add_option("--node", m_nPlotted, "Displacement history of the node with this id");
    m_pElement = m_pWhat->add_option("--element", m_nPlotted, "Axial-force history of an element, from 1");
    CLI::Option* pDeformed =
        m_pWhat->add_flag("--deformed", m_bDeformed, "Structure as the static analysis deforms it");
    const std::map<std::string, int> directions = {{"X", 0}, {"Y", 1}, {"Z", 2}};
    app.add_option("--dir", m_nPlotDirection, "X, Y or Z (default X)")
        ->needs(m_pNode)
        ->transform(CLI::CheckedTransformer(directions, CLI::ignore_case));
    app.add_flag("--nonlinear", m_plot.bNonlinear, "Of the nonlinear static analysis")->needs(pDeformed);
    app.add_flag("--viewer", m_plot.bViewer, "The result viewer's picture of a history");
  }

  std::string m_strOutput;
  PlotRequest m_plot;
  int m_nPlotted = 1;
  int m_nPlotDirection = 0;
  bool m_bSpectrum = false;
  bool m_bDeformed = false;
  CLI::Option_group* m_pWhat = nullptr;
  CLI::Option* m_pNode = nullptr;
  CLI::Option* m_pElement = nullptr;
};

}  // namespace

std::unique_ptr<CCommand> MakePlotCommand(const CommandContext& context) {
  return std::make_unique<CPlotCommand>(context);
}

}  // namespace skyframe::host
