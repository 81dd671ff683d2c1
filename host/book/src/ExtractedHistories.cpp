#include "ExtractedHistories.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "Figures.h"
#include "Pictures.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nMostPictures = 4;

bool LeavesNoFile(const JobAnalysis& analysis) {
  if (const auto* pNewmark = std::get_if<NewmarkJob>(&analysis)) return !pNewmark->HasGroundMotion();
  return std::holds_alternative<WilsonJob>(analysis);
}

const JobOutputs& GetOutputs(const JobAnalysis& analysis) {
  const auto* const pWilson = std::get_if<WilsonJob>(&analysis);
  return pWilson != nullptr ? pWilson->outputs : std::get<NewmarkJob>(analysis).outputs;
}

/// Files that the run wrote and that are there.
class CExtractReader {
 public:
  CExtractReader(const Job& job, const std::string& strJobPath, const CStamps& stamps, const ResultStamp& stamp)
      : m_strJobPath(strJobPath),
        m_stamps(stamps),
        m_stamp(stamp),
        m_model{static_cast<int>(job.nodes.size()), static_cast<int>(job.elements.size())} {}

  [[nodiscard]] std::vector<HistoryExtract> Read(const JobOutputs& outputs) {
    for (const JobOutputNode& node : outputs.nodes) {
      Add({c_nHistoryX + node.nDirection, node.nNode}, suffix::c_strNodeHistory);
    }
    for (const int nElement : outputs.elements) Add({c_nHistoryForce, nElement}, suffix::c_strElementHistory);
    return std::move(m_extracts);
  }

 private:
  void Add(const HistoryChoice& choice, std::string_view strSuffix) {
    const std::string strBehind = "_" + std::to_string(choice.nNumber) + std::string(strSuffix);
    if (!m_stamp.files.contains(strBehind)) return;  // another run has written it since
    const std::string strPath = m_strJobPath + strBehind;
    Reading<SingleHistory> history = ReadHistoryExtract(strPath, m_model);
    if (history && !m_stamps.Holds(m_stamp, strBehind)) {
      history.reset();
      history.strError = Say(texts::c_notOfRun);
    }
    m_extracts.push_back({FromFilePath(ToFilePath(strPath).filename()), choice, std::move(history)});
  }

  const std::string& m_strJobPath;
  const CStamps& m_stamps;
  const ResultStamp& m_stamp;
  HistoryModel m_model;
  std::vector<HistoryExtract> m_extracts;
};

std::string DescribePlace(const Job& job, const HistoryChoice& choice) {
  const std::string strNumber = std::to_string(choice.nNumber);
  if (choice.nQuantity == c_nHistoryForce) return Tell({"N of member {0} [kN]", "单元 {0} 轴力 N [kN]"}, {strNumber});
  return Tell({"displacement {0} of node {1} [mm]", "节点 {1} 的 {0} 向位移 [mm]"},
              {c_strAxes[static_cast<std::size_t>(choice.nQuantity)],
               GetNodeName(job, static_cast<std::size_t>(choice.nNumber - 1))});
}

void WritePeaks(CPage& page, const BookData& book, const ExtractedHistory& history) {
  PageTable table;
  table.strCaption = Tell({"Peaks of the histories written", "已输出时程的峰值"});
  table.head = {Tell({"File", "文件"}), Tell({"Quantity", "项目"}), Tell({"Peak", "峰值"}), "t [s]"};
  table.strAlign = "llrr";
  for (const HistoryExtract& extract : history.extracts) {
    if (!extract.history) {
      page.Warn("unread-result", Say(texts::c_notRead, {extract.strFile, extract.history.strError}));
      continue;
    }
    const std::vector<double>& values = extract.history->values;
    const auto it = std::ranges::max_element(values, {}, [](double d) { return std::abs(d); });
    if (it == values.end()) continue;
    const bool bForce = extract.choice.nQuantity == c_nHistoryForce;
    table.rows.push_back({extract.strFile, DescribePlace(book.job, extract.choice),
                          bForce ? FormatKilo(*it) : FormatMillimetres(*it),
                          FormatShort(static_cast<double>(it - values.begin() + 1) * extract.history->dTimeStep)});
  }
  if (!table.rows.empty()) page.Table(table);
}

void WriteParameters(CPage& page, const ExtractedHistory& history) {
  std::vector<std::pair<std::string, std::string>> facts = {{Tell({"Method", "积分方法"}), DescribeMethod(history)},
                                                            {Tell({"Computed", "计算时间"}), history.pStamp->strTime},
                                                            {Tell({"Files", "文件"}), ListFiles(history)}};
  const auto add = [&](const auto& analysis) {
    const auto whole = WithDefaults(analysis);
    facts.emplace_back(Tell({"Analysis", "分析类型"}), whole.bNonlinear.value_or(false)
                                                           ? Tell({"second order", "几何非线性"})
                                                           : Tell({"linear", "线性"}));
    if (whole.damping) {
      facts.emplace_back(Tell({"Damping ratios of the Rayleigh pair", "瑞利阻尼的两个阻尼比"}),
                         FormatShort((*whole.damping)[0]) + ", " + FormatShort((*whole.damping)[1]));
    }
    facts.emplace_back(Tell({"Mass", "换算质量"}), DescribeCombination(whole.combination));
  };
  if (const auto* pWilson = std::get_if<WilsonJob>(&history.analysis)) add(*pWilson);
  if (const auto* pNewmark = std::get_if<NewmarkJob>(&history.analysis)) add(*pNewmark);
  const auto it = std::ranges::find_if(history.extracts, [](const HistoryExtract& e) { return e.history.has_value(); });
  if (it != history.extracts.end()) {
    const SingleHistory& run = *it->history;
    facts.emplace_back(Tell({"Time step, duration", "步长、时长"}),
                       Format("%g s, %g s", run.dTimeStep, run.nSteps * run.dTimeStep));
  }
  page.Facts(facts);
}

}  // namespace

std::vector<ExtractedHistory> CollectExtracts(const Job& job, const std::string& strJobPath, const CStamps& stamps) {
  std::vector<ExtractedHistory> histories;
  const std::string strMark = FormModelMark(job);
  for (const ResultStamp& stamp : stamps.GetAll()) {
    const std::optional<JobAnalysis> analysis = ParseAnalysis(stamp.strAnalysis, job);
    if (!analysis || !LeavesNoFile(*analysis)) continue;
    histories.push_back({*analysis, &stamp, stamp.strModel != strMark,
                         CExtractReader(job, strJobPath, stamps, stamp).Read(GetOutputs(*analysis))});
  }
  for (const JobAnalysis& analysis : job.analyses) {
    const auto isSame = [&](const ExtractedHistory& known) { return MeanTheSame(known.analysis, analysis); };
    if (!LeavesNoFile(analysis) || std::ranges::any_of(histories, isSame)) continue;
    histories.push_back({analysis, nullptr, false, {}});
  }
  return histories;
}

std::string DescribeMethod(const ExtractedHistory& history) {
  return std::holds_alternative<WilsonJob>(history.analysis) ? "Wilson"
                                                             : Tell({"Newmark, nodal forces", "Newmark，节点荷载"});
}

std::string ListFiles(const ExtractedHistory& history) {
  std::string strFiles;
  for (const HistoryExtract& extract : history.extracts) strFiles += (strFiles.empty() ? "" : ", ") + extract.strFile;
  return strFiles.empty() ? "—" : strFiles;
}

void WriteExtracts(CPage& page, const BookData& book, const ExtractedHistory& history) {
  page.Section(DescribeMethod(history));
  if (history.pStamp == nullptr) {
    return page.Text(
        Tell({"This method leaves no file of all its histories, only those that \"outputs\" asks for. "
              "None is known of this analysis: whether it ran is not known.",
              "该方法不保留全部时程，只写出 \"outputs\" 指定的结果。没有已知的输出文件，不知道是否已计算。"}));
  }
  if (history.bOutdated)
    page.Warn("outdated-result", Say(texts::c_outdated, {ListFiles(history), history.pStamp->strTime}));
  page.Text(Tell({"This method leaves no file of all its histories, only those that \"outputs\" asks for.",
                  "该方法不保留全部时程，只写出 \"outputs\" 指定的结果。"}));
  WriteParameters(page, history);
  WritePeaks(page, book, history);
  std::size_t nPictures = 0;
  for (const HistoryExtract& extract : history.extracts) {
    if (!extract.history || extract.history->values.empty() || ++nPictures > c_nMostPictures) continue;
    const std::string strPlace = DescribePlace(book.job, extract.choice);
    page.Figure(strPlace, DrawExtract(book, extract, strPlace), 0.9);
  }
}

}  // namespace skyframe::host
