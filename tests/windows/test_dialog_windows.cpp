// The module's dialogs as real windows, worked by mouse and keyboard, against the scripted view that runs
// the same steps: same controls, same focus, same messages, same values. Every program of windows compiles it.

#include "AllDialogs.h"
#include "Person.h"
#include "skyframe/platform/DialogContent.h"
#include "skyframe/platform/DialogRules.h"

namespace skyframe::test {
namespace {

/// What came out of one opening of a dialog.
struct Outcome {
  int nResult = 0;
  std::string strSeen;  ///< of the open dialogs before each step, of the dialog opened once more, and all script errors
  Strings messages;
};

/// What stands in every control with an identifier, one a line, and which has the focus.
std::string Describe(const IDialogView& view, const DialogTemplate& layout) {
  std::ostringstream strm;
  for (const auto& [nId, content] : ReadContent(layout, view)) {
    strm << nId << " '" << content.strText << "' " << content.nChoice << ' ' << view.GetCheck(nId) << content.bEnabled
         << ' ' << view.GetCurrent(nId);
    for (int nRow = 0; const auto& row : content.rows) {
      strm << (view.IsSelected(nId, nRow++) ? " *" : " ");
      for (const std::string& strCell : row) strm << strCell << '|';
    }
    strm << '\n';
  }
  strm << "focus " << view.GetFocus() << "\n--\n";
  return strm.str();
}

/// Opens the dialog twice, the second time only to look, while the watch is kept.
template <class Platform, class Watch>
Outcome Run(Platform& platform, Maker make, const Steps& steps, const Watch& watch) {
  ResetHostData();
  Outcome outcome;
  const std::unique_ptr<CDialog> pDialog = make();
  const DialogTemplate& layout = pDialog->GetTemplate();
  const DialogStep look =
      Do::Inspect([&outcome, &layout](const IDialogView& view) { outcome.strSeen += Describe(view, layout); });
  Steps observed;
  for (const DialogStep& step : steps) observed.insert(observed.end(), {look, step});
  platform.AddScript(layout.nId, observed);
  platform.AddScript(layout.nId, {look});
  watch([&] {
    outcome.nResult = pDialog->DoModal();
    pDialog->DoModal();
  });
  outcome.messages = platform.GetMessages();
  for (const std::string& strError : platform.GetScriptErrors()) outcome.strSeen += "error: " + strError;
  if (platform.HasUnusedScripts()) outcome.strSeen += "error: unused scripts";
  return outcome;
}

/// Runs the steps by hand and scripted, compares, and returns the outcome.
Outcome RunBoth(Maker make, const Steps& steps) {
  Outcome scripted;
  {
    CTestPlatform platform;
    scripted = Run(*platform, make, steps, [](const std::function<void()>& action) { action(); });
  }
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  const auto watch = [&pPerson](const std::function<void()>& action) { pPerson->Watch(action); };
  const Outcome byHand = Run(*pPerson, make, steps, watch);
  std::ofstream(SKYFRAME_PICTURE_DIR "/views.txt", std::ios::app | std::ios::binary)
      << byHand.strSeen;  // for other kinds of windows
  EXPECT_EQ(byHand.nResult, scripted.nResult);
  EXPECT_EQ(byHand.strSeen, scripted.strSeen);
  EXPECT_EQ(byHand.messages, scripted.messages);
  EXPECT_EQ(scripted.strSeen.find("error: "), std::string::npos) << scripted.strSeen;
  return byHand;
}

/// In the scripted view.
bool CanBeDone(Maker make, const Steps& steps) {
  const std::unique_ptr<CDialog> pDialog = make();
  CTestPlatform platform;
  platform->AddScript(pDialog->GetTemplate().nId, steps);
  pDialog->DoModal();
  return platform->GetScriptErrors().empty();
}

/// Works every control that is enabled when its turn comes: types, ticks, chooses, marks rows, presses.
/// Dialogs behind the buttons are left by Esc.
Steps TouchEverything(Maker make) {
  Steps touched;
  for (const ControlTemplate& control : make()->GetTemplate().controls) {
    if (control.nId == -1 || control.nId == c_nIdOk || control.nId == c_nIdCancel) continue;
    Steps steps;
    if (control.kind == ControlKind::Edit) steps = {Do::Type(control.nId, "2")};
    if (control.kind == ControlKind::Check) steps = {Do::Tick(control.nId), Do::Tick(control.nId)};
    if (control.kind == ControlKind::Radio) steps = {Do::Choose(control.nId)};
    if (control.kind == ControlKind::Button) steps = {Do::Click(control.nId)};
    if (control.kind == ControlKind::DropList) {
      steps = {Do::ChooseItem(control.nId, static_cast<int>(control.items.size()) - 1)};
    }
    if (control.kind == ControlKind::ListBox || control.kind == ControlKind::ListView) {
      steps = {Do::ToggleRow(control.nId, 0)};
    }
    steps.insert(steps.begin(), touched.begin(), touched.end());
    if (CanBeDone(make, steps)) touched = steps;
  }
  return touched;
}

class EveryDialog : public ::testing::TestWithParam<Maker> {
 protected:
  DialogTemplate Layout() const { return GetParam()()->GetTemplate(); }
};

TEST_P(EveryDialog, TouchedAllOverAndAcceptedOrCancelled) {
  Steps steps = TouchEverything(GetParam());
  EXPECT_GE(steps.size(), 2U);
  for (const auto& [step, nResult] : {std::pair{Do::Ok(), c_nIdOk}, {Do::Cancel(), c_nIdCancel}}) {
    steps.push_back(step);
    EXPECT_EQ(RunBoth(GetParam(), steps).nResult, nResult);
    steps.pop_back();
  }
}

TEST_P(EveryDialog, LeftByKeysAndFrame) {
  using Key = IPerson::Key;
  for (const auto& [key, nExpected] : {std::pair{Key::Return, c_nIdOk},
                                       {Key::Enter, c_nIdOk},
                                       {Key::Escape, c_nIdCancel},
                                       {Key::CloseFrame, c_nIdCancel}}) {
    const std::unique_ptr<IPerson> pPerson = MakePerson();
    ResetHostData();
    pPerson->AddScript(Layout().nId,
                       {Do::Inspect([&pPerson, nPressed = key](const IDialogView&) { pPerson->Press(nPressed); })});
    int nResult = -1;
    pPerson->Watch([&] { nResult = GetParam()()->DoModal(); });
    EXPECT_EQ(nResult, nExpected);
    EXPECT_TRUE(pPerson->GetMessages().empty());
  }
}

TEST_P(EveryDialog, TellsOfEveryControlInTheLanguageChosen) {
  for (const TipLanguage language : {TipLanguage::Chinese, TipLanguage::English}) {
    const std::unique_ptr<IPerson> pPerson = MakePerson();
    if (language == TipLanguage::English) pPerson->GetWindows().SetTipLanguage(language);
    const DialogTemplate layout = Layout();
    const bool bEnglish = language == TipLanguage::English;
    pPerson->AddScript(layout.nId, {Do::Inspect([&](const IDialogView&) {
                         for (const ControlTemplate& control : layout.controls) {
                           if (!CanFocus(control.kind)) continue;
                           const std::string strTip = pPerson->ReadTip(control.nId);
                           EXPECT_EQ(strTip, layout.GetTip(control.nId, language)) << control.nId;
                           const auto nLatin =
                               std::ranges::count_if(strTip, [](char c) { return c >= ' ' && c <= '~'; });
                           EXPECT_EQ(2 * nLatin > std::ssize(strTip), bEnglish) << control.nId << strTip;
                         }
                       })});
    ResetHostData();
    pPerson->Watch([&] { GetParam()()->DoModal(); });
  }
}

/// Identifiers of the controls that the Tab key visits, until it comes round.
std::vector<int> VisitByTab(Maker make, std::map<int, bool>& enabled) {
  constexpr int c_nMostStops = 60;
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  const std::unique_ptr<CDialog> pDialog = make();
  std::vector<int> visited;
  const DialogStep stop = Do::Inspect([&](const IDialogView& view) {
    for (const ControlTemplate& control : pDialog->GetTemplate().controls) {
      enabled[control.nId] = control.nId != -1 && view.IsEnabled(control.nId);
    }
    visited.push_back(view.GetFocus());
    pPerson->Press(IPerson::Key::Tab);
  });
  ResetHostData();
  pPerson->AddScript(pDialog->GetTemplate().nId, Steps(c_nMostStops, stop));
  pPerson->Watch([&] { pDialog->DoModal(); });
  const auto again = std::find(visited.begin() + 1, visited.end(), visited.front());
  EXPECT_NE(again, visited.end()) << "the Tab key comes round";
  visited.erase(again, visited.end());
  return visited;
}

TEST_P(EveryDialog, TabVisitsControlsInTemplateOrder) {
  std::map<int, bool> enabled;
  const std::vector<int> visited = VisitByTab(GetParam(), enabled);
  std::vector<int> order;
  for (const ControlTemplate& control : Layout().controls) {
    if (std::find(visited.begin(), visited.end(), control.nId) != visited.end()) order.push_back(control.nId);
    const bool bStops = control.kind == ControlKind::Edit || control.kind == ControlKind::Button ||
                        control.kind == ControlKind::DefaultButton || control.kind == ControlKind::Check;
    if (bStops && enabled[control.nId]) {
      EXPECT_NE(std::find(visited.begin(), visited.end(), control.nId), visited.end()) << control.nId;
    }
  }
  EXPECT_EQ(visited, order);
}

INSTANTIATE_TEST_SUITE_P(All, EveryDialog, ::testing::ValuesIn(c_makers));

TEST(ModalWindow, BadNumbersAreRefused) {
  for (const char* szBad : {"x", "", "1e999", "1,5"}) {
    const Steps steps = {Do::Type(c_nIdModes, szBad), Do::Choose(c_nIdModeComparison), Do::Ok(), Do::Wait(0)};
    EXPECT_EQ(RunBoth(MakeDialog<CModeDlg>, steps).messages, Strings{"请输入一个整数。"}) << szBad;
  }
}

TEST(ModalWindow, RefusedNumberIsReplacedByTyping) {
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  const auto press = [&pPerson](IPerson::Key key) {
    return Do::Inspect([&pPerson, key](const IDialogView&) { pPerson->Press(key); });
  };
  ResetHostData();
  pPerson->AddScript(c_nIdModeDlg, {Do::Type(c_nIdModes, "12x"), press(IPerson::Key::Return),
                                    press(IPerson::Key::Seven), press(IPerson::Key::Return)});
  CModeDlg dialog;
  pPerson->Watch([&] { dialog.DoModal(); });
  EXPECT_EQ(pPerson->GetMessages(), Strings{"请输入一个整数。"});
  EXPECT_EQ(dialog.m_nModes, 7);
}

TEST(SpectrumWindow, ArrowKeysStepRoundAGroup) {
  using Key = IPerson::Key;
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  Steps steps = {Do::Choose(c_nIdIntensity7Half)};
  for (const auto& [key, nExpected] : {std::pair{Key::Down, c_nIdIntensity8},
                                       {Key::Right, c_nIdIntensity8Half},
                                       {Key::Down, c_nIdIntensity9},
                                       {Key::Down, c_nIdIntensity6},
                                       {Key::Up, c_nIdIntensity9},
                                       {Key::Left, c_nIdIntensity8Half}}) {
    steps.push_back(Do::Inspect([&pPerson, nPressed = key](const IDialogView&) { pPerson->Press(nPressed); }));
    steps.push_back(Do::Inspect([nButton = nExpected](const IDialogView& view) {
      EXPECT_EQ(view.GetFocus(), nButton);
      EXPECT_TRUE(view.GetCheck(nButton));
    }));
  }
  steps.push_back(Do::Ok());
  ResetHostData();
  pPerson->AddScript(c_nIdSpectrumDlg, steps);
  pPerson->Watch([] { MakeDialog<CSpectrumDlg>()->DoModal(); });
  EXPECT_EQ(pPerson->GetScriptErrors(), Strings{});
}

TEST(LoadCombinationWindow, RowsMoveAsInTheScriptedView) {
  const Steps steps = {Do::DoubleClick(c_nIdAvailable, 2),
                       Do::ToggleRow(c_nIdAvailable, "活1"),
                       Do::ToggleRow(c_nIdAvailable, "活3"),
                       Do::ToggleRow(c_nIdAvailable, "静"),
                       Do::ToggleRow(c_nIdAvailable, "活3"),
                       Do::Type(c_nIdFactor, "1.25"),
                       Do::Click(c_nIdAdd),
                       Do::DoubleClick(c_nIdCombined, 1),
                       Do::Ok()};
  RunBoth(MakeDialog<CLoadCombDlg>, steps);
}

TEST(NewmarkWindow, OpensAtTheChosenLoadAndLeavesItChosen) {
  const Maker make = [] {
    auto pDialog = std::make_unique<CNewmarkDlg>();
    pDialog->m_nLoadType = 1;
    return std::unique_ptr<CDialog>(std::move(pDialog));
  };
  const std::string strSeen = RunBoth(make, {Do::Ok()}).strSeen;
  EXPECT_NE(strSeen.find("focus " + std::to_string(c_nIdGroundMotion)), std::string::npos) << strSeen;
}

TEST(LoadCombinationWindow, UnfinishedNumberGetsItsMessageWhileTyping) {
  const std::unique_ptr<IPerson> pPerson = MakePerson();
  pPerson->AddScript(c_nIdLoadCombDlg,
                     {Do::Type(c_nIdFactor, "2e1"), Do::ToggleRow(c_nIdAvailable, 0), Do::Click(c_nIdAdd), Do::Ok()});
  CLoadCombDlg dialog;
  dialog.m_loadComb.nLoadTypes = 1;
  pPerson->Watch([&] { dialog.DoModal(); });
  EXPECT_EQ(pPerson->GetMessages(), Strings{"请输入一个数字。"}) << "at 2e";
  EXPECT_EQ(dialog.m_loadComb.factors[0], 20.0) << "typing goes on where it was";
}

}  // namespace
}  // namespace skyframe::test
