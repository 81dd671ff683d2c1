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
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe {

namespace {

template <class Dialog>
DialogContent Look() {
  Dialog dialog;
  const DialogTemplate& layout = dialog.GetTemplate();
  std::ostream nowhere(nullptr);
  CHeadlessPlatform platform(nowhere, nowhere);
  DialogContent content;
  platform.AddScript(layout.nId,
                     {DialogStep::Inspect([&](const IDialogView& view) { content = ReadContent(layout, view); })});
  platform.RunModal(dialog);
  return content;
}

}  // namespace

const DialogTemplate* FindDialogTemplate(int nDialog) {
  const auto templates = GetDialogTemplates();
  const auto it = std::ranges::find(templates, nDialog, &DialogTemplate::nId);
  return it == templates.end() ? nullptr : *it;
}

DialogContent LookAtDialog(int nDialog) {
  switch (nDialog) {
    case c_nIdModeDlg:
      return Look<CModeDlg>();
    case c_nIdSpectrumDlg:
      return Look<CSpectrumDlg>();
    case c_nIdNonlinStaticDlg:
      return Look<CNonlinStaticDlg>();
    case c_nIdWilsonDlg:
      return Look<CWilsonDlg>();
    case c_nIdNewmarkDlg:
      return Look<CNewmarkDlg>();
    case c_nIdImpulseLoadDlg:
      return Look<CImpulseLoadDlg>();
    case c_nIdGeneralLoadDlg:
      return Look<CGeneralLoadDlg>();
    case c_nIdEarthquakeDlg:
      return Look<CEarthquakeDlg>();
    default:
      return {};
  }
}

}  // namespace skyframe
