#include "skyframe/host/JobFile.h"

#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "AnalysisReader.h"
#include "JobChecks.h"
#include "JobReader.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"

namespace skyframe::host {

namespace {

constexpr std::uintmax_t c_nMaxFileSize = std::uintmax_t{256} << 20U;
/// Stands for a coordinate in error; such a place coincides with no other.
constexpr double c_dUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view c_strJobSuffix = ".json";

/// Turns the tree into a job, part by part; every error is noted and reading goes on.
class CJobParser {
 public:
  CJobParser(const Json& tree, JobFile& file) : m_root(tree, "", file.errors), m_file(file), m_job(file.job) {}

  void Parse() {
    m_job.strTitle = m_root.Text("title", Need::Optional).value_or("");
    ReadSprings();
    ReadNodes();
    ReadSections();
    ReadElements();
    ReadInclinedSupports();
    ReadLoads();
    ReadAnalyses();
    m_root.ReportUnknownKeys();
  }

 private:
  using Places = std::unordered_map<int, int>;  ///< host number by node id

  /// Calls the reader with each entry's object.
  template <class Reader>
  void ForEach(std::string_view strKey, Need need, std::size_t nCapacity, Reader reader) {
    const Json* pArray = m_root.Array(strKey, need);
    if (pArray == nullptr) return;
    CheckCapacity(strKey, pArray->size(), nCapacity);
    std::size_t nIndex = 0;
    for (const Json& entry : *pArray) {
      CJobObject object(entry, AppendPointer(m_root.GetPlace(strKey), nIndex++), m_file.errors);
      reader(object);
      object.ReportUnknownKeys();
    }
  }

  void CheckCapacity(std::string_view strKey, std::size_t nCount, std::size_t nCapacity) {
    if (nCount <= nCapacity) return;
    m_root.Error(strKey, std::to_string(nCount) + " entries; the host records hold " + std::to_string(nCapacity));
  }

  void ReadSprings() {
    ForEach("springs", Need::Optional, c_nMaxSpringGroups + 1, [this](CJobObject& object) {
      JobSpring spring;
      const std::optional<int> nGroup = object.Integer("group", Need::Required, 0, c_nMaxSpringGroups);
      spring.nGroup = nGroup.value_or(0);
      spring.dKx = object.Number("kx", Need::Optional).value_or(0.0);
      spring.dKy = object.Number("ky", Need::Optional).value_or(0.0);
      spring.dKz = object.Number("kz", Need::Optional).value_or(0.0);
      if (nGroup && !m_springGroups.insert(*nGroup).second) object.Error("group", "spring group defined twice");
      m_job.springs.push_back(spring);
    });
  }

  void ReadNodes() {
    ForEach("nodes", Need::Required, c_nMaxNodes, [this](CJobObject& object) {
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
        object.Error("id", "node id " + std::to_string(*nId) + " is used twice");
      }
    });
  }

  void ReadSupport(CJobObject& object, JobNode& node) {
    if (const auto strRestraint = object.Text("restraint", Need::Optional)) {
      if (strRestraint->size() != 6 || strRestraint->find_first_not_of("01") != std::string::npos) {
        object.Error("restraint", "must be six digits 0 or 1 for X Y Z RX RY RZ, not " + Quote(*strRestraint));
      } else {
        for (std::size_t d = 0; d < 6; ++d) node.restraint[d] = (*strRestraint)[d] - '0';
      }
    }
    node.nSpring = object.Integer("spring", Need::Optional, 0, c_nMaxSpringGroups);
    if (!node.nSpring) return;
    if (object.Has("restraint")) object.Error("spring", "a node has either a restraint or a spring");
    if (!m_springGroups.contains(*node.nSpring)) {
      object.Error("spring", "no spring group " + std::to_string(*node.nSpring));
    }
  }

  void ReadSections() {
    ForEach("sections", Need::Optional, c_nMaxSectionGroups, [this](CJobObject& object) {
      JobSection section;
      const std::optional<std::string> strId = object.Text("id", Need::Required);
      section.strId = strId.value_or("");
      section.nShape = object.Integer("shape", Need::Optional, 1, 6).value_or(1);
      section.dArea = object.NumberAtLeast("area", Need::Required, 0.0).value_or(0.0);
      section.dIx = object.NumberAtLeast("Ix", Need::Optional, 0.0).value_or(0.0);
      section.dIy = object.NumberAtLeast("Iy", Need::Optional, 0.0).value_or(0.0);
      section.dIz = object.NumberAtLeast("Iz", Need::Optional, 0.0).value_or(0.0);
      if (strId && !m_placeOfSection.emplace(*strId, static_cast<int>(m_job.sections.size())).second) {
        object.Error("id", "section " + Quote(*strId) + " is defined twice");
      }
      m_job.sections.push_back(section);
    });
  }

  void ReadElements() {
    ForEach("elements", Need::Required, c_nMaxElements, [this](CJobObject& object) {
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
    object.Error(strKey, "no node has the id " + std::to_string(*nId));
    return 0;
  }

  int ReadSectionPlace(CJobObject& object) {
    const std::optional<std::string> strId = object.Text("section", Need::Required);
    if (!strId) return 0;
    const auto it = m_placeOfSection.find(*strId);
    if (it != m_placeOfSection.end()) return it->second;
    object.Error("section", "no section has the id " + Quote(*strId));
    return 0;
  }

  void CheckLength(CJobObject& object, const JobElement& element) {
    if (element.nNodeI == element.nNodeJ) {
      object.Error("j", "both ends are node " + std::to_string(m_job.nodes[element.nNodeJ - 1].nId));
    } else if (HaveSamePlace(m_job.nodes[element.nNodeI - 1], m_job.nodes[element.nNodeJ - 1])) {
      object.Error("j", "zero length: both nodes lie at the same place");
    }
  }

  void ReadInclinedSupports() {
    const Json* pArray = m_root.Array("inclined_supports", Need::Optional);
    if (pArray == nullptr) return;
    CheckCapacity("inclined_supports", pArray->size(), c_nMaxNodes);
    std::unordered_set<int> seen;
    for (std::size_t k = 0; k < pArray->size(); ++k) {
      const std::string strPlace = AppendPointer(m_root.GetPlace("inclined_supports"), k);
      const Json& value = (*pArray)[k];
      const auto it = value.is_number_integer() ? m_numberOfId.find(ClampToInt(value)) : m_numberOfId.end();
      if (it == m_numberOfId.end()) {
        m_file.errors.push_back({strPlace, "must be the id of a node"});
      } else if (!seen.insert(it->second).second) {
        m_file.errors.push_back({strPlace, "node " + std::to_string(it->first) + " is listed twice"});
      } else {
        m_job.inclinedSupports.push_back(it->second);
      }
    }
  }

  /// Numbers that are no int become 0, which is no node id.
  static int ClampToInt(const Json& value) {
    const auto dValue = value.get<double>();
    return dValue >= 1.0 && dValue <= std::numeric_limits<int>::max() ? value.get<int>() : 0;
  }

  void ReadLoads() {
    ForEach("loads", Need::Optional, c_nMaxLoads, [this](CJobObject& object) {
      JobLoad load;
      const std::optional<int> nCase = object.Integer("case", Need::Required, 0, c_nLoadTypes - 1);
      m_bCasesKnown = m_bCasesKnown && nCase;
      load.nCase = nCase.value_or(0);
      load.nNode = ReadNode(object, "node");
      const std::optional<int> nDirection = object.Word("direction", Need::Required, c_strDirections);
      load.nDirection = nDirection.value_or(0);
      load.dValue = object.Number("value", Need::Required).value_or(0.0);
      if (load.nNode > 0 && load.nDirection >= 3 && m_job.nodes[load.nNode - 1].nJoint == c_nPinned) {
        object.Error("direction",
                     "node " + std::to_string(m_job.nodes[load.nNode - 1].nId) + " is pinned and takes no moment");
      }
      m_job.loads.push_back(load);
    });
    CheckFillers(FindEmptyCases(m_job).size());
  }

  void CheckFillers(std::size_t nFillers) {
    if (m_job.loads.size() > c_nMaxLoads || m_job.loads.size() + nFillers <= c_nMaxLoads) return;
    m_root.Error("loads", std::to_string(m_job.loads.size()) + " entries and one more for each of " +
                              std::to_string(nFillers) + " cases without loads; the host records hold " +
                              std::to_string(c_nMaxLoads));
  }

  void ReadAnalyses() {
    const AnalysisContext context{m_bCasesKnown ? m_job.GetHighestCase() : c_nLoadTypes - 1, m_numberOfId};
    ForEach("analyses", Need::Optional, std::numeric_limits<std::size_t>::max(), [this, &context](CJobObject& object) {
      if (auto analysis = ReadAnalysis(object, context)) m_job.analyses.push_back(*std::move(analysis));
    });
  }

  CJobObject m_root;
  JobFile& m_file;
  Job& m_job;
  Places m_numberOfId;
  bool m_bCasesKnown = true;  ///< no load has an error in its case
  std::unordered_set<int> m_springGroups;
  std::unordered_map<std::string, int> m_placeOfSection;
};

}  // namespace

JobFile ParseJob(std::string_view strText) {
  JobFile file;
  const std::optional<Json> tree = ParseJson(strText, file.errors);
  if (!tree) return file;
  CJobParser(*tree, file).Parse();
  if (file.errors.empty()) file.warnings = FindDoubtfulInput(file.job);
  return file;
}

JobFile ReadJobFile(const std::string& strPath) {
  const auto Refuse = [](std::string strReason) {
    JobFile file;
    file.errors.push_back({"/", std::move(strReason)});
    return file;
  };
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return Refuse("cannot be opened");
  std::string strText;
  std::vector<char> buffer(std::size_t{1} << 20U);
  while (pStream->read(buffer.data(), static_cast<std::streamsize>(buffer.size())) || pStream->gcount() > 0) {
    strText.append(buffer.data(), static_cast<std::size_t>(pStream->gcount()));
    if (strText.size() > c_nMaxFileSize) return Refuse("larger than 256 MB");
  }
  return ParseJob(strText);
}

std::string GetJobPath(const std::string& strJobFile) {
  return strJobFile.ends_with(c_strJobSuffix) ? strJobFile.substr(0, strJobFile.size() - c_strJobSuffix.size())
                                              : strJobFile;
}

}  // namespace skyframe::host
