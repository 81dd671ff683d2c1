#include <CLI/CLI.hpp>
#include <map>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/run/JobRunner.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CPlotCommand final : public CCommand {
 public:
  explicit CPlotCommand(const CommandContext& context) : CCommand("plot", Say(texts::c_plot), context) {}

  int Run() override {
    const bool bHistory = m_pNode->count() + m_pElement->count() > 0;
    if (IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    if (m_plot.bViewer && !bHistory) return Refuse(Say(texts::c_viewerOnly));
    using Kind = PlotRequest::Kind;
    m_plot.kind = m_pWhat->count("--mode") > 0 ? Kind::Mode
                  : m_bDeformed                ? Kind::Deformed
                  : m_pNode->count() > 0       ? Kind::Node
                  : m_pElement->count() > 0    ? Kind::Element
                                               : Kind::Spectrum;
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::optional<std::string> strPicture = DrawPlot(*job, GetJobPath(m_strJobFile), m_plot, m_err);
    return strPicture ? Save(m_strOutput, *strPicture) : c_nExitBadInput;
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, Help(texts::c_plotJob));
    app.add_option("-o,--output", m_strOutput, Help(texts::c_plotOutput))->required();
    m_pWhat = app.add_option_group(Help(texts::c_whatToDraw), Help(texts::c_oneOfThese));
    m_pWhat->require_option(1);
    m_pWhat->add_flag("--spectrum", m_bSpectrum, Help(texts::c_plotSpectrum));
    m_pWhat->add_option("--mode", m_plot.nNumber, Help(texts::c_plotMode));
    m_pNode = m_pWhat->add_option("--node", m_plot.nNumber, Help(texts::c_plotNode));
    m_pElement = m_pWhat->add_option("--element", m_plot.nNumber, Help(texts::c_plotElement));
    CLI::Option* pDeformed = m_pWhat->add_flag("--deformed", m_bDeformed, Help(texts::c_plotDeformed));
    const std::map<std::string, int> directions = {{"X", 0}, {"Y", 1}, {"Z", 2}};
    app.add_option("--dir", m_plot.nDirection, Help(texts::c_plotDirection))
        ->needs(m_pNode)
        ->transform(CLI::CheckedTransformer(directions, CLI::ignore_case));
    app.add_flag("--nonlinear", m_plot.bNonlinear, Help(texts::c_plotNonlinear))->needs(pDeformed);
    app.add_flag("--viewer", m_plot.bViewer, Help(texts::c_plotViewer));
  }

  std::string m_strOutput;
  PlotRequest m_plot;
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
