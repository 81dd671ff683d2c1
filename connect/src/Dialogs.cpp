#include "skyframe/connect/Dialogs.h"

#include <algorithm>
#include <ostream>

#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/ModeDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/dialogs/Templates.h"
#include "skyframe/dialogs/WilsonDlg.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe {

namespace {

/// COMDYN as a new job has it, for the life of the object: some dialogs start from what it keeps.
class CFreshRecord {
 public:
  CFreshRecord() { COMDYN = c_freshSettings; }
  ~CFreshRecord() { COMDYN = m_kept; }
  CFreshRecord(const CFreshRecord&) = delete;
  CFreshRecord& operator=(const CFreshRecord&) = delete;

 private:
  const tagComDynamic m_kept = COMDYN;
};

/// Does nothing with another dialog than the one asked for.
void Look(CDialog&& dialog, int nDialog, DialogContent& content) {
  const DialogTemplate& layout = dialog.GetTemplate();
  if (layout.nId != nDialog) return;
  std::ostream nowhere(nullptr);
  CHeadlessPlatform platform(nowhere, nowhere);
  platform.AddScript(nDialog,
                     {DialogStep::Inspect([&](const IDialogView& view) { content = ReadContent(layout, view); })});
  platform.RunModal(dialog);
}

}  // namespace

const DialogTemplate* FindDialogTemplate(int nDialog) {
  const auto templates = GetDialogTemplates();
  const auto it = std::ranges::find(templates, nDialog, &DialogTemplate::nId);
  return it == templates.end() ? nullptr : *it;
}

DialogContent LookAtDialog(int nDialog) {
  const CFreshRecord record;
  DialogContent content;
  Look(CModeDlg(), nDialog, content);
  Look(CSpectrumDlg(), nDialog, content);
  Look(CNonlinStaticDlg(), nDialog, content);
  Look(CWilsonDlg(), nDialog, content);
  Look(CNewmarkDlg(), nDialog, content);
  Look(CImpulseLoadDlg(), nDialog, content);
  Look(CGeneralLoadDlg(), nDialog, content);
  Look(CEarthquakeDlg(), nDialog, content);
  return content;
}

}  // namespace skyframe
