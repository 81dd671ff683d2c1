#pragma once

#include "skyframe/connect/Dialogs.h"
#include "skyframe/job/Fields.h"

namespace skyframe::host {

/// Puts together an analysis from the dialogs that a person ended with OK.
class CDialogRecorder {
 public:
  /// For IPlatform::DialogAccepted; of several openings of a dialog the last one counts.
  void Accept(const DialogTemplate& layout, const IDialogView& view) {
    m_dialogs[layout.nId] = ReadContent(layout, view);
  }

  /// Every value that could be changed; nothing when there is no parameter dialog among those accepted. Factors of a
  /// combination and peaks of impulses have the decimals that the dialogs show.
  [[nodiscard]] std::optional<JobAnalysis> GetAnalysis() const;

 private:
  std::map<int, DialogContent> m_dialogs;
};

/// The analysis, or its part with a dialog of its own, and for what it leaves out what its dialog opens with; parts
/// that it does not have stay away.
template <DialogJob A>
[[nodiscard]] A WithDefaults(A analysis);
/// Likewise, and without what has no effect beside its other parameters, which no job file may have.
[[nodiscard]] JobAnalysis WithDefaults(const JobAnalysis& analysis);
/// Whether what one leaves to the defaults is what the other says.
[[nodiscard]] bool MeanTheSame(const JobAnalysis& one, const JobAnalysis& other);

}  // namespace skyframe::host
