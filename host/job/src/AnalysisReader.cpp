#include "AnalysisReader.h"

#include <algorithm>
#include <charconv>

#include "skyframe/job/Fields.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::array<std::string_view, 4> c_strAnalyses = {StaticJob::c_strType, ModalJob::c_strType,
                                                           SpectrumJob::c_strType, WilsonJob::c_strType};

/// Keys are case numbers without sign or leading zeros.
std::optional<int> ParseCase(std::string_view strText) {
  int nCase = 0;
  const auto [pEnd, error] = std::from_chars(strText.data(), strText.data() + strText.size(), nCase);
  const bool bWhole = error == std::errc() && pEnd == strText.data() + strText.size();
  return bWhole && std::to_string(nCase) == strText ? std::optional(nCase) : std::nullopt;
}

/// Reports members that the dialog would not let a person fill in.
void Forbid(CJobObject& object, std::initializer_list<std::string_view> keys, std::string_view strReason) {
  for (const std::string_view strKey : keys) {
    if (object.Has(strKey)) object.Error(strKey, strReason);
  }
}

std::string BelongsTo(std::string_view strKey, std::string_view strWord) {
  return Say(texts::c_belongsTo, {strKey, Quote(strWord)});
}

std::string Needs(std::string_view strFlag) { return Say(texts::c_needs, {Quote(strFlag)}); }

// Rules between fields.

template <class A>
void CheckRules(CJobObject& /*object*/, const A& /*analysis*/) {}

void CheckRules(CJobObject& object, const EarthquakeJob& quake) {
  if (quake.nMode == 1) {
    Forbid(object, {"directions"}, BelongsTo("mode", c_strQuakeModes[0]));
  } else {
    Forbid(object, {"oblique_axis"}, BelongsTo("mode", c_strQuakeModes[1]));
  }
  for (std::size_t k = 0; k < quake.peaks.size(); ++k) {
    const bool bOpen = k < quake.directions.size() ? quake.nMode != 1 && quake.directions[k] : quake.nMode == 1;
    if (quake.peaks[k] && !bOpen) {
      object.Error("peaks", Say(texts::c_idlePeak, {Quote(c_strPeaks[k])}));
    }
  }
}

void CheckRules(CJobObject& object, const NewmarkJob& analysis) {
  const bool bFromFile = analysis.bFromFile.value_or(false);
  if (!analysis.bNonlinear.value_or(false)) {
    Forbid(object, {"criterion", "tolerance", "max_iterations"}, Needs("nonlinear"));
  }
  if (analysis.HasGroundMotion()) {
    Forbid(object, {"impulse", "general_load"}, BelongsTo("load", c_strDynamicLoads[0]));
    return;
  }
  Forbid(object, {"earthquake"}, BelongsTo("load", c_strDynamicLoads[1]));
  if (bFromFile) {
    Forbid(object, {"impulse"}, Say(texts::c_loadsFromFile));
  } else {
    Forbid(object, {"general_load"}, Needs("from_file"));
  }
}

class CFieldReader {
 public:
  CFieldReader(CJobObject& object, const AnalysisContext& context) : m_object(object), m_context(context) {}

  template <DialogJob A>
  static A Read(CJobObject& object, const AnalysisContext& context) {
    A analysis;
    CFieldReader reader(object, context);
    VisitFields(reader, analysis);
    CheckRules(object, analysis);
    return analysis;
  }

  void Visit(const Field& field, std::optional<bool>& value) { value = m_object.Boolean(field.strKey, Need::Optional); }
  void Visit(const Field& field, std::optional<int>& value, Limits<int> limits = {}) {
    value = m_object.Integer(field.strKey, Need::Optional, limits.lowest, limits.highest);
  }
  void Visit(const Field& field, std::optional<double>& value, Limits<double> limits = {}) {
    value = m_object.NumberAtLeast(field.strKey, Need::Optional, limits.lowest);
  }
  void Visit(const Field& field, std::optional<int>& value, Choices words) {
    value = m_object.Word(field.strKey, Need::Optional, words);
  }
  template <std::size_t nCount>
  void Visit(const Field& field, std::optional<std::array<double, nCount>>& values) {
    values = m_object.Numbers<nCount>(field.strKey, Need::Optional);
  }
  template <DialogJob A>
  void Visit(const Field& field, std::optional<A>& part) {
    std::optional<CJobObject> object = m_object.Object(field.strKey, Need::Optional);
    if (!object) return;
    part = Read<A>(*object, m_context);
    object->ReportUnknownKeys();
  }
  void Visit(const Field& field, JobCombination& combination);
  void Visit(const Field& field, JobPeaks& peaks);
  void Visit(const Field& field, JobAxes& axes);
  void Visit(const Field& field, std::vector<JobImpulse>& impulses) {
    for (CJobObject& entry : m_object.Objects(field.strKey, Need::Required)) impulses.push_back(ReadImpulse(entry));
  }
  void Visit(const Field& field, JobOutputs& outputs);

 private:
  [[nodiscard]] JobImpulse ReadImpulse(CJobObject& object) const;
  /// Host number of the member "node"; 0 without one.
  [[nodiscard]] int ReadNode(CJobObject& object) const;
  [[nodiscard]] std::vector<int> ReadOutputElements(CJobObject& members) const;

  CJobObject& m_object;
  const AnalysisContext& m_context;
};

void CFieldReader::Visit(const Field& field, JobCombination& combination) {
  std::optional<CJobObject> members = m_object.Object(field.strKey, Need::Optional);
  if (!members) return;
  for (const std::string& strKey : members->GetKeys()) {
    const std::optional<int> nCase = ParseCase(strKey);
    if (!nCase || *nCase < 0 || *nCase > m_context.nHighestCase) {
      members->Error(strKey, Say(texts::c_noSuchCase, {std::to_string(m_context.nHighestCase)}));
    } else if (const std::optional<double> dFactor = members->Number(strKey, Need::Required)) {
      combination[*nCase] = *dFactor;
    }
  }
}

void CFieldReader::Visit(const Field& field, JobPeaks& peaks) {
  std::optional<CJobObject> members = m_object.Object(field.strKey, Need::Optional);
  if (!members) return;
  for (std::size_t k = 0; k < peaks.size(); ++k) peaks[k] = members->Number(c_strPeaks[k], Need::Optional);
  members->ReportUnknownKeys();
}

void CFieldReader::Visit(const Field& field, JobAxes& axes) {
  const std::optional<CJsonValue> array = m_object.Array(field.strKey, Need::Optional);
  if (!array) return;
  for (const CJsonValue value : *array) {
    const auto it = std::ranges::find(c_strAxes, value.IsText() ? value.GetText() : "");
    if (it == c_strAxes.end()) return m_object.Error(field.strKey, Say(texts::c_notSomeOf, {JoinWords(c_strAxes)}));
    axes[static_cast<std::size_t>(it - c_strAxes.begin())] = true;
  }
}

JobImpulse CFieldReader::ReadImpulse(CJobObject& object) const {
  JobImpulse impulse;
  impulse.nNode = ReadNode(object);
  impulse.nDirection = object.Word("direction", Need::Required, c_strAxes).value_or(0);
  impulse.dPeak = object.Number("peak", Need::Required).value_or(0.0);
  object.ReportUnknownKeys();
  return impulse;
}

int CFieldReader::ReadNode(CJobObject& object) const {
  const std::optional<int> nId = object.Integer("node", Need::Required);
  if (!nId) return 0;
  const auto it = m_context.numberOfId.find(*nId);
  if (it != m_context.numberOfId.end()) return it->second;
  object.Error("node", Say(texts::c_noSuchNode, {std::to_string(*nId)}));
  return 0;
}

void CFieldReader::Visit(const Field& field, JobOutputs& outputs) {
  std::optional<CJobObject> members = m_object.Object(field.strKey, Need::Optional);
  if (!members) return;
  for (CJobObject& entry : members->Objects("nodes", Need::Optional)) {
    const JobOutputNode node = {ReadNode(entry), entry.Word("direction", Need::Required, c_strAxes).value_or(0)};
    entry.ReportUnknownKeys();
    if (node.nNode > 0 && std::ranges::count(outputs.nodes, node.nNode, &JobOutputNode::nNode) > 0) {
      entry.Error("node", Say(texts::c_listedTwice, {std::to_string(*entry.Integer("node", Need::Required))}));
    }
    outputs.nodes.push_back(node);
  }
  outputs.elements = ReadOutputElements(*members);
  members->ReportUnknownKeys();
}

std::vector<int> CFieldReader::ReadOutputElements(CJobObject& members) const {
  constexpr std::string_view c_strKey = "elements";
  std::vector<int> elements;
  const std::optional<CJsonValue> array = members.Array(c_strKey, Need::Optional);
  if (!array) return elements;
  for (const CJsonValue value : *array) {
    const double dNumber = value.IsInteger() ? value.GetNumber() : 0.0;
    const int nElement = dNumber >= 1.0 && dNumber <= m_context.nElements ? static_cast<int>(dNumber) : 0;
    if (nElement == 0) {
      members.Error(c_strKey, Say(texts::c_elementNumbers, {std::to_string(m_context.nElements)}));
    } else if (std::ranges::count(elements, nElement) > 0) {
      members.Error(c_strKey, Say(texts::c_elementTwice, {std::to_string(nElement)}));
    }
    elements.push_back(nElement);
  }
  return elements;
}

std::optional<JobAnalysis> ReadTimeHistory(CJobObject& object, const AnalysisContext& context) {
  const std::optional<int> nMethod = object.Word("method", Need::Required, c_strMethods);
  if (!nMethod) {
    object.AcceptAllKeys();
    return std::nullopt;
  }
  if (*nMethod == WilsonJob::c_nMethod) return CFieldReader::Read<WilsonJob>(object, context);
  return CFieldReader::Read<NewmarkJob>(object, context);
}

}  // namespace

std::optional<JobAnalysis> ReadAnalysis(CJobObject& object, const AnalysisContext& context) {
  switch (object.Word("type", Need::Required, c_strAnalyses).value_or(-1)) {
    case 0:
      return CFieldReader::Read<StaticJob>(object, context);
    case 1:
      return CFieldReader::Read<ModalJob>(object, context);
    case 2:
      return CFieldReader::Read<SpectrumJob>(object, context);
    case 3:
      return ReadTimeHistory(object, context);
    default:
      object.AcceptAllKeys();
      return std::nullopt;
  }
}

}  // namespace skyframe::host
