#include "skyframe/job/DialogFields.h"

#include <algorithm>

#include "JsonText.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/values/Capacities.h"
#include "skyframe/values/LoadNames.h"

namespace skyframe::host {

namespace {

using Dialogs = std::map<int, DialogContent>;

/// What is not set yet of an analysis, from what its dialogs show.
class CContentReader {
 public:
  enum class Scope { Changeable, Everything };

  CContentReader(const Dialogs& dialogs, int nDialog, Scope scope)
      : m_dialogs(dialogs), m_content(dialogs.at(nDialog)), m_scope(scope) {}

  template <DialogJob A>
  static A Read(const Dialogs& dialogs, Scope scope, A analysis = {}) {
    CContentReader reader(dialogs, A::c_nDialog, scope);
    VisitFields(reader, analysis);
    return analysis;
  }

  template <Scalar T>
  void Visit(const Field& field, std::optional<T>& value, LimitsOf<T> limits = {}) {
    if (value) return;
    if (field.HasControl()) {
      Take(field.controls.front(), value, limits.lowest);
    } else if (m_scope == Scope::Everything) {
      value = Json::parse(field.strDefault).template get<T>();
    }
  }
  void Visit(const Field& field, std::optional<int>& nIndex, Choices /*words*/) { Visit(field, nIndex, {.lowest = 0}); }
  template <std::size_t nCount>
  void Visit(const Field& field, std::optional<std::array<double, nCount>>& values) {
    if (values) return;
    std::array<std::optional<double>, nCount> read;
    for (std::size_t k = 0; k < nCount; ++k) Take(field.controls[k], read[k], 0.0);
    if (!std::ranges::all_of(read, [](const auto& dValue) { return dValue.has_value(); })) return;
    std::ranges::transform(read, values.emplace().begin(), [](const auto& dValue) { return *dValue; });
  }
  template <DialogJob A>
  void Visit(const Field& /*field*/, std::optional<A>& part) {
    if (part && m_scope == Scope::Everything) {
      part = WithDefaults(*part);
    } else if (!part && m_dialogs.contains(A::c_nDialog)) {
      part = Read<A>(m_dialogs, m_scope);
    }
  }
  void Visit(const Field& /*field*/, JobCombination& combination) {
    const auto it = m_dialogs.find(c_nIdLoadCombDlg);
    if (it == m_dialogs.end()) return;
    for (const auto& row : it->second.at(c_nIdCombined).rows) TakeCase(row.front(), combination);
  }
  void Visit(const Field& field, JobPeaks& peaks) {
    for (std::size_t k = 0; k < peaks.size(); ++k) {
      if (!peaks[k]) Take(field.controls[k], peaks[k], 0.0);
    }
  }
  void Visit(const Field& field, JobAxes& axes) {
    for (std::size_t k = 0; k < axes.size(); ++k) {
      std::optional<bool> bOn;
      Take(field.controls[k], bOn, false);
      axes[k] = axes[k] || bOn.value_or(false);
    }
  }
  void Visit(const Field& field, std::vector<JobImpulse>& impulses) {
    for (const auto& row : m_content.at(field.controls.front()).rows) {
      const auto itAxis = std::ranges::find(c_strAxes, row.at(1));
      impulses.push_back({ParseInt(row.at(0)).value_or(0), static_cast<int>(itAxis - c_strAxes.begin()),
                          ParseReal(row.at(2)).value_or(0.0)});
    }
  }
  void Visit(const Field& /*field*/, const JobOutputs& /*outputs*/) {}

 private:
  /// Nothing of a control that cannot be changed.
  template <class T>
  void Take(int nControl, std::optional<T>& value, T lowest) const {
    const ControlContent& control = m_content.at(nControl);
    if (m_scope == Scope::Everything || control.bEnabled) value = Parse(control, lowest);
  }

  static std::optional<bool> Parse(const ControlContent& control, bool /*bLowest*/) { return control.nChoice == 1; }
  static std::optional<int> Parse(const ControlContent& control, int nLowest) {
    return control.nChoice < 0 ? ParseInt(control.strText) : std::optional(control.nChoice + nLowest);
  }
  static std::optional<double> Parse(const ControlContent& control, double /*dLowest*/) {
    return ParseReal(control.strText);
  }

  /// A row is a factor and the name of its case.
  static void TakeCase(std::string_view strRow, JobCombination& combination) {
    for (int nCase = 0; nCase < c_nLoadTypes; ++nCase) {
      const std::string strName = GetLoadName(nCase);
      if (!strRow.ends_with(strName)) continue;
      if (const auto dFactor = ParseReal(strRow.substr(0, strRow.size() - strName.size()))) {
        combination[nCase] = *dFactor;
      }
    }
  }

  const Dialogs& m_dialogs;
  const DialogContent& m_content;
  Scope m_scope;
};

/// Lets go of loads that were entered before the choice of another kind.
void DropUnused(NewmarkJob& analysis) {
  const bool bFromFile = analysis.bFromFile.value_or(false);
  if (analysis.HasGroundMotion() || bFromFile) analysis.impulse.reset();
  if (analysis.HasGroundMotion() || !bFromFile) analysis.generalLoad.reset();
  if (!analysis.HasGroundMotion()) analysis.earthquake.reset();
}

template <class A>
void DropUnused(A& /*analysis*/) {}

template <class A>
void TakeAnalysis(const Dialogs& dialogs, std::optional<JobAnalysis>& found) {
  if (!dialogs.contains(A::c_nDialog)) return;
  auto analysis = CContentReader::Read<A>(dialogs, CContentReader::Scope::Changeable);
  DropUnused(analysis);
  found = std::move(analysis);
}

/// Lets go of what has no effect beside the other parameters.
template <class A>
void DropIdle(A& /*analysis*/) {}

void DropIdle(EarthquakeJob& quake) {
  const bool bOblique = quake.nMode == 1;
  if (bOblique) quake.directions = {};
  if (!bOblique) quake.obliqueAxis.reset();
  for (std::size_t k = 0; k < quake.directions.size(); ++k) {
    if (!quake.directions[k]) quake.peaks[k].reset();
  }
  if (!bOblique) quake.peaks.back().reset();
}

void DropIdle(NewmarkJob& analysis) {
  if (!analysis.bNonlinear.value_or(false)) {
    analysis.nCriterion.reset();
    analysis.dTolerance.reset();
    analysis.nMaxIterations.reset();
  }
  if (analysis.earthquake) DropIdle(*analysis.earthquake);
}

}  // namespace

std::optional<JobAnalysis> CDialogRecorder::GetAnalysis() const {
  std::optional<JobAnalysis> found;
  TakeAnalysis<StaticJob>(m_dialogs, found);
  TakeAnalysis<ModalJob>(m_dialogs, found);
  TakeAnalysis<SpectrumJob>(m_dialogs, found);
  TakeAnalysis<WilsonJob>(m_dialogs, found);
  TakeAnalysis<NewmarkJob>(m_dialogs, found);
  return found;
}

template <DialogJob A>
A WithDefaults(A analysis) {
  const Dialogs dialogs = {{A::c_nDialog, LookAtDialog(A::c_nDialog)}};
  return CContentReader::Read(dialogs, CContentReader::Scope::Everything, std::move(analysis));
}

template StaticJob WithDefaults(StaticJob);
template ModalJob WithDefaults(ModalJob);
template SpectrumJob WithDefaults(SpectrumJob);
template WilsonJob WithDefaults(WilsonJob);
template ImpulseLoadJob WithDefaults(ImpulseLoadJob);
template GeneralLoadJob WithDefaults(GeneralLoadJob);
template EarthquakeJob WithDefaults(EarthquakeJob);
template NewmarkJob WithDefaults(NewmarkJob);

JobAnalysis WithDefaults(const JobAnalysis& analysis) {
  const auto complete = [](const auto& parameters) -> JobAnalysis {
    auto whole = WithDefaults(parameters);
    DropIdle(whole);
    return whole;
  };
  return std::visit(complete, analysis);
}

bool MeanTheSame(const JobAnalysis& one, const JobAnalysis& other) { return WithDefaults(one) == WithDefaults(other); }

}  // namespace skyframe::host
