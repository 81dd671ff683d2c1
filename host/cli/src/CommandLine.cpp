#include "skyframe/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <sstream>
#include <system_error>

#include "skyframe/generate/Generate.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/job/JobSchema.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/JobRunner.h"
#include "skyframe/values/Capacities.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// Swallows the module's progress lines.
class CNullBuffer final : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize nCount) override { return nCount; }
};

void PrintProblems(const std::string& strFile, const std::vector<JobProblem>& problems, std::string_view strKind,
                   std::ostream& err) {
  for (const JobProblem& problem : problems) {
    err << EscapeControls(strFile) << ": " << (problem.strPlace.empty() ? "/" : problem.strPlace) << ": " << strKind
        << problem.strReason << (problem.strName.empty() ? "" : " [" + problem.strName + "]") << '\n';
  }
}

/// Files that the analyses of a job read and write.
constexpr std::string_view c_strJobSuffixes[] = {
    suffix::c_strStaticLinear,    suffix::c_strStaticNonlinear, suffix::c_strModes,
    suffix::c_strSpectrum,        suffix::c_strVirtualMode,     suffix::c_strVirtualResponse,
    suffix::c_strHistory,         suffix::c_strImpulseEcho,     suffix::c_strImpulseLoad,
    suffix::c_strAcceleration[0], suffix::c_strAcceleration[1], suffix::c_strAcceleration[2],
    suffix::c_strAcceleration[3]};

/// Also through links and other spellings; the files need not be there.
bool IsSameFile(const std::string& strOne, const std::string& strOther) {
  const fs::path one = ToFilePath(strOne);
  const fs::path other = ToFilePath(strOther);
  std::error_code error;
  if (fs::equivalent(one, other, error)) return true;
  const fs::path place = fs::weakly_canonical(fs::absolute(one, error), error);
  return !place.empty() && place == fs::weakly_canonical(fs::absolute(other, error), error);
}

class CCommandLine {
 public:
  CCommandLine(std::ostream& out, std::ostream& err) : m_out(out), m_err(err) {
    m_app.set_version_flag("--version", SKYFRAME_VERSION);
    m_app.require_subcommand(1);
    DefineRun();
    DefineCheck();
    DefinePlot();
    DefineGenerate();
    DefineSchema();
  }

  int Run(std::vector<std::string> arguments) {
    // The parser would look at it for ever.
    if (std::ranges::find(arguments, "") != arguments.end()) return Refuse("an argument is empty");
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants it
    try {
      m_app.parse(arguments);
    } catch (const CLI::ParseError& error) {
      std::ostringstream message;  // repeats arguments
      const bool bAsked = m_app.exit(error, m_out, message) == 0;
      m_err << EscapeLines(message.str());
      return bAsked ? c_nExitGood : c_nExitBadInput;
    }
    return m_action();
  }

 private:
  /// Nothing when the job file has errors; they are then listed.
  std::optional<Job> LoadJob() {
    JobFile file = ReadJobFile(m_strJobFile);
    PrintProblems(m_strJobFile, file.errors, "", m_err);
    PrintProblems(m_strJobFile, file.warnings, "warning: ", m_err);
    m_bInputWarned = !file.warnings.empty();
    return file.errors.empty() ? std::optional(std::move(file.job)) : std::nullopt;
  }

  void DefineRun() {
    CLI::App* pRun = m_app.add_subcommand("run", "Run every analysis of a job; results stand beside the job file");
    pRun->add_option("job", m_strJobFile, "Job file (JSON)")->required();
    pRun->add_option("--log", m_strLogFile, "File for the progress and trace lines (default: standard output)");
    pRun->add_flag("--strict", m_bStrict, "End with status 3 when there was a warning");
    pRun->add_flag("--dialogs", m_bDialogs, "Show the dialogs with the job's values, to be changed and confirmed");
    pRun->add_option("--data", m_strProgramPath, "Directory that holds GroundAccData")->capture_default_str();
    pRun->callback([this] { m_action = [this] { return OnRun(); }; });
  }

  void DefineCheck() {
    CLI::App* pCheck = m_app.add_subcommand("check", "Validate a job; print counts, profile and memory");
    pCheck->add_option("job", m_strJobFile, "Job file (JSON)")->required();
    pCheck->callback([this] { m_action = [this] { return OnCheck(); }; });
  }

  void DefinePlot() {
    CLI::App* pPlot = m_app.add_subcommand("plot", "Draw a result of a job as SVG");
    pPlot->add_option("job", m_strJobFile, "Job file (JSON) whose analyses have run")->required();
    pPlot->add_option("-o,--output", m_strOutput, "SVG file to write")->required();
    CLI::Option_group* pWhat = pPlot->add_option_group("What to draw", "one of these");
    pWhat->require_option(1);
    pWhat->add_flag("--spectrum", m_bSpectrum, "Design spectrum with the periods of the modes");
    pWhat->add_option("--mode", m_plot.nMode, "Mode shape, from 1");
    CLI::Option* pNode = pWhat->add_option("--node", m_nPlotted, "Displacement history of the node with this id");
    CLI::Option* pElement = pWhat->add_option("--element", m_nPlotted, "Axial-force history of an element, from 1");
    CLI::Option* pDeformed = pWhat->add_flag("--deformed", m_bDeformed, "Structure as the static analysis deforms it");
    const std::map<std::string, int> directions = {{"X", 0}, {"Y", 1}, {"Z", 2}};
    pPlot->add_option("--dir", m_nPlotDirection, "X, Y or Z (default X)")
        ->needs(pNode)
        ->transform(CLI::CheckedTransformer(directions, CLI::ignore_case));
    pPlot->add_flag("--nonlinear", m_plot.bNonlinear, "Of the nonlinear static analysis")->needs(pDeformed);
    pPlot->add_flag("--viewer", m_plot.bViewer, "The result viewer's picture of a history");
    pPlot->callback(
        [this, pWhat, pNode, pElement] { m_action = [=, this] { return OnPlot(*pWhat, *pNode, *pElement); }; });
  }

  void DefineGenerate() {
    CLI::App* pGenerate = m_app.add_subcommand("generate", "Write a job file for a regular structure");
    pGenerate->require_subcommand(1);
    DefineBuilding(*pGenerate);
    DefineTower(*pGenerate);
    DefineDome(*pGenerate);
    DefineArch(*pGenerate);
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

  void DefineSchema() {
    CLI::App* pSchema = m_app.add_subcommand("schema", "Write the JSON Schema of job files");
    pSchema->add_option("-o,--output", m_strOutput, "File to write (default: standard output)");
    CLI::Option* pTable = pSchema->add_option("--table", m_strTable, "Instead the manual's table of an analysis");
    pSchema->add_flag("--chinese", m_bChinese, "The table of the Chinese manual")->needs(pTable);
    pSchema->callback([this] { m_action = [this] { return OnSchema(); }; });
  }

  int OnRun() {
    if (IsJobFile(m_strLogFile)) return RefuseJobFile(m_strLogFile);
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    const std::unique_ptr<IPlatform> pWindows = m_bDialogs ? OpenWindows() : nullptr;
    if (m_bDialogs && pWindows == nullptr) return Refuse("--dialogs: no screen, or no windows in this installation");
    if (m_strLogFile.empty()) return RunAnalyses(*job, m_out, pWindows.get());
    COutputFile log(m_strLogFile, OutputPlace::FileOrDevice);
    if (!log.IsOpen()) return RefuseToWrite(log);
    const int nStatus = RunAnalyses(*job, log.GetStream(), pWindows.get());
    if (log.Commit()) return nStatus;
    RefuseToWrite(log);
    return c_nExitAnalysisFailed;
  }

  int RunAnalyses(const Job& job, std::ostream& console, IPlatform* pWindows) {
    const bool bTerminal = &m_err == &std::cerr && IsErrorTerminal();
    const HostStreams streams{m_out, m_err, console, bTerminal ? &m_err : nullptr};
    if (!job.strTitle.empty()) m_out << EscapeControls(job.strTitle) << '\n';
    const RunOutcome outcome = RunJob(job, GetJobPath(m_strJobFile), m_strProgramPath, streams, pWindows);
    if (!outcome.bGood) return c_nExitAnalysisFailed;
    return m_bStrict && (outcome.bWarned || m_bInputWarned) ? c_nExitWarned : c_nExitGood;
  }

  int OnCheck() {
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    CNullBuffer nothing;
    std::ostream console(&nothing);
    return CheckJob(*job, {m_out, m_err, console}) ? c_nExitGood : c_nExitAnalysisFailed;
  }

  int OnPlot(const CLI::App& what, const CLI::Option& node, const CLI::Option& element) {
    const bool bHistory = node.count() + element.count() > 0;
    if (IsJobFile(m_strOutput)) return RefuseJobFile(m_strOutput);
    if (m_plot.bViewer && !bHistory) return Refuse("--viewer: belongs to --node or --element");
    using Kind = PlotRequest::Kind;
    m_plot.kind = what.count("--mode") > 0 ? Kind::Mode
                  : m_bDeformed            ? Kind::Deformed
                  : node.count() > 0       ? Kind::Node
                  : element.count() > 0    ? Kind::Element
                                           : Kind::Spectrum;
    const std::optional<Job> job = LoadJob();
    if (!job) return c_nExitBadInput;
    m_plot.numbers = {m_nPlotted};
    m_plot.directions = {m_nPlotDirection};
    const std::optional<std::string> strPicture = DrawPlot(*job, GetJobPath(m_strJobFile), m_plot, m_err);
    return strPicture ? Save(*strPicture) : c_nExitBadInput;
  }

  int OnSchema() {
    if (m_strTable.empty()) return Deliver(FormatJobSchema());
    const std::string strTable = FormatFieldTable(m_strTable, m_bChinese ? Language::Chinese : Language::English);
    return strTable.empty() ? Refuse(m_strTable + ": no such table") : Deliver(strTable);
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
    PrintProblems("generated job", check.errors, "", m_err);
    return check.errors.empty() ? Deliver(strText) : c_nExitBadInput;
  }

  int Deliver(const std::string& strText) {
    if (!m_strOutput.empty()) return Save(strText);
    m_out << strText;
    return c_nExitGood;
  }

  int Save(const std::string& strText) {
    COutputFile file(m_strOutput, OutputPlace::FileOrDevice);
    file.GetStream() << strText;
    return file.Commit() ? c_nExitGood : RefuseToWrite(file);
  }

  /// Whether an output would take the place of the job file, of a result or of an input beside it.
  [[nodiscard]] bool IsJobFile(const std::string& strOutput) const {
    const std::string strJobPath = GetJobPath(m_strJobFile);
    return IsSameFile(strOutput, m_strJobFile) ||
           std::ranges::any_of(c_strJobSuffixes, [&](std::string_view strSuffix) {
             return IsSameFile(strOutput, strJobPath + std::string(strSuffix));
           });
  }

  int RefuseJobFile(const std::string& strOutput) {
    return Refuse(strOutput + ": belongs to the job; choose another name");
  }

  int RefuseToWrite(const COutputFile& file) {
    return Refuse("cannot write " + file.GetPath() + ": " + file.GetError());
  }

  int Refuse(const std::string& strReason) {
    m_err << EscapeControls(strReason) << '\n';
    return c_nExitBadInput;
  }

  CLI::App m_app{"Dynamic and static analysis of space frames and trusses", "skyframe"};
  std::function<int()> m_action;
  std::ostream& m_out;
  std::ostream& m_err;

  std::string m_strJobFile;
  std::string m_strLogFile;
  std::string m_strProgramPath = FindDataDirectory();
  std::string m_strOutput;
  std::string m_strTable;
  PlotRequest m_plot;
  int m_nPlotted = 1;
  int m_nPlotDirection = 0;
  bool m_bDialogs = false;
  bool m_bStrict = false;
  bool m_bInputWarned = false;
  bool m_bSpectrum = false;
  bool m_bDeformed = false;
  bool m_bChinese = false;
  int m_nNodes = 0;
  BuildingParameters m_building;
  TowerParameters m_tower;
  DomeParameters m_dome;
  ArchParameters m_arch;
};

/// Whether all output has left the program; says so when not.
bool IsWritten(std::ostream& out, std::ostream& err) {
  errno = 0;
  if (out.flush()) return true;
  err << "cannot write the standard output";
  if (errno != 0) err << ": " << std::generic_category().message(errno);
  err << '\n';
  return false;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  try {
    const int nStatus = CCommandLine(out, err).Run(arguments);
    return IsWritten(out, err) || nStatus != c_nExitGood ? nStatus : c_nExitAnalysisFailed;
  } catch (const std::bad_alloc&) {
    err << "out of memory\n";
    return c_nExitAnalysisFailed;
  }
}

}  // namespace skyframe::host
