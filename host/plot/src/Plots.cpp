#include "skyframe/plot/Plots.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "skyframe/advice/Advice.h"
#include "skyframe/connect/Inquiries.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/results/Displacements.h"
#include "skyframe/results/Histories.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

constexpr std::array<const char*, 5> c_strRomanNumbers = {"", "I", "II", "III", "IV"};
constexpr int c_nLowestIntensity = 6;
constexpr double c_dLargestDrawn = 1.0e30;  // m, kN, s: what scales and pixels are formed from must stay finite

constexpr int c_nViewerWidth = 665;  // client area of the result viewer, pixels
constexpr int c_nViewerHeight = 300;

/// Settings of the spectrum analysis; what the job leaves out is what the dialog would show.
struct SpectrumChoice {
  SpectrumSite site;
  double dDamping = 0.0;
  int nModes = 0;
};

SpectrumChoice GetSpectrumChoice(const SpectrumJob& analysis) {
  SpectrumChoice choice;
  choice.site.m_nQuakeLevel = analysis.nLevel.value_or(COMDYN.m_nQuakeLevel);
  choice.site.m_nIntensity = analysis.nIntensity ? *analysis.nIntensity + c_nLowestIntensity : COMDYN.m_nIntensity;
  choice.site.m_nZoneGroup = analysis.nZoneGroup.value_or(COMDYN.m_nZoneGroup);
  choice.site.m_nSiteClass = analysis.nSiteClass.value_or(COMDYN.m_nSiteClass);
  choice.dDamping = analysis.dDamping.value_or(COMDYN.m_dDampRatio);
  choice.nModes = analysis.nModes.value_or(COMDYN.m_nExpandModes);
  return choice;
}

std::string DescribeSite(const SpectrumSite& site) {
  const auto strIntensity =
      std::string(c_strIntensities[static_cast<std::size_t>(site.m_nIntensity - c_nLowestIntensity)]);
  const auto strLevel = std::string(c_strQuakeLevels[static_cast<std::size_t>(site.m_nQuakeLevel)]);
  return Format("intensity %s, %s earthquake, site class %s, design group %d", strIntensity.c_str(), strLevel.c_str(),
                c_strRomanNumbers[static_cast<std::size_t>(site.m_nSiteClass)], site.m_nZoneGroup);
}

class CPlotter {
 public:
  CPlotter(const Job& job, const std::string& strJobPath, std::ostream& err)
      : m_job(job), m_strJobPath(strJobPath), m_err(err), m_platform(err, m_console) {}

  std::optional<std::string> Draw(const PlotRequest& request) {
    switch (request.kind) {
      case PlotRequest::Kind::Spectrum:
        return DrawSpectrum();
      case PlotRequest::Kind::Mode:
        return DrawMode(request.nNumber);
      case PlotRequest::Kind::Deformed:
        return DrawDeformed(request.bNonlinear);
      default:
        return DrawHistory(request);
    }
  }

 private:
  std::nullopt_t Refuse(const std::string& strReason) {
    m_err << EscapeControls(strReason) << '\n';
    return std::nullopt;
  }

  /// The path of a result file that exists.
  std::optional<std::string> FindFile(std::string_view strSuffix, const std::string& strAnalysis) {
    std::string strPath = m_strJobPath + std::string(strSuffix);
    std::error_code error;
    if (std::filesystem::is_regular_file(strPath, error)) return strPath;
    return Refuse(strPath + ": cannot be opened; it is written by the " + strAnalysis);
  }

  [[nodiscard]] std::string GetTitle() const {
    return m_job.strTitle.empty() ? std::filesystem::path(m_strJobPath).filename().string() : m_job.strTitle;
  }

  template <class Picture>
  static std::string Render(int nWidth, int nHeight, const Picture& picture,
                            void (*pPaint)(IPaintContext&, const Picture&)) {
    CSvgPaintContext paint(nWidth, nHeight);
    pPaint(paint, picture);
    return paint.GetDocument();
  }

  std::optional<ModeResultFile> LoadModes() {
    const auto strPath = FindFile(suffix::c_strModes, "modal analysis");
    if (!strPath) return std::nullopt;
    auto file = ReadModeResultFile(*strPath, m_job.nodes);
    if (!file) return Refuse(*strPath + ": " + file.strError);
    for (std::size_t i = 0; i < file->omega.size(); ++i) {
      const double omega = file->omega[i];
      if (omega > 0.0 && std::isnormal(omega * omega)) continue;  // what the module reads
      return Refuse(*strPath + Format(": the frequency of mode %zu is not a positive number, or out of range", i + 1));
    }
    return file;
  }

  std::optional<std::string> DrawSpectrum() {
    const SpectrumJob* pAnalysis = nullptr;
    for (const JobAnalysis& analysis : m_job.analyses) {
      if (pAnalysis == nullptr) pAnalysis = std::get_if<SpectrumJob>(&analysis);
    }
    if (pAnalysis == nullptr) return Refuse("the job has no response-spectrum analysis");
    const SpectrumChoice choice = GetSpectrumChoice(*pAnalysis);
    if (!EvaluateDesignSpectrum(choice.site, 0.0, choice.dDamping)) return std::nullopt;
    const auto file = LoadModes();
    if (!file) return std::nullopt;
    if (choice.nModes > static_cast<int>(file->omega.size())) {
      return Refuse(Format("%s.mode: %d modes are asked for; the file has %zu", m_strJobPath.c_str(), choice.nModes,
                           file->omega.size()));
    }
    SpectrumPicture picture;
    picture.site = choice.site;
    for (int i = 0; i < choice.nModes; ++i) {
      picture.periods.push_back(c_dTwoPi / file->omega[static_cast<std::size_t>(i)]);
    }
    picture.strTitle = GetTitle();
    picture.dDamping = choice.dDamping;
    picture.strSite = DescribeSite(choice.site);
    return Render(c_nChartWidth, c_nChartHeight, picture, PaintSpectrum);
  }

  /// What is restrained at every node, as out of plane in a plane structure, is no support.
  [[nodiscard]] std::array<int, 6> FindCommonRestraint() const {
    std::array<int, 6> common = m_job.nodes.front().restraint;
    for (const JobNode& node : m_job.nodes) {
      for (std::size_t d = 0; d < common.size(); ++d) common[d] = common[d] * node.restraint[d];
    }
    return common;
  }

  /// The structure at rest.
  [[nodiscard]] ShapePicture MakeShape() const {
    ShapePicture picture;
    picture.strTitle = GetTitle();
    const std::array<int, 6> common = FindCommonRestraint();
    for (const JobNode& node : m_job.nodes) {
      picture.nodes.push_back({node.dX, node.dY, node.dZ});
      picture.nodeIds.push_back(node.nId);
      picture.supports.push_back(node.nSpring || node.restraint != common);
    }
    for (const JobElement& element : m_job.elements)
      picture.members.push_back({element.nNodeI - 1, element.nNodeJ - 1, {}});
    picture.displacements.resize(picture.nodes.size());
    return picture;
  }

  /// Beams turn with rigid joints.
  void LetBeamsBend(ShapePicture& picture) const {
    for (std::size_t k = 0; k < m_job.elements.size(); ++k) {
      const JobElement& element = m_job.elements[k];
      const auto turns = [&](int nNode) {
        return element.nType == c_nBeam && m_job.nodes[static_cast<std::size_t>(nNode - 1)].nJoint == c_nRigid;
      };
      picture.members[k].turns = {turns(element.nNodeI), turns(element.nNodeJ)};
    }
  }

  /// False after a line about the first value that cannot be drawn.
  bool CheckValues(const std::vector<NodeValues>& values, const std::string& strFile) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (std::ranges::all_of(values[i], [](double d) { return std::abs(d) <= c_dLargestDrawn; })) continue;
      Refuse(strFile + ": the displacement of node " + std::to_string(m_job.nodes[i].nId) +
             " is not a finite number, or out of range");
      return false;
    }
    return true;
  }

  std::optional<std::string> DrawMode(int nMode) {
    const auto file = LoadModes();
    if (!file) return std::nullopt;
    const int nModes = static_cast<int>(file->omega.size());
    if (nMode < 1 || nMode > nModes) {
      return Refuse(Format("%s.mode: no mode %d; the file has %d", m_strJobPath.c_str(), nMode, nModes));
    }
    const auto i = static_cast<std::size_t>(nMode - 1);
    if (!CheckValues(file->shapes[i], m_strJobPath + std::string(suffix::c_strModes))) return std::nullopt;
    ShapePicture picture = MakeShape();
    LetBeamsBend(picture);
    picture.displacements = file->shapes[i];
    const double omega = file->omega[i];
    picture.strShape = Format("mode %d", nMode);
    picture.strSubtitle = Format("Mode %d of %d: frequency %.4g Hz, period %.4g s", nMode, nModes,
                                 omega * c_dHertzPerRadian, c_dTwoPi / omega);
    return Render(c_nSheetWidth, c_nSheetHeight, picture, PaintShape);
  }

  std::optional<std::string> DrawDeformed(bool bNonlinear) {
    const auto strPath = FindFile(bNonlinear ? suffix::c_strStaticNonlinear : suffix::c_strStaticLinear,
                                  bNonlinear ? "nonlinear static analysis" : "linear static analysis");
    if (!strPath) return std::nullopt;
    const auto file = ReadStaticResultFile(*strPath, m_job.nodes.size());
    if (!file) return Refuse(*strPath + ": " + file.strError);
    const std::vector<NodeValues>& displacements = file->displacements;
    if (!CheckValues(displacements, *strPath)) return std::nullopt;
    ShapePicture picture = MakeShape();
    picture.displacements = displacements;
    picture.bShowScale = true;
    picture.strShape = "deformed";
    const NodeValues& largest = displacements[FindLargestTranslation(displacements)];
    picture.strSubtitle = Format("Static analysis, %s: largest displacement %.4g mm",
                                 bNonlinear ? "nonlinear" : "linear", 1.0e3 * GetTranslation(largest));
    return Render(c_nSheetWidth, c_nSheetHeight, picture, PaintShape);
  }

  std::optional<HistoryChoice> FindCurve(const PlotRequest& request) {
    if (request.kind == PlotRequest::Kind::Element) {
      if (request.nNumber >= 1 && request.nNumber <= static_cast<int>(m_job.elements.size())) {
        return HistoryChoice{c_nHistoryForce, request.nNumber};
      }
      return Refuse(Format("no element %d; the job has %zu", request.nNumber, m_job.elements.size()));
    }
    for (std::size_t i = 0; i < m_job.nodes.size(); ++i) {
      if (m_job.nodes[i].nId != request.nNumber) continue;
      return HistoryChoice{c_nHistoryX + request.nDirection, static_cast<int>(i) + 1};
    }
    return Refuse(Format("no node has the id %d", request.nNumber));
  }

  std::optional<std::string> DrawHistory(const PlotRequest& request) {
    const std::optional<HistoryChoice> curve = FindCurve(request);
    if (!curve) return std::nullopt;
    const auto strPath = FindFile(suffix::c_strHistory, "time history under ground motion");
    if (!strPath) return std::nullopt;
    CSvgPaintContext viewer(c_nViewerWidth, c_nViewerHeight);
    std::optional<CSession> session = CSession::Open(m_job, m_strJobPath, "");
    if (!session) return Refuse("the path of the job file is too long");
    if (!session->PaintViewer(*curve, m_platform.Get(), viewer)) {
      return Refuse(*strPath + ": is damaged or belongs to another model");
    }
    const HistoryPicture picture = MakeHistory(request, *curve, session->GetHistories());
    const bool bElement = request.kind == PlotRequest::Kind::Element;
    const std::string strHolder = Format(bElement ? "element %d" : "node %d", request.nNumber);
    if (const std::string strFault = FindFault(picture, strHolder); !strFault.empty()) {
      return Refuse(*strPath + ": " + strFault);
    }
    return request.bViewer ? viewer.GetDocument() : Render(c_nChartWidth, c_nChartHeight, picture, PaintHistoryChart);
  }

  /// Why a history cannot be drawn; empty when it can.
  static std::string FindFault(const HistoryPicture& picture, const std::string& strHolder) {
    if (picture.values.empty()) return "holds no step";
    const double dDuration = picture.dTimeStep * static_cast<double>(picture.values.size());
    if (!(picture.dTimeStep > 0.0 && dDuration <= c_dLargestDrawn)) return "the time step is not a positive number";
    for (std::size_t k = 0; k < picture.values.size(); ++k) {
      if (std::abs(picture.values[k]) <= c_dLargestDrawn) continue;
      const double t = static_cast<double>(k + 1) * picture.dTimeStep;
      return picture.strQuantity + " of " + strHolder +
             Format(" is not a finite number, or out of range, at t = %g s", t);
    }
    return "";
  }

  /// In mm or kN.
  [[nodiscard]] HistoryPicture MakeHistory(const PlotRequest& request, const HistoryChoice& curve,
                                           const HistorySet& history) const {
    const bool bElement = curve.nQuantity == c_nHistoryForce;
    HistoryPicture picture;
    picture.strTitle = GetTitle();
    picture.strQuantity = bElement ? "axial force N, tension positive"
                                   : Format("displacement %c", "XYZ"[static_cast<std::size_t>(curve.nQuantity)]);
    picture.strUnit = bElement ? "kN" : "mm";
    picture.strSubtitle =
        Format("%s %d: time history, ", bElement ? "Element" : "Node", request.nNumber) + DescribeHistory(history);
    picture.dTimeStep = history.dTimeStep;
    const CHistoryTable& values = history.values[static_cast<std::size_t>(curve.nQuantity)];
    for (int k = 0; k < history.nSteps; ++k) {
      picture.values.push_back(values[k][curve.nNumber - 1] * (bElement ? 1.0e-3 : 1.0e3));
    }
    return picture;
  }

  const Job& m_job;
  const std::string& m_strJobPath;
  std::ostream& m_err;
  std::ostringstream m_console;  ///< trace lines of the module, of no use here
  CPlatformScope m_platform;
};

}  // namespace

std::optional<std::string> DrawPlot(const Job& job, const std::string& strJobPath, const PlotRequest& request,
                                    std::ostream& err) {
  return CPlotter(job, strJobPath, err).Draw(request);
}

}  // namespace skyframe::host
