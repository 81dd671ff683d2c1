#pragma once

#include <cstring>
#include <functional>
#include <utility>
#include <vector>

#include "HostModel.h"
#include "skyframe/connect/Findings.h"
#include "skyframe/connect/ModeConnect.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/values/DialogIds.h"

namespace skyframe::test {

/// A mast of two beams along a bar, numbered so that renumbering pays.
inline void FillMast(CHostModel& host) {
  host.SetSection(1, 2, 10000, 4e7, 2e7, 3e7);
  const double z[] = {0, 8, 12, 4};
  for (int i = 0; i < 4; ++i) host.AddNode(0, 0.1 * i, z[i], c_nRigid, i == 0 ? "111111" : "000000");
  for (const auto& [nI, nJ] : {std::pair{1, 4}, {4, 2}, {2, 3}}) host.AddElement(c_nBeam, nI, nJ);
  host.AddElement(c_nBar, 1, 2);
  host.AddLoad(0, 3, 2, 20.0);
}

/// Copies of the records that an entry point leaves as they were.
struct RecordCopies {
  tagAbcd abcd = ABCD;
  tagComDat comDat = COMDAT;
  tagSect sect = SECT;
  tagComZhu zhu = ZHU;

  bool AreInForce() const {
    return std::memcmp(&abcd, &ABCD, sizeof abcd) == 0 && std::memcmp(&comDat, &COMDAT, sizeof comDat) == 0 &&
           std::memcmp(&sect, &SECT, sizeof sect) == 0 && std::memcmp(&zhu, &ZHU, sizeof zhu) == 0;
  }
};

using Steps = std::vector<DialogStep>;

struct EntryPoint {
  const char* pszSuffix;  ///< of its result file
  std::vector<std::pair<int, Steps>> scripts;
  std::function<void()> call;
  const RunFindings* pFindings = nullptr;  ///< of its last call; the viewer has none
};

inline std::vector<EntryPoint> GetEntryPoints() {
  return {
      {".mode",
       {{c_nIdModeDlg, {DialogStep::Type(c_nIdModes, "2"), DialogStep::Ok()}}},
       CModeConnect::OnMode,
       &GetModalFindings()},
      {".spec",
       {{c_nIdSpectrumDlg, {DialogStep::Type(c_nIdExpandModes, "2"), DialogStep::Ok()}}},
       CModeConnect::OnAnsysSpectrum,
       &GetSpectrumFindings()},
      {"_StaticNonlinearSol.txt",
       {{c_nIdLoadCombDlg, {DialogStep::ToggleRow(c_nIdAvailable, 0), DialogStep::Click(c_nIdAdd), DialogStep::Ok()}},
        {c_nIdNonlinStaticDlg, {DialogStep::Click(c_nIdLoadComb), DialogStep::Ok()}}},
       CModeConnect::OnStaticNonlinearSol,
       &GetStaticFindings()},
      {"_HisTime.txt",
       {{c_nIdDynOptionDlg, {DialogStep::Choose(c_nIdNewmark), DialogStep::Ok()}},
        {c_nIdEarthquakeDlg,
         {DialogStep::Tick(c_nIdQuakeX), DialogStep::Type(c_nIdStep, "0.01"), DialogStep::Type(c_nIdDuration, "0.035"),
          DialogStep::Ok()}},
        {c_nIdNewmarkDlg,
         {DialogStep::Choose(c_nIdGroundMotion), DialogStep::Tick(c_nIdFromFile), DialogStep::Click(c_nIdEarthquake),
          DialogStep::Ok()}}},
       CModeConnect::OnTimeHistoryAnalysis,
       &GetHistoryFindings()},
      {"_4_node.txt",
       {{c_nIdHisResultDlg,
         {DialogStep::Type(c_nIdHistoryNode, "4"), DialogStep::Click(c_nIdRefresh), DialogStep::Click(c_nIdOutput),
          DialogStep::Ok()}}},
       [] {
         COMDYN.m_bHistoryAvailable = 0;  // read from the file
         CModeConnect::OnTimeHistoryRes();
       }},
  };
}

}  // namespace skyframe::test
