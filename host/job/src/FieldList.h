#pragma once

#include <vector>

#include "AnalysisWriter.h"
#include "skyframe/job/DialogFields.h"

namespace skyframe::host {

// Types of values in JSON Schema.

[[nodiscard]] Json TextType(const char* pszPattern = nullptr);
[[nodiscard]] Json NumberType(double dLowest = std::numeric_limits<double>::lowest());
[[nodiscard]] Json IntegerType(int nLowest = std::numeric_limits<int>::min(),
                               int nHighest = std::numeric_limits<int>::max());
[[nodiscard]] Json WordType(Choices words);
[[nodiscard]] Json ArrayType(Json items);
/// No other members than these.
[[nodiscard]] Json ObjectType(Json members, Json required = Json::array());

/// A parameter of an analysis as a reader of the manual sees it.
struct FieldEntry {
  Field field;
  std::string strLabel;  ///< in the dialog; empty without a control
  Json type;
  Json byDefault;  ///< null: there is none
  bool bRequired = false;
};
using FieldEntries = std::vector<FieldEntry>;

/// What stands on the field's control or before it, and the choices that it offers.
[[nodiscard]] std::string FindLabel(const DialogTemplate& layout, const Field& field);

/// An object with these members.
[[nodiscard]] Json DescribeFields(const FieldEntries& entries);

class CFieldLister {
 public:
  /// The parameters of an analysis, or of its part with a dialog of its own.
  template <DialogJob A>
  static FieldEntries List() {
    A analysis;
    CFieldLister lister(A::c_nDialog, CFieldWriter::Write(WithDefaults(analysis), {}));
    VisitFields(lister, analysis);
    return std::move(lister.m_entries);
  }

  void Visit(const Field& field, const std::optional<bool>& /*value*/) { Add(field, {{"type", "boolean"}}); }
  void Visit(const Field& field, const std::optional<int>& /*value*/, Limits<int> limits = {}) {
    Add(field, IntegerType(limits.lowest, limits.highest));
  }
  void Visit(const Field& field, const std::optional<double>& /*value*/, Limits<double> limits = {}) {
    Add(field, NumberType(limits.lowest));
  }
  void Visit(const Field& field, const std::optional<int>& /*value*/, Choices words) { Add(field, WordType(words)); }
  template <std::size_t nCount>
  void Visit(const Field& field, const std::optional<std::array<double, nCount>>& /*values*/) {
    Json type = ArrayType(NumberType());
    type["minItems"] = type["maxItems"] = nCount;
    Add(field, std::move(type));
  }
  template <DialogJob A>
  void Visit(const Field& field, const std::optional<A>& /*part*/) {
    Add(field, DescribeFields(List<A>()));
  }
  void Visit(const Field& field, const JobCombination& combination);
  void Visit(const Field& field, const JobPeaks& peaks);
  void Visit(const Field& field, const JobAxes& axes);
  void Visit(const Field& field, const std::vector<JobImpulse>& impulses);
  void Visit(const Field& field, const JobOutputs& outputs);

 private:
  CFieldLister(int nDialog, Json defaults) : m_layout(*FindDialogTemplate(nDialog)), m_defaults(std::move(defaults)) {}

  void Add(const Field& field, Json type);

  const DialogTemplate& m_layout;
  Json m_defaults;
  FieldEntries m_entries;
};

}  // namespace skyframe::host
