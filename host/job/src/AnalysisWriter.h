#pragma once

#include <string>

#include "JsonText.h"
#include "skyframe/job/Fields.h"

namespace skyframe::host {

/// Puts what is set of an analysis into a JSON object.
class CFieldWriter {
 public:
  CFieldWriter(Json& object, const Job& job) : m_object(object), m_job(job) {}

  template <DialogJob A>
  static Json Write(A analysis, const Job& job) {
    Json object = Json::object();
    if constexpr (requires { A::c_strType; }) object["type"] = A::c_strType;
    if constexpr (requires { A::c_nMethod; }) object["method"] = c_strMethods[A::c_nMethod];
    CFieldWriter writer(object, job);
    VisitFields(writer, analysis);
    return object;
  }

  /// Numbers, flags and arrays of numbers.
  template <class T>
  requires(!DialogJob<T>) void Visit(const Field& field, const std::optional<T>& value, LimitsOf<T> /*limits*/ = {}) {
    if (value) m_object[field.strKey] = *value;
  }
  void Visit(const Field& field, const std::optional<int>& nIndex, Choices words) {
    if (nIndex) m_object[field.strKey] = words[static_cast<std::size_t>(*nIndex)];
  }
  template <DialogJob A>
  void Visit(const Field& field, const std::optional<A>& part) {
    if (part) m_object[field.strKey] = Write(*part, m_job);
  }
  void Visit(const Field& field, const JobCombination& combination) {
    for (const auto& [nCase, dFactor] : combination) m_object[field.strKey][std::to_string(nCase)] = dFactor;
  }
  void Visit(const Field& field, const JobPeaks& peaks) {
    for (std::size_t k = 0; k < peaks.size(); ++k) {
      if (peaks[k]) m_object[field.strKey][c_strPeaks[k]] = *peaks[k];
    }
  }
  void Visit(const Field& field, const JobAxes& axes) {
    for (std::size_t k = 0; k < axes.size(); ++k) {
      if (axes[k]) m_object[field.strKey].push_back(c_strAxes[k]);
    }
  }
  void Visit(const Field& field, const std::vector<JobImpulse>& impulses) {
    Json& rows = m_object[field.strKey] = Json::array();
    for (const JobImpulse& impulse : impulses) {
      rows.push_back({{"node", m_job.nodes[static_cast<std::size_t>(impulse.nNode) - 1].nId},
                      {"direction", c_strAxes[static_cast<std::size_t>(impulse.nDirection)]},
                      {"peak", impulse.dPeak}});
    }
  }
  void Visit(const Field& field, const JobOutputs& outputs) {
    if (outputs.IsEmpty()) return;
    Json& members = m_object[field.strKey] = Json::object();
    for (const JobOutputNode& node : outputs.nodes) {
      members["nodes"].push_back({{"node", m_job.nodes[static_cast<std::size_t>(node.nNode) - 1].nId},
                                  {"direction", c_strAxes[static_cast<std::size_t>(node.nDirection)]}});
    }
    if (!outputs.elements.empty()) members["elements"] = outputs.elements;
  }

 private:
  Json& m_object;
  const Job& m_job;
};

}  // namespace skyframe::host
