#include "skyframe/run/Scripts.h"

#include "skyframe/connect/Dialogs.h"
#include "skyframe/job/Fields.h"
#include "skyframe/job/Text.h"
#include "skyframe/values/LoadNames.h"

namespace skyframe::host {

namespace {

/// The steps of a person in one dialog and in those that open from it. Values that are not set are not touched.
class CScriptBuilder {
 public:
  CScriptBuilder(int nDialog, CHeadlessPlatform& platform)
      : m_layout(*FindDialogTemplate(nDialog)), m_platform(platform) {}

  template <DialogJob A>
  static void Add(A analysis, CHeadlessPlatform& platform) {
    if constexpr (requires { A::c_nMethod; }) {
      CScriptBuilder choice(c_nIdDynOptionDlg, platform);
      choice.Choose(c_nIdWilson, A::c_nMethod);
      choice.Finish();
    }
    CScriptBuilder script(A::c_nDialog, platform);
    VisitFields(script, analysis);
    script.Finish();
  }

  template <Scalar T>
  void Visit(const Field& field, const std::optional<T>& value, LimitsOf<T> limits = {}) {
    if (value && field.HasControl()) Enter(field.controls.front(), *value, limits.lowest);
  }
  void Visit(const Field& field, const std::optional<int>& nIndex, Choices /*words*/) { Visit(field, nIndex, {0, 0}); }
  template <std::size_t nCount>
  void Visit(const Field& field, const std::optional<std::array<double, nCount>>& values) {
    for (std::size_t k = 0; values && k < nCount; ++k) Enter(field.controls[k], (*values)[k]);
  }
  template <DialogJob A>
  void Visit(const Field& field, const std::optional<A>& part) {
    if (!part) return;
    Click(field.controls.front());
    Add(*part, m_platform);
  }
  void Visit(const Field& field, const JobCombination& combination) {
    if (combination.empty()) return;
    Click(field.controls.front());
    CScriptBuilder script(c_nIdLoadCombDlg, m_platform);
    for (const auto& [nCase, dFactor] : combination) {
      script.Enter(c_nIdFactor, dFactor);
      script.m_steps.push_back(DialogStep::ToggleRow(c_nIdAvailable, GetLoadName(nCase)));
      script.Click(c_nIdAdd);
    }
    script.Finish();
  }
  void Visit(const Field& field, const JobPeaks& peaks) {
    for (std::size_t k = 0; k < peaks.size(); ++k) {
      if (peaks[k]) Enter(field.controls[k], *peaks[k]);
    }
  }
  void Visit(const Field& field, const JobAxes& axes) {
    for (std::size_t k = 0; k < axes.size(); ++k) {
      if (axes[k]) Enter(field.controls[k], true);
    }
  }
  void Visit(const Field& /*field*/, const std::vector<JobImpulse>& impulses) {
    for (const JobImpulse& impulse : impulses) {
      Enter(c_nIdImpulseNode, impulse.nNode);
      Enter(c_nIdImpulseDirection, impulse.nDirection);
      Enter(c_nIdImpulsePeak, impulse.dPeak);
      Click(c_nIdImpulseInsert);
    }
  }
  void Visit(const Field& /*field*/, const JobOutputs& /*outputs*/) {}

 private:
  void Enter(int nControl, bool bOn, bool /*bLowest*/ = false) { m_steps.push_back(DialogStep::Tick(nControl, bOn)); }
  void Enter(int nControl, double dValue, double /*dLowest*/ = 0.0) {
    m_steps.push_back(DialogStep::Type(nControl, FormatNumber(dValue)));
  }
  void Enter(int nControl, int nValue, int nLowest = 0) {
    if (m_layout.Find(nControl)->kind == ControlKind::Edit) {
      m_steps.push_back(DialogStep::Type(nControl, std::to_string(nValue)));
    } else {
      Choose(nControl, nValue - nLowest);
    }
  }

  /// An item of a drop list, or a button of the group that starts with the control.
  void Choose(int nControl, int nIndex) {
    const bool bList = m_layout.Find(nControl)->kind == ControlKind::DropList;
    m_steps.push_back(bList ? DialogStep::ChooseItem(nControl, nIndex)
                            : DialogStep::Choose(m_layout.GetRadioGroup(nControl)[static_cast<std::size_t>(nIndex)]));
  }

  void Click(int nButton) { m_steps.push_back(DialogStep::Click(nButton)); }

  /// Ends the dialog with OK and hands the script to the platform.
  void Finish() {
    m_steps.push_back(DialogStep::Ok());
    m_platform.AddScript(m_layout.nId, std::move(m_steps));
  }

  const DialogTemplate& m_layout;
  CHeadlessPlatform& m_platform;
  std::vector<DialogStep> m_steps;
};

}  // namespace

void AddScripts(const JobAnalysis& analysis, CHeadlessPlatform& platform) {
  std::visit([&platform](const auto& parameters) { CScriptBuilder::Add(parameters, platform); }, analysis);
}

}  // namespace skyframe::host
