#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <span>

#include "Commands.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/run/JobRunner.h"
#include "texts.h"

namespace skyframe::host {

namespace {

using Names = std::span<const std::string_view>;

/// Whose forces.
constexpr std::array<std::string_view, 4> c_strSources = {"linear", "nonlinear", "spectrum", "history"};
constexpr std::array<ResultKind, c_strSources.size()> c_sources = {ResultKind::Linear, ResultKind::Nonlinear,
                                                                   ResultKind::Spectrum, ResultKind::History};
constexpr std::array<std::string_view, 4> c_strViews = {"iso", "front", "side", "plan"};
constexpr std::array<ViewDirection, c_strViews.size()> c_views = {c_isometricView, c_frontView, c_sideView, c_planView};

/// Place of a name in a list, letters large or small; none when it is not there.
std::optional<std::size_t> FindName(Names names, std::string_view strName) {
  const auto isSame = [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
  };
  const auto it =
      std::ranges::find_if(names, [&](std::string_view strOne) { return std::ranges::equal(strOne, strName, isSame); });
  return it == names.end() ? std::nullopt : std::optional(static_cast<std::size_t>(it - names.begin()));
}

/// Takes one of the names alone.
CLI::Validator OneOf(Names names) {
  std::string strNames;
  for (const std::string_view strName : names) strNames += (strNames.empty() ? "" : "|") + std::string(strName);
  return {[names, strNames](const std::string& strName) {
            return FindName(names, strName) ? std::string() : Say(texts::c_noneOf, {EscapeControls(strName), strNames});
          },
          strNames};
}

/// "Y=12.5".
std::optional<FramePlane> ParseFrame(std::string_view strText) {
  const std::size_t nEqual = strText.find('=');
  if (nEqual == std::string_view::npos) return std::nullopt;
  const auto nAxis = FindName(c_strAxes, strText.substr(0, nEqual));
  const auto dAt = ParseReal(strText.substr(nEqual + 1));
  if (!nAxis || !dAt) return std::nullopt;
  return FramePlane{static_cast<int>(*nAxis), *dAt};
}

/// "1.2*0+1.4*1": factors and cases.
std::optional<JobCombination> ParseCombination(std::string_view strText) {
  JobCombination combination;
  for (bool bMore = true; bMore;) {
    const std::size_t nPlus = strText.find('+');
    const std::string_view strTerm = strText.substr(0, nPlus);
    const std::size_t nStar = std::min(strTerm.find('*'), strTerm.size());
    const auto dFactor = ParseReal(strTerm.substr(0, nStar));
    const auto nCase = ParseInt(strTerm.substr(std::min(nStar + 1, strTerm.size())));
    if (!dFactor || !nCase) return std::nullopt;
    combination[*nCase] += *dFactor;
    bMore = nPlus != std::string_view::npos;
    if (bMore) strText.remove_prefix(nPlus + 1);
  }
  return combination;
}

class CPlotCommand final : public CCommand {
 public:
  explicit CPlotCommand(const CommandContext& context) : CCommand("plot", Say(texts::c_plot), context) {}

  int Run() override {
    if (IsJobFile(m_strOutput, m_strJobFile)) return RefuseJobFile(m_strOutput);
    if (const std::string strFault = TakeOptions(); !strFault.empty()) return Refuse(strFault);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::optional<std::string> strPicture = DrawPlot(*job, GetJobPath(m_strJobFile), m_plot, m_err);
    return strPicture ? Save(m_strOutput, *strPicture) : c_nExitBadInput;
  }

 private:
  using Kind = PlotRequest::Kind;
  using Kinds = std::vector<Kind>;

  void Define(CLI::App& app) override {
    AddJobFile(app, Help(texts::c_solvedJob));
    app.add_option("-o,--output", m_strOutput, Help(texts::c_plotOutput))->required();
    CLI::Option_group& what = *app.add_option_group(Help(texts::c_whatToDraw), Help(texts::c_oneOfThese));
    AddKind(AddFlag(what, "--spectrum", Help(texts::c_plotSpectrum)), Kind::Spectrum);
    AddKind(what.add_option("--mode", m_plot.nMode, Help(texts::c_plotMode)), Kind::Mode);
    AddKind(AddCurves(what, "--node", Help(texts::c_plotNode)), Kind::Node);
    AddKind(AddCurves(what, "--element", Help(texts::c_plotElement)), Kind::Element);
    AddKind(AddFlag(what, "--deformed", Help(texts::c_plotDeformed)), Kind::Deformed);
    AddKind(AddName(what, "--force", m_strQuantity, Names(c_strMemberQuantities).first(c_nForceComponents),
                    Help(texts::c_plotForce)),
            Kind::Diagram);
    AddKind(AddName(what, "--colour", m_strQuantity, c_strMemberQuantities, Help(texts::c_plotColour)), Kind::Colours);
    AddKind(AddFlag(what, "--reactions", Help(texts::c_plotReactions)), Kind::Reactions);
    AddKind(what.add_option("--loads", m_strLoads, Help(texts::c_plotLoads)), Kind::Loads);
    DefineDetails(app);
  }

  void DefineDetails(CLI::App& app) {
    const Kinds forces = {Kind::Diagram, Kind::Colours, Kind::Reactions};
    const Kinds structures = {Kind::Diagram, Kind::Colours, Kind::Reactions, Kind::Loads, Kind::Structure};
    const Kinds histories = {Kind::Node, Kind::Element};
    Limit(app.add_option("--dir", m_directions, Help(texts::c_plotDirection))
              ->delimiter(',')
              ->allow_extra_args(false)
              ->check(OneOf(c_strAxes)),
          {Kind::Node});
    Limit(app.add_flag("--viewer", m_plot.bViewer, Help(texts::c_plotViewer)), histories);
    Limit(app.add_flag("--nonlinear", m_plot.bNonlinear, Help(texts::c_plotNonlinear)), {Kind::Deformed});
    Limit(app.add_flag("--coloured", m_plot.bShapeColours, Help(texts::c_plotColoured)), {Kind::Mode, Kind::Deformed});
    Limit(AddName(app, "--of", m_strSource, c_strSources, Help(texts::c_plotOf)), forces);
    m_pTime = app.add_option("--at", m_plot.dTime, Help(texts::c_plotAt));
    Limit(m_pTime, forces);
    Limit(app.add_option("--frame", m_strFrame, Help(texts::c_plotFrame)), structures);
    Limit(AddName(app, "--view", m_strView, c_strViews, Help(texts::c_plotView)), structures);
    Limit(app.add_flag("--with-reactions", m_plot.bReactions, Help(texts::c_plotWithReactions)),
          {Kind::Diagram, Kind::Colours});
    Limit(app.add_flag("--local-axes", m_plot.bLocalAxes, Help(texts::c_plotLocalAxes)), structures);
    Limit(app.add_flag("--sections", m_plot.bSectionNames, Help(texts::c_plotSections)), structures);
  }

  CLI::Option* AddCurves(CLI::App& app, const std::string& strName, const std::string& strHelp) {
    return app.add_option(strName, m_plot.numbers, strHelp)->allow_extra_args(false);
  }

  static CLI::Option* AddFlag(CLI::App& app, const std::string& strName, const std::string& strHelp) {
    return app.add_flag(strName)->description(strHelp);
  }

  static CLI::Option* AddName(CLI::App& app, const std::string& strName, std::string& strValue, Names names,
                              const std::string& strHelp) {
    return app.add_option(strName, strValue, strHelp)->check(OneOf(names));
  }

  void AddKind(const CLI::Option* pOption, Kind kind) { m_kinds.push_back({pOption, kind}); }
  /// An option that belongs to some kinds of pictures.
  void Limit(const CLI::Option* pOption, Kinds kinds) { m_limits.push_back({pOption, std::move(kinds)}); }

  /// What the parser has not checked; empty when all is well.
  std::string TakeOptions() {
    if (std::string strFault = TakeKind(); !strFault.empty()) return strFault;
    for (const auto& [pOption, kinds] : m_limits) {
      if (pOption->count() > 0 && std::ranges::find(kinds, m_plot.kind) == kinds.end())
        return Say(texts::c_optionBelongs, {pOption->get_name(), ListOptions(kinds)});
    }
    if (!m_directions.empty()) m_plot.directions.clear();
    for (const std::string& strAxis : m_directions)
      m_plot.directions.push_back(static_cast<int>(FindName(c_strAxes, strAxis).value_or(0)));
    m_plot.quantity = static_cast<MemberQuantity>(FindName(c_strMemberQuantities, m_strQuantity).value_or(0));
    m_plot.source = c_sources[FindName(c_strSources, m_strSource).value_or(0)];
    if (m_plot.source == ResultKind::History && m_pTime->count() == 0) return std::string(Say(texts::c_timeMissing));
    if (!m_strView.empty()) m_plot.view = c_views[FindName(c_strViews, m_strView).value_or(0)];
    if (!m_strFrame.empty() && !(m_plot.frame = ParseFrame(m_strFrame))) return std::string(Say(texts::c_badFrame));
    return TakeLoads();
  }

  std::string TakeKind() {
    const CLI::Option* pChosen = nullptr;
    for (const auto& [pOption, kind] : m_kinds) {
      if (pOption->count() == 0) continue;
      if (pChosen != nullptr) return Say(texts::c_twoPictures, {pChosen->get_name(), pOption->get_name()});
      pChosen = pOption;
      m_plot.kind = kind;
    }
    if (pChosen != nullptr) return "";
    if (!m_plot.bLocalAxes && !m_plot.bSectionNames) return std::string(Say(texts::c_nothingToDraw));
    m_plot.kind = Kind::Structure;
    return "";
  }

  std::string TakeLoads() {
    if (m_strLoads.empty() || m_strLoads == "all") return "";
    m_plot.nCase = ParseInt(m_strLoads);
    if (m_plot.nCase) return "";
    const std::optional<JobCombination> combination = ParseCombination(m_strLoads);
    if (!combination) return std::string(Say(texts::c_badLoads));
    m_plot.combination = *combination;
    return "";
  }

  [[nodiscard]] std::string ListOptions(const Kinds& kinds) const {
    std::string strList;
    for (const auto& [pOption, kind] : m_kinds) {
      if (std::ranges::find(kinds, kind) != kinds.end())
        strList += std::string(strList.empty() ? "" : Say(texts::c_or)) + pOption->get_name();
    }
    return strList;
  }

  std::string m_strOutput;
  PlotRequest m_plot;
  std::vector<std::string> m_directions;
  std::string m_strQuantity = "N";
  std::string m_strSource = "linear";
  std::string m_strView;
  std::string m_strFrame;
  std::string m_strLoads;
  const CLI::Option* m_pTime = nullptr;
  std::vector<std::pair<const CLI::Option*, Kind>> m_kinds;
  std::vector<std::pair<const CLI::Option*, Kinds>> m_limits;
};

}  // namespace

std::unique_ptr<CCommand> MakePlotCommand(const CommandContext& context) {
  return std::make_unique<CPlotCommand>(context);
}

}  // namespace skyframe::host
