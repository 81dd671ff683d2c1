#include "skyframe/plot/Plots.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/results/Histories.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

constexpr std::array<const char*, 5> c_strRomanNumbers = {"", "I", "II", "III", "IV"};

constexpr int c_nViewerWidth = 665;  // client area of the result viewer, pixels
constexpr int c_nViewerHeight = 300;

/// Settings of the spectrum analysis; what the job leaves out is what the dialog would show.
struct SpectrumChoice {
  SpectrumSite site;
  double dDamping = 0.0;
  int nModes = 0;
};

SpectrumChoice GetSpectrumChoice(const SpectrumJob& analysis) {
  const SpectrumJob whole = WithDefaults(analysis);
  SpectrumChoice choice;
  choice.site.m_nQuakeLevel = *whole.nLevel;
  choice.site.m_nIntensity = *whole.nIntensity + c_nLowestIntensity;
  choice.site.m_nZoneGroup = *whole.nZoneGroup;
  choice.site.m_nSiteClass = *whole.nSiteClass;
  choice.dDamping = *whole.dDamping;
  choice.nModes = *whole.nModes;
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
    if (std::filesystem::is_regular_file(ToFilePath(strPath), error)) return strPath;
    return Refuse(strPath + ": cannot be opened; it is written by the " + strAnalysis);
  }

  [[nodiscard]] std::string GetTitle() const {
    return m_job.strTitle.empty() ? FromFilePath(ToFilePath(m_strJobPath).filename()) : m_job.strTitle;
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
      return Refuse(*strPath + ": the frequency of mode " + std::to_string(i + 1) +
                    " is not a positive number, or out of range");
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
      return Refuse(m_strJobPath + Format(".mode: %d modes are asked for; the file has ", choice.nModes) +
                    std::to_string(file->omega.size()));
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

  /// The structure with one of its shapes; nothing after a line about the first value that cannot be drawn.
  std::optional<ShapePicture> MakeShapePicture(DeformedShape shape, const std::string& strFile) {
    if (const std::optional<int> nNode = shape.FindUndrawableNode()) {
      return Refuse(strFile + ": the displacement of node " +
                    std::to_string(m_job.nodes[static_cast<std::size_t>(*nNode)].nId) +
                    " is not a finite number, or out of range");
    }
    ShapePicture picture;
    picture.strTitle = GetTitle();
    picture.scene = CScene(m_job);
    picture.shape = std::move(shape);
    return picture;
  }

  std::optional<std::string> DrawMode(int nMode) {
    const auto file = LoadModes();
    if (!file) return std::nullopt;
    const int nModes = static_cast<int>(file->omega.size());
    if (nMode < 1 || nMode > nModes) {
      return Refuse(Format("%s.mode: no mode %d; the file has %d", m_strJobPath.c_str(), nMode, nModes));
    }
    auto picture = MakeShapePicture(FormModeShape(*file, nMode), m_strJobPath + std::string(suffix::c_strModes));
    if (!picture) return std::nullopt;
    const double omega = picture->shape.dOmega;
    picture->strShape = Format("mode %d", nMode);
    picture->strSubtitle = Format("Mode %d of %d: frequency %.4g Hz, period %.4g s", nMode, nModes,
                                  omega * c_dHertzPerRadian, c_dTwoPi / omega);
    return Render(c_nSheetWidth, c_nSheetHeight, *picture, PaintShape);
  }

  std::optional<std::string> DrawDeformed(bool bNonlinear) {
    const auto strPath = FindFile(bNonlinear ? suffix::c_strStaticNonlinear : suffix::c_strStaticLinear,
                                  bNonlinear ? "nonlinear static analysis" : "linear static analysis");
    if (!strPath) return std::nullopt;
    auto file = ReadStaticResultFile(*strPath, m_job.nodes.size());
    if (!file) return Refuse(*strPath + ": " + file.strError);
    auto picture = MakeShapePicture(FormStaticShape(*std::move(file)), *strPath);
    if (!picture) return std::nullopt;
    picture->strShape = "deformed";
    picture->strSubtitle = Format("Static analysis, %s: largest displacement %.4g mm",
                                  bNonlinear ? "nonlinear" : "linear", 1.0e3 * picture->shape.GetLargestTranslation());
    return Render(c_nSheetWidth, c_nSheetHeight, *picture, PaintShape);
  }

  std::optional<HistoryChoice> FindCurve(const PlotRequest& request) {
    if (request.kind == PlotRequest::Kind::Element) {
      if (request.nNumber >= 1 && request.nNumber <= static_cast<int>(m_job.elements.size())) {
        return HistoryChoice{c_nHistoryForce, request.nNumber};
      }
      return Refuse(Format("no element %d; the job has ", request.nNumber) + std::to_string(m_job.elements.size()));
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
    const HistoryModel model = {static_cast<int>(m_job.nodes.size()), static_cast<int>(m_job.elements.size())};
    const auto history = ReadHistory(*strPath, model, *curve);
    if (!history) return Refuse(*strPath + ": " + history.strError);
    const HistoryPicture picture = MakeHistory(request, *history);
    const bool bElement = request.kind == PlotRequest::Kind::Element;
    const std::string strHolder = Format(bElement ? "element %d" : "node %d", request.nNumber);
    if (const std::string strFault = FindFault(picture, strHolder); !strFault.empty()) {
      return Refuse(*strPath + ": " + strFault);
    }
    return request.bViewer ? DrawViewer(*curve) : Render(c_nChartWidth, c_nChartHeight, picture, PaintHistoryChart);
  }

  /// The module's own picture of a history.
  std::optional<std::string> DrawViewer(const HistoryChoice& curve) {
    std::optional<CSession> session = CSession::Open(m_job, m_strJobPath, "");
    if (!session) return Refuse("the path of the job file is too long");
    CSvgPaintContext paint(c_nViewerWidth, c_nViewerHeight);
    return session->PaintViewer(curve, m_platform.Get(), paint) ? std::optional(paint.GetDocument()) : std::nullopt;
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
  [[nodiscard]] HistoryPicture MakeHistory(const PlotRequest& request, const SingleHistory& history) const {
    const bool bElement = history.nQuantity == c_nHistoryForce;
    HistoryPicture picture;
    picture.strTitle = GetTitle();
    picture.strQuantity = bElement ? "axial force N, tension positive"
                                   : Format("displacement %c", "XYZ"[static_cast<std::size_t>(history.nQuantity)]);
    picture.strUnit = bElement ? "kN" : "mm";
    picture.strSubtitle =
        Format("%s %d: time history, ", bElement ? "Element" : "Node", request.nNumber) + DescribeHistory(history);
    picture.dTimeStep = history.dTimeStep;
    for (const double dValue : history.values) picture.values.push_back(dValue * (bElement ? 1.0e-3 : 1.0e3));
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
