#include "skyframe/host/Plots.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "Chart.h"
#include "Format.h"
#include "ModeLoader.h"
#include "Pictures.h"
#include "PlatformScope.h"
#include "Records.h"
#include "StaticResultFile.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/history/HistoryPlot.h"
#include "skyframe/host/Scripts.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/modal/ModeFile.h"

namespace skyframe::host {

namespace {

constexpr std::array<const char*, 5> c_strRomanNumbers = {"", "I", "II", "III", "IV"};
constexpr int c_nLowestIntensity = 6;

/// Node or element, what it shows, and the set's method: "Node 11, displacement X; Newmark, linear, 1000 steps of 0.02
/// s".
std::string DescribeRun(const HistorySet& history) {
  return Format("%s, %s, %d steps of %g s", history.nMethod == c_nNewmarkMethod ? "Newmark" : "Wilson",
                history.nAssumption == 1 ? "nonlinear" : "linear", history.nSteps, history.dTimeStep);
}

class CPlotter {
 public:
  CPlotter(const Job& job, const std::string& strJobPath, std::ostream& err)
      : m_job(job), m_strJobPath(strJobPath), m_err(err), m_platform(err, m_console) {}

  std::optional<std::string> Draw(const PlotRequest& request) {
    if (!FillRecords(m_job, m_strJobPath, "")) return Refuse("the path of the job file is too long");
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
    m_err << strReason << '\n';
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

  std::unique_ptr<CAnalysisModel> LoadModeFile(const JobCombination& combination, int nModes) {
    const auto strPath = FindFile(".mode", "modal analysis");
    auto pModel = strPath ? LoadModes(combination, m_strJobPath, nModes) : nullptr;
    if (strPath && !pModel) Refuse(*strPath + ": cannot be read");
    return pModel;
  }

  /// Lets the dialog fill in what the job leaves out; the host's record then holds all settings.
  bool FillSpectrumSettings(const SpectrumJob& analysis) {
    AddScripts(analysis, m_platform.Get());
    CSpectrumDlg dialog;
    dialog.m_loadComb.nLoadTypes = ABCD.m_nLoadCases + 1;
    return dialog.DoModal() == c_nIdOk;
  }

  std::optional<std::string> DrawSpectrum() {
    const SpectrumJob* pAnalysis = nullptr;
    for (const JobAnalysis& analysis : m_job.analyses) {
      if (pAnalysis == nullptr) pAnalysis = std::get_if<SpectrumJob>(&analysis);
    }
    if (pAnalysis == nullptr) return Refuse("the job has no response-spectrum analysis");
    if (!FillSpectrumSettings(*pAnalysis)) return Refuse("the dialog does not take the job's values");
    SpectrumPicture picture;
    picture.site = {COMDYN.m_nQuakeLevel, COMDYN.m_nIntensity, COMDYN.m_nZoneGroup, COMDYN.m_nSiteClass};
    if (const auto strError = FindSiteError(picture.site)) return Refuse(std::string(*strError));
    const auto pModel = LoadModeFile(pAnalysis->combination, COMDYN.m_nExpandModes);
    if (!pModel) return std::nullopt;
    for (int i = 0; i < COMDYN.m_nExpandModes; ++i) {
      picture.periods.push_back(c_dTwoPi / pModel->Omega[static_cast<std::size_t>(i)]);
    }
    picture.strTitle = GetTitle();
    picture.dDamping = COMDYN.m_dDampRatio;
    const auto strIntensity =
        std::string(c_strIntensities[static_cast<std::size_t>(COMDYN.m_nIntensity - c_nLowestIntensity)]);
    const auto strLevel = std::string(c_strQuakeLevels[static_cast<std::size_t>(COMDYN.m_nQuakeLevel)]);
    picture.strSite =
        Format("intensity %s, %s earthquake, site class %s, design group %d", strIntensity.c_str(), strLevel.c_str(),
               c_strRomanNumbers[static_cast<std::size_t>(COMDYN.m_nSiteClass)], COMDYN.m_nZoneGroup);
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

  std::optional<std::string> DrawMode(int nMode) {
    const auto pModel = LoadModeFile({}, 0);
    if (!pModel) return std::nullopt;
    const int nModes = static_cast<int>(pModel->Omega.size());
    if (nMode < 1 || nMode > nModes) {
      return Refuse(Format("%s.mode: no mode %d; the file has %d", m_strJobPath.c_str(), nMode, nModes));
    }
    ShapePicture picture = MakeShape();
    LetBeamsBend(picture);
    std::vector<double> shape;
    shape.reserve(static_cast<std::size_t>(pModel->GetFreeDofs()));
    for (int e = 0; e < pModel->GetFreeDofs(); ++e) shape.push_back(pModel->ModeShapes[e][nMode - 1]);
    for (std::size_t i = 0; i < picture.nodes.size(); ++i) {
      for (int d = 0; d < c_nDofsPerNode; ++d) {
        picture.displacements[i][static_cast<std::size_t>(d)] =
            pModel->GetNodes().GetValue(shape, static_cast<int>(i), d);
      }
    }
    const double omega = pModel->Omega[static_cast<std::size_t>(nMode - 1)];
    picture.strShape = Format("mode %d", nMode);
    picture.strSubtitle = Format("Mode %d of %d: frequency %.4g Hz, period %.4g s", nMode, nModes,
                                 omega * c_dHertzPerRadian, c_dTwoPi / omega);
    return Render(c_nSheetWidth, c_nSheetHeight, picture, PaintShape);
  }

  std::optional<std::string> DrawDeformed(bool bNonlinear) {
    const auto strPath = FindFile(bNonlinear ? "_StaticNonlinearSol.txt" : "_StaticLinearSol.txt",
                                  bNonlinear ? "nonlinear static analysis" : "linear static analysis");
    if (!strPath) return std::nullopt;
    const auto result = ReadStaticResultFile(*strPath);
    if (!result || result->displacements.size() != m_job.nodes.size()) {
      return Refuse(*strPath + ": is damaged or belongs to another model");
    }
    ShapePicture picture = MakeShape();
    double dLargest = 0.0;
    for (std::size_t i = 0; i < picture.nodes.size(); ++i) {
      const std::array<double, 3>& u = result->displacements[i];
      picture.displacements[i] = {u[0], u[1], u[2], 0.0, 0.0, 0.0};
      dLargest = std::max(dLargest, std::hypot(u[0], u[1], u[2]));
    }
    picture.bShowScale = true;
    picture.strShape = "deformed";
    picture.strSubtitle = Format("Static analysis, %s: largest displacement %.4g mm",
                                 bNonlinear ? "nonlinear" : "linear", 1.0e3 * dLargest);
    return Render(c_nSheetWidth, c_nSheetHeight, picture, PaintShape);
  }

  std::optional<HistoryCurve> FindCurve(const PlotRequest& request) {
    if (request.kind == PlotRequest::Kind::Element) {
      if (request.nNumber >= 1 && request.nNumber <= static_cast<int>(m_job.elements.size())) {
        return HistoryCurve{c_nHistoryForce, request.nNumber};
      }
      return Refuse(Format("no element %d; the job has %zu", request.nNumber, m_job.elements.size()));
    }
    for (std::size_t i = 0; i < m_job.nodes.size(); ++i) {
      if (m_job.nodes[i].nId != request.nNumber) continue;
      return HistoryCurve{c_nHistoryX + request.nDirection, static_cast<int>(i) + 1};
    }
    return Refuse(Format("no node has the id %d", request.nNumber));
  }

  std::optional<std::string> DrawHistory(const PlotRequest& request) {
    const std::optional<HistoryCurve> curve = FindCurve(request);
    if (!curve) return std::nullopt;
    const auto strPath = FindFile("_HisTime.txt", "time history under ground motion");
    if (!strPath) return std::nullopt;
    HistorySet history;
    if (!ReadHistoryFile(history)) return Refuse(*strPath + ": is damaged or belongs to another model");
    if (request.bViewer) {
      CSvgPaintContext paint(c_nViewerWidth, c_nViewerHeight);
      PaintHistory(paint, history, *curve);
      return paint.GetDocument();
    }
    return Render(c_nChartWidth, c_nChartHeight, MakeHistory(request, *curve, history), PaintHistoryChart);
  }

  /// In mm or kN.
  [[nodiscard]] HistoryPicture MakeHistory(const PlotRequest& request, const HistoryCurve& curve,
                                           const HistorySet& history) const {
    const bool bElement = curve.nQuantity == c_nHistoryForce;
    HistoryPicture picture;
    picture.strTitle = GetTitle();
    picture.strQuantity = bElement ? "axial force N, tension positive"
                                   : Format("displacement %c", "XYZ"[static_cast<std::size_t>(curve.nQuantity)]);
    picture.strUnit = bElement ? "kN" : "mm";
    picture.strSubtitle =
        Format("%s %d: time history, ", bElement ? "Element" : "Node", request.nNumber) + DescribeRun(history);
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
