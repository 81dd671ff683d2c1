#include "skyframe/job/JobFile.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <new>
#include <unordered_map>
#include <unordered_set>

#include "AnalysisReader.h"
#include "DoubtfulInput.h"
#include "JobCapacities.h"
#include "JobReader.h"
#include "ReportFields.h"
#include "skyframe/job/Places.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/values/Capacities.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::uintmax_t c_nMaxFileSize = std::uintmax_t{256} << 20U;
/// Stands for a coordinate in error; such a place coincides with no other.
constexpr double c_dUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view c_strJobSuffix = ".json";

/// Turns the tree into a job, part by part; every error is noted and reading goes on.
class CJobParser {
 public:
  CJobParser(const CJsonTree& tree, JobFile& file)
      : m_root(tree.GetRoot(), file.errors), m_file(file), m_job(file.job) {}

  void Parse() {
    m_root.Text("$schema", Need::Optional);  // for editors
    m_job.strTitle = m_root.Text("title", Need::Optional).value_or("");
    ReadSprings();
    ReadNodes();
    ReadSections();
    ReadElements();
    ReadInclinedSupports();
    ReadLoads();
    ReadAnalyses();
    ReadReport();
    m_root.ReportUnknownKeys();
  }

 private:
  using Places = std::unordered_map<int, int>;  ///< host number by node id

  /// Calls the reader with each entry's object.
  template <class Reader>
  void ForEach(std::string_view strKey, Need need, Reader reader) {
    const std::optional<CJsonValue> array = m_root.Array(strKey, need);
    if (!array) return;
    for (const CJsonValue entry : *array) {
      if (HasTooMany(m_file.errors)) return;
      CJobObject object(entry, m_file.errors);
      reader(object);
      object.ReportUnknownKeys();
    }
  }

  void ReadSprings() {
    ForEach("springs", Need::Optional, [this](CJobObject& object) {
      JobSpring spring;
      const std::optional<int> nGroup = object.Integer("group", Need::Required, 0, c_nMaxSpringGroups);
      spring.nGroup = nGroup.value_or(0);
      spring.dKx = object.Number("kx", Need::Optional).value_or(0.0);
      spring.dKy = object.Number("ky", Need::Optional).value_or(0.0);
      spring.dKz = object.Number("kz", Need::Optional).value_or(0.0);
      if (nGroup && !m_springGroups.insert(*nGroup).second) object.Error("group", Say(texts::c_springGroupTwice));
      m_job.springs.push_back(spring);
    });
  }

  void ReadNodes() {
    ForEach("nodes", Need::Required, [this](CJobObject& object) {
      JobNode node;
      const std::optional<int> nId = object.Integer("id", Need::Required, 1);
      node.nId = nId.value_or(0);
      node.dX = object.Number("x", Need::Required).value_or(c_dUnknown);
      node.dY = object.Number("y", Need::Required).value_or(c_dUnknown);
      node.dZ = object.Number("z", Need::Required).value_or(c_dUnknown);
      node.nJoint = object.Word("joint", Need::Optional, c_strJoints).value_or(c_nRigid);
      ReadSupport(object, node);
      m_job.nodes.push_back(node);
      if (nId && !m_numberOfId.emplace(*nId, static_cast<int>(m_job.nodes.size())).second) {
        object.Error("id", Say(texts::c_nodeTwice, {std::to_string(*nId)}));
      }
    });
  }

  void ReadSupport(CJobObject& object, JobNode& node) {
    if (const auto strRestraint = object.Text("restraint", Need::Optional)) {
      if (strRestraint->size() != 6 || strRestraint->find_first_not_of("01") != std::string::npos) {
        object.Error("restraint", Say(texts::c_notRestraint, {Quote(*strRestraint)}));
      } else {
        for (std::size_t d = 0; d < 6; ++d) node.restraint[d] = (*strRestraint)[d] - '0';
      }
    }
    node.nSpring = object.Integer("spring", Need::Optional, 0, c_nMaxSpringGroups);
    if (!node.nSpring) return;
    if (object.Has("restraint")) object.Error("spring", Say(texts::c_twoSupports));
    if (!m_springGroups.contains(*node.nSpring)) {
      object.Error("spring", Say(texts::c_noSpringGroup, {std::to_string(*node.nSpring)}));
    }
  }

  void ReadSections() {
    ForEach("sections", Need::Optional, [this](CJobObject& object) {
      JobSection section;
      const std::optional<std::string_view> strId = object.Text("id", Need::Required);
      section.strId = strId.value_or("");
      section.nShape = object.Integer("shape", Need::Optional, 1, 6).value_or(1);
      section.dArea = object.NumberAtLeast("area", Need::Required, 0.0).value_or(0.0);
      section.dIx = object.NumberAtLeast("Ix", Need::Optional, 0.0).value_or(0.0);
      section.dIy = object.NumberAtLeast("Iy", Need::Optional, 0.0).value_or(0.0);
      section.dIz = object.NumberAtLeast("Iz", Need::Optional, 0.0).value_or(0.0);
      if (strId && !m_placeOfSection.emplace(*strId, static_cast<int>(m_job.sections.size())).second) {
        object.Error("id", Say(texts::c_sectionTwice, {Quote(*strId)}));
      }
      m_job.sections.push_back(section);
    });
  }

  void ReadElements() {
    ForEach("elements", Need::Required, [this](CJobObject& object) {
      JobElement element;
      element.nType = object.Word("type", Need::Required, c_strElementTypes).value_or(c_nBar);
      element.nNodeI = ReadNode(object, "i");
      element.nNodeJ = ReadNode(object, "j");
      element.nSection = ReadSectionPlace(object);
      m_job.elements.push_back(element);
      if (element.nNodeI > 0 && element.nNodeJ > 0) CheckLength(object, element);
    });
  }

  /// Host number of the node with the id, 0 when there is none.
  int ReadNode(CJobObject& object, std::string_view strKey) {
    const std::optional<int> nId = object.Integer(strKey, Need::Required);
    if (!nId) return 0;
    const auto it = m_numberOfId.find(*nId);
    if (it != m_numberOfId.end()) return it->second;
    object.Error(strKey, Say(texts::c_noSuchNode, {std::to_string(*nId)}));
    return 0;
  }

  int ReadSectionPlace(CJobObject& object) {
    const std::optional<std::string_view> strId = object.Text("section", Need::Required);
    if (!strId) return 0;
    const auto it = m_placeOfSection.find(*strId);
    if (it != m_placeOfSection.end()) return it->second;
    object.Error("section", Say(texts::c_noSuchSection, {Quote(*strId)}));
    return 0;
  }

  void CheckLength(CJobObject& object, const JobElement& element) {
    if (element.nNodeI == element.nNodeJ) {
      object.Error("j", Say(texts::c_sameEnds, {std::to_string(m_job.nodes[element.nNodeJ - 1].nId)}));
    } else if (HaveSamePlace(m_job.nodes[element.nNodeI - 1], m_job.nodes[element.nNodeJ - 1])) {
      object.Error("j", Say(texts::c_zeroLength));
    }
  }

  void ReadInclinedSupports() {
    const std::optional<CJsonValue> array = m_root.Array("inclined_supports", Need::Optional);
    if (!array) return;
    std::unordered_set<int> seen;
    for (const CJsonValue value : *array) {
      const auto it = value.IsInteger() ? m_numberOfId.find(ClampToInt(value)) : m_numberOfId.end();
      if (it == m_numberOfId.end()) {
        AddError(m_file.errors, {value.GetPlace(), std::string(Say(texts::c_notNode))});
      } else if (!seen.insert(it->second).second) {
        AddError(m_file.errors, {value.GetPlace(), Say(texts::c_listedTwice, {std::to_string(it->first)})});
      } else {
        m_job.inclinedSupports.push_back(it->second);
      }
    }
  }

  /// Numbers that are no int become 0, which is no node id.
  static int ClampToInt(CJsonValue value) {
    const std::int64_t nValue = value.GetInteger();
    return nValue >= 1 && nValue <= std::numeric_limits<int>::max() ? static_cast<int>(nValue) : 0;
  }

  void ReadLoads() {
    ForEach("loads", Need::Optional, [this](CJobObject& object) {
      JobLoad load;
      const std::optional<int> nCase = object.Integer("case", Need::Required, 0, c_nLoadTypes - 1);
      m_bCasesKnown = m_bCasesKnown && nCase;
      load.nCase = nCase.value_or(0);
      load.nNode = ReadNode(object, "node");
      const std::optional<int> nDirection = object.Word("direction", Need::Required, c_strDirections);
      load.nDirection = nDirection.value_or(0);
      load.dValue = object.Number("value", Need::Required).value_or(0.0);
      if (load.nNode > 0 && load.nDirection >= 3 && m_job.nodes[load.nNode - 1].nJoint == c_nPinned) {
        object.Error("direction", Say(texts::c_pinnedMoment, {std::to_string(m_job.nodes[load.nNode - 1].nId)}));
      }
      m_job.loads.push_back(load);
    });
    CheckFillers(m_job.FindEmptyCases().size());
  }

  void CheckFillers(std::size_t nFillers) {
    if (m_job.loads.size() + nFillers <= c_nMaxLoads) return;
    m_root.Error("loads", Say(texts::c_tooManyFillers, {std::to_string(m_job.loads.size()), std::to_string(nFillers),
                                                        std::to_string(c_nMaxLoads)}));
  }

  void ReadAnalyses() {
    const AnalysisContext context{m_bCasesKnown ? m_job.GetHighestCase() : c_nLoadTypes - 1,
                                  static_cast<int>(m_job.elements.size()), m_numberOfId};
    ForEach("analyses", Need::Optional, [this, &context](CJobObject& object) {
      if (auto analysis = ReadAnalysis(object, context)) m_job.analyses.push_back(*std::move(analysis));
    });
  }

  void ReadReport() {
    std::optional<CJobObject> object = m_root.Object("report", Need::Optional);
    if (!object) return;
    m_job.report = ReadReportFields(*object);
    for (const double dLevel : m_job.report.storeys) {
      const auto IsAtLevel = [dLevel](const JobNode& node) { return std::abs(node.dZ - dLevel) <= c_dLevelTolerance; };
      if (std::ranges::any_of(m_job.nodes, IsAtLevel)) continue;
      object->Error("storeys", Say(texts::c_emptyLevel, {FormatNumber(dLevel)}));
    }
  }

  CJobObject m_root;
  JobFile& m_file;
  Job& m_job;
  Places m_numberOfId;
  bool m_bCasesKnown = true;  ///< no load has an error in its case
  std::unordered_set<int> m_springGroups;
  std::unordered_map<std::string_view, int> m_placeOfSection;
};

JobFile Refuse(const Words& words) {
  JobFile file;
  file.errors.push_back({"", std::string(Say(words))});
  return file;
}

/// What the reader returns; a lack of memory is an error like others.
template <class Reader>
JobFile ReadWithinMemory(Reader reader) {
  try {
    return reader();
  } catch (const std::bad_alloc&) {
    return Refuse(texts::c_outOfMemory);
  }
}

JobFile ParseText(std::string_view strText, const std::string& strJobPath) {
  JobFile file;
  CJsonTree tree;
  if (ParseJson(strText, c_capacities, tree, file.errors)) CJobParser(tree, file).Parse();
  if (HasTooMany(file.errors)) {
    file.errors.push_back({"", Say(texts::c_tooManyErrors, {std::to_string(c_nMostErrors)})});
  }
  if (file.errors.empty()) file.warnings = FindDoubtfulInput(file.job, strJobPath);
  return file;
}

/// Whether the module would take the name for another: result files are named like the job.
bool HasForeignSeparator(const std::string& strPath) {
  return std::filesystem::path::preferred_separator != '\\' && strPath.find('\\') != std::string::npos;
}

JobFile ReadText(const std::string& strPath) {
  if (HasForeignSeparator(strPath)) return Refuse(texts::c_backslash);
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return Refuse(texts::c_cannotOpen);
  std::string strText;
  std::error_code error;
  const std::uintmax_t nExpected = std::filesystem::file_size(ToFilePath(strPath), error);
  if (!error) strText.reserve(std::min(nExpected, c_nMaxFileSize));
  std::array<char, std::size_t{1} << 16U> buffer;
  while (pStream->read(buffer.data(), static_cast<std::streamsize>(buffer.size())) || pStream->gcount() > 0) {
    strText.append(buffer.data(), static_cast<std::size_t>(pStream->gcount()));
    if (strText.size() > c_nMaxFileSize) return Refuse(texts::c_fileTooLarge);
  }
  return ParseText(strText, GetJobPath(strPath));
}

}  // namespace

std::string FormatProblem(const JobProblem& problem, std::string_view strKind) {
  return (problem.strPlace.empty() ? "" : problem.strPlace + ": ").append(strKind) + problem.strReason;
}

JobFile ParseJob(std::string_view strText, const std::string& strJobPath) {
  return ReadWithinMemory([&] { return ParseText(strText, strJobPath); });
}

std::optional<JobAnalysis> ParseAnalysis(std::string_view strText, const Job& job) {
  std::vector<JobProblem> errors;
  CJsonTree tree;
  if (!ParseJson(strText, {}, tree, errors)) return std::nullopt;
  std::unordered_map<int, int> numberOfId;
  for (std::size_t i = 0; i < job.nodes.size(); ++i) numberOfId[job.nodes[i].nId] = static_cast<int>(i) + 1;
  CJobObject object(tree.GetRoot(), errors);
  std::optional<JobAnalysis> analysis =
      ReadAnalysis(object, {job.GetHighestCase(), static_cast<int>(job.elements.size()), numberOfId});
  return errors.empty() ? analysis : std::nullopt;
}

JobFile ReadJobFile(const std::string& strPath) {
  return ReadWithinMemory([&] { return ReadText(strPath); });
}

std::string GetJobPath(const std::string& strJobFile) {
  return strJobFile.ends_with(c_strJobSuffix) ? strJobFile.substr(0, strJobFile.size() - c_strJobSuffix.size())
                                              : strJobFile;
}

}  // namespace skyframe::host
