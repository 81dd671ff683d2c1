#pragma once

#include <array>
#include <memory>

#include "skyframe/dialogs/DynOptionDlg.h"
#include "skyframe/dialogs/EarthquakeDlg.h"
#include "skyframe/dialogs/GeneralLoadDlg.h"
#include "skyframe/dialogs/ImpulseLoadDlg.h"
#include "skyframe/dialogs/LoadCombDlg.h"
#include "skyframe/dialogs/ModeDlg.h"
#include "skyframe/dialogs/NewmarkDlg.h"
#include "skyframe/dialogs/NonlinStaticDlg.h"
#include "skyframe/dialogs/Resource.h"
#include "skyframe/dialogs/SpectrumDlg.h"
#include "skyframe/dialogs/WilsonDlg.h"

namespace skyframe::test {

inline constexpr int c_nLoadTypes = 4;

/// One of the module's dialogs, with load types on offer where it has a load combination.
struct DialogCase {
  const char* strName;
  std::unique_ptr<CDialog> (*make)();
};

template <class Dialog>
std::unique_ptr<CDialog> MakeDialog() {
  auto pDialog = std::make_unique<Dialog>();
  if constexpr (requires { pDialog->m_loadComb; }) pDialog->m_loadComb.nLoadTypes = c_nLoadTypes;
  return pDialog;
}

inline constexpr std::array c_dialogCases = {
    DialogCase{"mode", MakeDialog<CModeDlg>},
    DialogCase{"spectrum", MakeDialog<CSpectrumDlg>},
    DialogCase{"load_combination", MakeDialog<CLoadCombDlg>},
    DialogCase{"dynamic_options", MakeDialog<CDynOptionDlg>},
    DialogCase{"wilson", MakeDialog<CWilsonDlg>},
    DialogCase{"newmark", MakeDialog<CNewmarkDlg>},
    DialogCase{"static", MakeDialog<CNonlinStaticDlg>},
    DialogCase{"impulse_load", MakeDialog<CImpulseLoadDlg>},
    DialogCase{"general_load", MakeDialog<CGeneralLoadDlg>},
    DialogCase{"earthquake", MakeDialog<CEarthquakeDlg>},
};

}  // namespace skyframe::test
