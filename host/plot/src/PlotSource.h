#pragma once

#include <optional>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include "skyframe/job/Language.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/results/HistoryResultFile.h"
#include "skyframe/results/ModeResultFile.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/SpectrumResultFile.h"
#include "skyframe/results/StaticResultFile.h"
#include "skyframe/run/PlatformScope.h"

namespace skyframe::host {

/// A job with its result files. What they do not have is told on a stream.
class CPlotSource {
 public:
  CPlotSource(const Job& job, const std::string& strJobPath, std::ostream& err)
      : m_job(job), m_strJobPath(strJobPath), m_err(err), m_platform(err, m_console) {}

  [[nodiscard]] const Job& GetJob() const { return m_job; }
  [[nodiscard]] const std::string& GetJobPath() const { return m_strJobPath; }
  [[nodiscard]] CHostPlatform& GetOwnPlatform() { return m_platform.Get(); }
  /// Says so when a file that was found comes from another model.
  [[nodiscard]] std::string GetTitle() const;
  [[nodiscard]] HistoryModel GetHistoryModel() const;
  [[nodiscard]] StructureSize GetSize() const { return {m_job.nodes.size(), m_job.elements.size()}; }

  std::nullopt_t Refuse(std::string_view strReason);
  /// Of a file: the reason stands behind its path.
  std::nullopt_t Refuse(const std::string& strPath, std::string_view strReason);

  [[nodiscard]] bool HasFile(std::string_view strSuffix) const;
  /// The path of a result file that exists. A warning when it comes from another model than the job.
  std::optional<std::string> FindFile(std::string_view strSuffix, const Words& analysis);
  /// What a reader found in a file, or nothing after the reason was told.
  template <class Content>
  std::optional<Content> Take(const std::string& strPath, Reading<Content> reading) {
    if (!reading) return Refuse(strPath, reading.strError);
    return *std::move(reading);
  }

  std::optional<ModeResultFile> LoadModes();
  std::optional<StaticResultFile> LoadStatic(ResultKind kind);

 private:
  const Job& m_job;
  const std::string& m_strJobPath;
  std::ostream& m_err;
  bool m_bOutdated = false;        ///< a file comes from another model
  std::set<std::string> m_warned;  ///< what was told already
  std::ostringstream m_console;    ///< trace lines of the module, of no use here
  CPlatformScope m_platform;
};

// The pictures, by kind.
std::optional<std::string> DrawSpectrum(CPlotSource& source);
std::optional<std::string> DrawMode(CPlotSource& source, const PlotRequest& request);
std::optional<std::string> DrawDeformed(CPlotSource& source, const PlotRequest& request);
std::optional<std::string> DrawHistory(CPlotSource& source, const PlotRequest& request);
/// Diagrams, colours and reactions.
std::optional<std::string> DrawForces(CPlotSource& source, const PlotRequest& request);
std::optional<std::string> DrawLoads(CPlotSource& source, const PlotRequest& request);

/// Without loads and results.
std::optional<std::string> DrawStructure(CPlotSource& source, const PlotRequest& request);

/// As an SVG document. paint is a function of a paint context.
template <class Paint>
std::string Render(PictureSize size, Paint paint) {
  CSvgPaintContext context(size.nWidth, size.nHeight);
  paint(context);
  return context.GetDocument();
}

}  // namespace skyframe::host
