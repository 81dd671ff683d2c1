#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "TestPlatform.h"
#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/PaintContext.h"
#include "skyframe/platform/TextWriter.h"

namespace skyframe {
namespace {

using test::CTestPlatform;
using Strings = std::vector<std::string>;
using Steps = std::vector<DialogStep>;

// ---- Numbers as text -------------------------------------------------------------------------------------------

template <class... Arguments>
std::string Print(const char* szFormat, Arguments... arguments) {
  std::array<char, 800> buffer;
  std::snprintf(buffer.data(), buffer.size(), szFormat, arguments...);
  return buffer.data();
}

template <class Write>
std::string Written(Write write) {
  std::ostringstream strm;
  CTextWriter writer(strm);
  write(writer);
  EXPECT_TRUE(writer.Flush());
  return strm.str();
}

/// Values where the digits carry over, ends of the range, and random ones of every magnitude.
std::vector<double> MakeSampleNumbers() {
  const double dSmallest = std::numeric_limits<double>::denorm_min();
  const double dLargest = std::numeric_limits<double>::max();
  std::vector<double> values = {0.0,           -0.0,           1.0,       -1.0,       9.999995e5,
                                9.999994999e5, 999999.5,       1.0e6,     999999.0,   123456.0,
                                100000.0,      99999.95,       9.9999995, 9.9999994,  0.0001,
                                0.00009999995, 9.99999499e-5,  1.0e-5,    0.5,        1.5,
                                2.5,           0.125,          2.5e-5,    1.0e100,    1.0e-100,
                                9.9999999e99,  9.9999999e-101, dSmallest, -dSmallest, 2.2250738585072014e-308,
                                dLargest,      -dLargest,      1.0 / 3.0, 0.045,      1.005};
  std::mt19937_64 random(20240517);
  std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
  std::uniform_int_distribution<int> exponent(-12, 12);
  for (int i = 0; i < 20000; ++i) values.push_back(mantissa(random) * std::pow(10.0, exponent(random)));
  for (int i = 0; i < 20000; ++i) {
    const double dValue = std::bit_cast<double>(random());
    if (std::isfinite(dValue)) values.push_back(dValue);
  }
  return values;
}

/// Texts of all values, one write each.
template <class Write>
Strings WriteAll(const std::vector<double>& values, Write write) {
  std::istringstream strm(Written([&](CTextWriter& writer) {
    for (const double dValue : values) {
      write(writer, dValue);
      writer.EndLine();
    }
  }));
  Strings lines;
  for (std::string strLine; std::getline(strm, strLine);) lines.push_back(strLine);
  return lines;
}

TEST(TextWriter, NumbersHaveTheTextOfPrintf) {
  const std::vector<double> values = MakeSampleNumbers();
  const Strings general = WriteAll(values, [](CTextWriter& w, double d) { w.General(d); });
  const Strings point = WriteAll(values, [](CTextWriter& w, double d) { w.GeneralPoint(d); });
  ASSERT_EQ(general.size(), values.size());
  for (size_t i = 0; i < values.size(); ++i) {
    ASSERT_EQ(general[i], Print("%g", values[i]));
    ASSERT_EQ(FormatGeneral(values[i]), general[i]);
    ASSERT_EQ(FormatFixed(values[i], 2), Print("%.2f", values[i]));
    // Some C libraries drop the zeros of "%#g" where rounding up makes the notation scientific.
    if (std::abs(values[i]) >= 999999.5 && std::abs(values[i]) < 1.0e6) continue;
    ASSERT_EQ(point[i], Print("%#g", values[i]));
  }
  for (const int nDecimals : {0, 1, 3, 6, 15}) {
    const Strings fixed = WriteAll(values, [nDecimals](CTextWriter& w, double d) { w.Fixed(d, nDecimals); });
    for (size_t i = 0; i < values.size(); ++i) ASSERT_EQ(fixed[i], Print("%#.*f", nDecimals, values[i]));
  }
  EXPECT_EQ(Written([](CTextWriter& w) { w.GeneralPoint(1.5).Text(" ").GeneralPoint(9.999995e5); }),
            "1.50000 1.00000e+06");
  EXPECT_EQ(Written([](CTextWriter& w) { w.GeneralPoint(-999999.75).Text(" ").GeneralPoint(999999.25); }),
            "-1.00000e+06 999999.");
}

TEST(TextWriter, NumbersThatAreNone) {
  const double dNan = std::numeric_limits<double>::quiet_NaN();
  const double dInf = std::numeric_limits<double>::infinity();
  const auto write = [](double dValue) {
    return Written([dValue](CTextWriter& w) { w.General(dValue).GeneralPoint(dValue, 5).Fixed(dValue, 0); });
  };
  EXPECT_EQ(write(dNan), "nannan  nan");
  EXPECT_EQ(write(-dNan), "nannan  nan");
  EXPECT_EQ(write(dInf), "infinf  inf");
  EXPECT_EQ(write(-dInf), "-inf-inf -inf");
  EXPECT_EQ(FormatFixed(-dNan, 2), "nan");
}

TEST(TextWriter, FieldsAreFilledNeverCut) {
  EXPECT_EQ(Written([](CTextWriter& w) {
              w.Integer(-12, 6, Align::Right).Integer(34, 5).Text("|").Text("ab", 4, Align::Right).Text("abc", 2);
            }),
            "   -1234   |  ababc");
  EXPECT_EQ(Written([](CTextWriter& w) {
              w.General(0.1, 8, Align::Right).Fixed(2.0, 0, 4).EndLine().Integer(std::numeric_limits<long long>::min());
            }),
            "     0.12.  \n-9223372036854775808");
}

TEST(TextWriter, LongOutputArrivesWholeAndInOrder) {
  std::ostringstream strm;
  std::string strExpected;
  {
    CTextWriter writer(strm);
    for (int i = 0; i < 200000; ++i) {
      writer.Integer(i, 7, Align::Right).EndLine();
      strExpected += Print("%7d\n", i);
    }
    const std::string strHuge(3U << 20U, 'x');
    writer.Text(strHuge).Text("end");
    strExpected += strHuge + "end";
  }
  EXPECT_TRUE(strm.str() == strExpected);
}

TEST(TextWriter, ReportsAFailedStream) {
  std::ostringstream strm;
  CTextWriter writer(strm);
  EXPECT_TRUE(writer.Text("a").Flush());
  strm.setstate(std::ios::badbit);
  EXPECT_FALSE(writer.Text("b").Flush());
  EXPECT_EQ(strm.str(), "a");
}

TEST(NumberText, ShortestTextReadsBackAsTheSameValue) {
  for (const double dValue : MakeSampleNumbers()) {
    const std::optional<double> back = ParseReal(FormatShortest(dValue));
    ASSERT_TRUE(back.has_value()) << FormatShortest(dValue);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(dValue));
  }
  EXPECT_EQ(FormatShortest(1.0e-16), "1e-16");
  EXPECT_EQ(FormatShortest(0.02), "0.02");
  EXPECT_EQ(FormatShortest(10.0), "10");
}

// ---- Files -----------------------------------------------------------------------------------------------------

class Files : public testing::Test {
 protected:
  Files() {
    std::filesystem::remove_all(m_directory);
    std::filesystem::create_directories(m_directory);
  }
  ~Files() override { std::filesystem::remove_all(m_directory); }

  [[nodiscard]] std::string Path(const std::string& strName) const { return (m_directory / strName).string(); }
  [[nodiscard]] int CountFiles() const {
    const std::filesystem::directory_iterator files(m_directory);
    return static_cast<int>(std::distance(begin(files), end(files)));
  }
  static std::string Read(const std::string& strPath) {
    std::ifstream file(strPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path m_directory = std::filesystem::path(testing::TempDir()) / "skyframe_platform_files";
  CTestPlatform m_platform;
};

/// A disk that is full after some bytes.
class CFullDiskBuffer : public std::stringbuf {
 protected:
  std::streamsize xsputn(const char*, std::streamsize) override { return 0; }
  int_type overflow(int_type) override { return traits_type::eof(); }
};

class CFullDiskPlatform : public CHeadlessPlatform {
 public:
  CFullDiskPlatform() : CHeadlessPlatform(std::cerr, std::cout) {}
  std::unique_ptr<std::ostream> OpenForWriting(const std::string& strPath) override {
    CHeadlessPlatform::OpenForWriting(strPath)->flush();
    return std::make_unique<std::ostream>(&m_buffer);
  }

 private:
  CFullDiskBuffer m_buffer;
};

TEST_F(Files, BackslashSeparatesDirectories) {
  std::filesystem::create_directories(m_directory / "GroundAccData");
  const std::string strPath = m_directory.string() + "\\GroundAccData\\地震.txt";
  *m_platform->OpenForWriting(strPath) << "0.5\n";
  EXPECT_EQ(Read(Path("GroundAccData/地震.txt")), "0.5\n");
  std::string strWord;
  *m_platform->OpenForReading(strPath) >> strWord;
  EXPECT_EQ(strWord, "0.5");
  EXPECT_TRUE(m_platform->RenameFile(strPath, m_directory.string() + "\\b.txt"));
  EXPECT_TRUE(m_platform->RemoveFile(m_directory.string() + "\\b.txt"));
  EXPECT_FALSE(m_platform->RemoveFile(Path("b.txt")));
  EXPECT_FALSE(m_platform->RenameFile(Path("b.txt"), Path("c.txt")));
}

TEST_F(Files, WhatIsNotThereIsNull) {
  EXPECT_EQ(m_platform->OpenForReading(Path("absent.txt")), nullptr);
  EXPECT_EQ(m_platform->OpenForReading(m_directory.string()), nullptr) << "a directory is no file";
  EXPECT_EQ(m_platform->OpenForWriting(Path("absent/file.txt")), nullptr);
}

TEST_F(Files, ResultFileReplacesTheOldOneOnlyWhenComplete) {
  const std::string strPath = Path("job.txt");
  std::ofstream(strPath) << "old";
  {
    CResultFile file(strPath);
    ASSERT_TRUE(file.IsOpen());
    file.GetWriter().Text("given up");
  }
  EXPECT_EQ(Read(strPath), "old");
  EXPECT_EQ(CountFiles(), 1) << "the temporary file is left over";
  {
    CResultFile file(strPath);
    file.GetWriter().Text("new").EndLine();
    EXPECT_EQ(Read(strPath), "old") << "visible before it is complete";
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(Read(strPath), "new\n");
  }
  EXPECT_EQ(Read(strPath), "new\n");
  EXPECT_EQ(CountFiles(), 1);
}

TEST_F(Files, FailedWriteKeepsTheOldResult) {
  const std::string strPath = Path("job.txt");
  std::ofstream(strPath) << "old";
  CFullDiskPlatform full;
  IPlatform* const pPrevious = InstallPlatform(&full);
  {
    CResultFile file(strPath);
    ASSERT_TRUE(file.IsOpen());
    file.GetWriter().Text("new");
    EXPECT_FALSE(file.Commit());
  }
  InstallPlatform(pPrevious);
  EXPECT_EQ(Read(strPath), "old");
  EXPECT_EQ(CountFiles(), 1);
  CResultFile nowhere(Path("absent/job.txt"));
  EXPECT_FALSE(nowhere.IsOpen());
  EXPECT_FALSE(nowhere.Commit());
}

// ---- Platform --------------------------------------------------------------------------------------------------

TEST(Platform, DefaultIsHeadlessAndComesBack) {
  std::ostringstream strmError;
  std::streambuf* const pPrevious = std::cerr.rdbuf(strmError.rdbuf());
  GetPlatform().ShowMessage("结构几何可变");
  std::cerr.rdbuf(pPrevious);
  EXPECT_EQ(strmError.str(), "结构几何可变\n");
  IPlatform* const pDefault = &GetPlatform();
  EXPECT_EQ(&GetPlatform().GetConsole(), &std::cout);
  {
    CTestPlatform platform;
    EXPECT_EQ(&GetPlatform(), &*platform);
  }
  EXPECT_EQ(&GetPlatform(), pDefault);
  CTestPlatform platform;
  EXPECT_EQ(InstallPlatform(nullptr), &*platform);
  EXPECT_EQ(&GetPlatform(), pDefault);
}

TEST(Platform, ScopesNestAndLeavingTheModuleEndsWaitCursors) {
  CTestPlatform platform;
  {
    CModuleStateScope module;
    EXPECT_EQ(platform->GetModuleDepth(), 1);
    {
      CWaitCursorScope outer;
      CWaitCursorScope inner;
      EXPECT_EQ(platform->GetWaitCursorDepth(), 2);
    }
    EXPECT_EQ(platform->GetWaitCursorDepth(), 0);
    platform->BeginWaitCursor();
  }
  EXPECT_EQ(platform->GetModuleDepth(), 0);
  EXPECT_EQ(platform->GetWaitCursorDepth(), 0);
  EXPECT_EQ(platform->GetWaitCursorCount(), 3);
}

TEST(Platform, ClockHandsOutTheGivenTimesAndKeepsTheLast) {
  CTestPlatform platform;
  const LocalTime now = platform->GetLocalTime();
  EXPECT_GE(now.nYear, 2024);
  EXPECT_TRUE(now.nMonth >= 1 && now.nMonth <= 12);
  platform->SetClock({{2024, 2, 29, 10, 59, 50}, {2024, 2, 29, 11, 0, 5}});
  EXPECT_EQ(platform->GetLocalTime().nSecond, 50);
  EXPECT_EQ(platform->GetLocalTime().nHour, 11);
  EXPECT_EQ(platform->GetLocalTime().nHour, 11);
}

// ---- Dialogs ---------------------------------------------------------------------------------------------------

constexpr std::array<std::string_view, 3> c_items = {"a", "b", "c"};
constexpr std::array<std::string_view, 2> c_columns = {"node", "value"};

constexpr ControlTemplate c_probeControls[] = {
    {-1, ControlKind::Label, "label", {}, c_nStyleNone, {}},
    {100, ControlKind::Edit, "", {}, c_nStyleNone, {}},
    {101, ControlKind::Edit, "", {}, c_nStyleNone, {}},
    {102, ControlKind::Edit, "", {}, c_nStyleNone, {}},
    {110, ControlKind::Radio, "one", {}, c_nStyleGroup, {}},
    {111, ControlKind::Radio, "two", {}, c_nStyleNone, {}},
    {112, ControlKind::Radio, "three", {}, c_nStyleGroup, {}},
    {113, ControlKind::Radio, "four", {}, c_nStyleNone, {}},
    {120, ControlKind::Check, "check", {}, c_nStyleGroup, {}},
    {130, ControlKind::DropList, "", {}, c_nStyleNone, c_items},
    {140, ControlKind::ListBox, "", {}, c_nStyleSorted | c_nStyleMultiple, {}},
    {141, ControlKind::ListBox, "", {}, c_nStyleNone, c_items},
    {150, ControlKind::ListView, "", {}, c_nStyleNone, c_columns},
    {160, ControlKind::Button, "nest", {}, c_nStyleNone, {}},
    {161, ControlKind::Button, "off", {}, c_nStyleDisabled, {}},
    {1, ControlKind::DefaultButton, "OK", {}, c_nStyleNone, {}},
    {2, ControlKind::Button, "Cancel", {}, c_nStyleNone, {}},
};
constexpr DialogTemplate c_probe{900, "probe", 100, 100, c_probeControls};
constexpr DialogTemplate c_inner{901, "inner", 100, 100, c_probeControls};

class CProbeDlg : public CDialog {
 public:
  explicit CProbeDlg(const DialogTemplate& layout = c_probe) : CDialog(layout) {
    for (const ControlTemplate& control : layout.controls) {
      if (control.nId > 2) Trace(control.nId);
    }
  }

  int m_nInt = 3;
  double m_dReal = 0.25;
  std::string m_strText = "text";
  int m_nFirst = 1;
  int m_nSecond = -1;
  int m_bCheck = 0;
  int m_nItem = 1;
  int m_nTicks = 0;
  Strings m_trace;
  std::function<void(IDialogView&)> m_onInit = [](IDialogView&) {};
  std::function<void(IDialogView&)> m_onButton = [](IDialogView&) {};

  using CDialog::EndDialog;

 protected:
  bool OnInitDialog() override {
    m_onInit(View());
    return CDialog::OnInitDialog();
  }
  void OnTimer(int nTimer) override {
    ++m_nTicks;
    m_trace.push_back("timer " + std::to_string(nTimer));
  }
  void DoDataExchange(CDataExchange& exchange) override {
    exchange.Text(100, m_nInt);
    exchange.Text(101, m_dReal);
    exchange.Text(102, m_strText);
    exchange.Radio(110, m_nFirst);
    exchange.Radio(112, m_nSecond);
    exchange.Check(120, m_bCheck);
    exchange.Index(130, m_nItem);
  }

 private:
  void Trace(int nId) {
    static constexpr std::array<const char*, 4> c_names = {"clicked", "double", "selection", "text"};
    for (const DialogEvent event :
         {DialogEvent::Clicked, DialogEvent::DoubleClicked, DialogEvent::SelectionChanged, DialogEvent::TextChanged}) {
      On(nId, event, [this, nId, event] {
        m_trace.push_back(c_names[static_cast<size_t>(event)] + (" " + std::to_string(nId)));
        if (nId == 160) m_onButton(View());
      });
    }
  }
};

class Dialogs : public testing::Test {
 protected:
  int Run(Steps steps) {
    m_platform->AddScript(900, std::move(steps));
    return m_dialog.DoModal();
  }
  [[nodiscard]] const Strings& Errors() { return m_platform->GetScriptErrors(); }

  CTestPlatform m_platform;
  CProbeDlg m_dialog;
};

TEST_F(Dialogs, ValuesGoToTheControlsAndBack) {
  const int nResult = Run({DialogStep::Inspect([](const IDialogView& view) {
                             EXPECT_EQ(view.GetText(100), "3");
                             EXPECT_EQ(view.GetText(101), "0.25");
                             EXPECT_EQ(view.GetText(102), "text");
                             EXPECT_TRUE(view.GetCheck(111) && !view.GetCheck(110) && !view.GetCheck(112));
                             EXPECT_EQ(view.GetCurrent(130), 1);
                             EXPECT_EQ(view.GetFocus(), 100) << "first control in tab order";
                           }),
                           DialogStep::Type(100, " +12 "), DialogStep::Type(101, "-1.5E3\t"),
                           DialogStep::Type(102, " 中文 "), DialogStep::Choose(110), DialogStep::Choose(113),
                           DialogStep::Tick(120), DialogStep::ChooseItem(130, "c"), DialogStep::Ok()});
  EXPECT_EQ(nResult, c_nIdOk);
  EXPECT_EQ(m_dialog.m_nInt, 12);
  EXPECT_EQ(m_dialog.m_dReal, -1500.0);
  EXPECT_EQ(m_dialog.m_strText, " 中文 ");
  EXPECT_EQ(m_dialog.m_nFirst, 0);
  EXPECT_EQ(m_dialog.m_nSecond, 1) << "the two groups are independent";
  EXPECT_EQ(m_dialog.m_bCheck, 1);
  EXPECT_EQ(m_dialog.m_nItem, 2);
  EXPECT_EQ(m_dialog.m_trace, (Strings{"text 100", "text 101", "text 102", "clicked 110", "clicked 113", "clicked 120",
                                       "selection 130"}));
  EXPECT_TRUE(Errors().empty());
}

TEST_F(Dialogs, CancelLeavesTheMembersAlone) {
  EXPECT_EQ(Run({DialogStep::Type(100, "77"), DialogStep::Cancel()}), c_nIdCancel);
  EXPECT_EQ(m_dialog.m_nInt, 3);
  EXPECT_EQ(m_dialog.DoModal(), c_nIdCancel) << "a dialog without a script is cancelled";
  EXPECT_EQ(Run({DialogStep::Type(100, "77")}), c_nIdCancel) << "and so is one whose script ends early";
  EXPECT_EQ(m_dialog.m_nInt, 3);
  EXPECT_FALSE(m_platform->HasUnusedScripts());
}

TEST_F(Dialogs, FieldsThatAreNoNumbersAreRefused) {
  struct Case {
    int nId;
    const char* szText;
  };
  const char* const c_szHuge = "123456789012345678901234567890";
  std::vector<Case> cases = {{100, "2147483648"}, {100, "-2147483649"}, {100, c_szHuge}, {100, "1.0"}, {100, "1e2"},
                             {101, "1e999"},      {101, "-1e999"},      {101, "nan"},    {101, "inf"}, {101, "-inf"},
                             {101, "infinity"},   {101, "1,5"},         {101, "1.5.2"},  {101, "1e"},  {101, "."}};
  for (const int nId : {100, 101}) {
    for (const char* szText : {"", "  ", "abc", "1x", "x1", "1 2", "0x10", "+-1", "++1", "-", "+", "１２"}) {
      cases.push_back({nId, szText});
    }
  }
  for (const Case& c : cases) {
    m_platform->Clear();
    const int nResult = Run({DialogStep::Type(102, "new"), DialogStep::Type(c.nId, c.szText), DialogStep::Ok(),
                             DialogStep::Inspect([&](const IDialogView& view) {
                               EXPECT_EQ(view.GetFocus(), c.nId);
                               EXPECT_EQ(view.GetText(c.nId), c.szText) << "the text stays for correction";
                             })});
    EXPECT_EQ(nResult, c_nIdCancel) << c.szText;
    EXPECT_EQ(m_platform.GetMessages(), Strings{c.nId == 100 ? "请输入一个整数。" : "请输入一个数字。"}) << c.szText;
    EXPECT_EQ(m_dialog.m_strText, "text") << "fields behind the wrong one are not read";
  }
  EXPECT_EQ(m_dialog.m_nInt, 3);
  EXPECT_EQ(m_dialog.m_dReal, 0.25);
}

TEST_F(Dialogs, FieldsAtTheEndsOfTheirRangeAreTaken) {
  const int nResult =
      Run({DialogStep::Type(100, "-2147483648"), DialogStep::Type(101, "1.7976931348623157e308"), DialogStep::Ok()});
  EXPECT_EQ(nResult, c_nIdOk);
  EXPECT_EQ(m_dialog.m_nInt, std::numeric_limits<int>::min());
  EXPECT_EQ(m_dialog.m_dReal, std::numeric_limits<double>::max());
}

TEST_F(Dialogs, OnlyTheFirstWrongFieldIsReportedAndCanBeCorrected) {
  const int nResult = Run({DialogStep::Type(100, ""), DialogStep::Type(101, ""), DialogStep::Ok(),
                           DialogStep::Type(100, "5"), DialogStep::Ok(), DialogStep::Type(101, "6"), DialogStep::Ok()});
  EXPECT_EQ(nResult, c_nIdOk);
  EXPECT_EQ(m_platform.GetMessages(), (Strings{"请输入一个整数。", "请输入一个数字。"}));
  EXPECT_EQ(m_dialog.m_nInt, 5);
  EXPECT_EQ(m_dialog.m_dReal, 6.0);
}

TEST_F(Dialogs, ARadioGroupMayHaveNoButtonChecked) {
  m_dialog.m_nFirst = 7;
  EXPECT_EQ(Run({DialogStep::Ok()}), c_nIdOk);
  EXPECT_EQ(m_dialog.m_nFirst, -1);
  EXPECT_EQ(m_dialog.m_nSecond, -1);
}

TEST_F(Dialogs, WhatAPersonCouldNotDoEndsTheDialog) {
  const std::vector<std::pair<DialogStep, std::string>> cases = {
      {DialogStep::Click(161), "dialog 900, step 1, control 161: the control is disabled"},
      {DialogStep::Click(999), "dialog 900, step 1, control 999: there is no such control"},
      {DialogStep::Type(120, "x"), "dialog 900, step 1, control 120: the control cannot be used that way"},
      {DialogStep::Tick(110), "dialog 900, step 1, control 110: the control cannot be used that way"},
      {DialogStep::ChooseItem(130, 3), "dialog 900, step 1, control 130: there is no such row"},
      {DialogStep::ChooseItem(130, "d"), "dialog 900, step 1, control 130: there is no such row"},
      {DialogStep::ToggleRow(140, 0), "dialog 900, step 1, control 140: there is no such row"},
      {DialogStep::DoubleClick(141, -2), "dialog 900, step 1, control 141: there is no such row"},
  };
  for (const auto& [step, strError] : cases) {
    m_platform->Clear();
    EXPECT_EQ(Run({step, DialogStep::Ok()}), c_nIdCancel);
    EXPECT_EQ(Errors(), Strings{strError});
  }
  m_platform->Clear();
  EXPECT_EQ(Run({DialogStep::Ok(), DialogStep::Wait(1)}), c_nIdOk);
  EXPECT_EQ(Errors(), Strings{"dialog 900, step 2, control 0: the dialog has ended"});
}

TEST_F(Dialogs, TickAsksForAStateAndClickToggles) {
  Run({DialogStep::Tick(120, false), DialogStep::Tick(120), DialogStep::Tick(120), DialogStep::Click(120),
       DialogStep::Inspect([](const IDialogView& view) { EXPECT_FALSE(view.GetCheck(120)); })});
  EXPECT_EQ(m_dialog.m_trace, (Strings{"clicked 120", "clicked 120"}));
}

TEST_F(Dialogs, ListsSortSelectAndShift) {
  m_dialog.m_onInit = [](IDialogView& view) {
    EXPECT_EQ(view.AddItem(140, "m"), 0);
    EXPECT_EQ(view.AddItem(140, "z"), 1);
    EXPECT_EQ(view.AddItem(140, "b"), 0);
    view.InsertItem(140, 1, "zz");  // b zz m z
    view.Select(140, 2, true);
  };
  Run({DialogStep::ToggleRow(140, "z"), DialogStep::Inspect([](const IDialogView& view) {
         EXPECT_EQ(view.GetItemText(140, 1), "zz") << "inserting does not sort";
         EXPECT_TRUE(view.IsSelected(140, 2) && view.IsSelected(140, 3)) << "several rows at once";
         EXPECT_EQ(view.GetCurrent(140), 3);
       }),
       DialogStep::ToggleRow(140, 2), DialogStep::Inspect([](const IDialogView& view) {
         EXPECT_FALSE(view.IsSelected(140, 2));
         EXPECT_EQ(view.GetCurrent(140), 2) << "a row can have the focus without being selected";
       }),
       DialogStep::ToggleRow(141, 0), DialogStep::DoubleClick(141, 2), DialogStep::Inspect([](const IDialogView& view) {
         EXPECT_FALSE(view.IsSelected(141, 0)) << "one row at a time";
         EXPECT_TRUE(view.IsSelected(141, 2));
       })});
  EXPECT_EQ(m_dialog.m_trace,
            (Strings{"selection 140", "selection 140", "selection 141", "selection 141", "double 141"}));
}

TEST_F(Dialogs, TheCurrentRowMovesWithItsNeighbours) {
  const auto look = [](int nCurrent) {
    return DialogStep::Inspect([nCurrent](const IDialogView& view) { EXPECT_EQ(view.GetCurrent(141), nCurrent); });
  };
  m_dialog.m_onButton = [](IDialogView& view) { view.DeleteItem(141, 0); };
  Run({DialogStep::ToggleRow(141, 1), DialogStep::Click(160), look(0), DialogStep::Click(160), look(-1)});
  m_dialog.m_onButton = [](IDialogView& view) { view.InsertItem(141, 1, "new"); };
  Run({DialogStep::ToggleRow(141, 1), DialogStep::Click(160), look(2), DialogStep::Click(160), look(3),
       DialogStep::ToggleRow(141, 0), DialogStep::Click(160), look(0)});
}

TEST_F(Dialogs, ListViewHasCellsUnderColumns) {
  m_dialog.m_onInit = [](IDialogView& view) {
    view.InsertItem(150, 0, "12");
    view.SetCell(150, 0, 1, "3.5");
    view.SetCell(150, 0, 2, "beyond");
    view.SetCell(150, 9, 0, "beyond");
    EXPECT_EQ(view.GetItemCount(150), 1);
    EXPECT_EQ(view.GetItemText(150, 0, 0) + view.GetItemText(150, 0, 1) + view.GetItemText(150, 0, 2), "123.5");
    EXPECT_EQ(view.GetItemText(150, 5, 0), "");
  };
  Run({DialogStep::ToggleRow(150, 0)});
  EXPECT_EQ(m_dialog.m_trace, Strings{"selection 150"});
}

TEST_F(Dialogs, AMissingControlIsReported) {
  m_dialog.m_onInit = [](IDialogView& view) {
    view.SetText(12345, "x");
    EXPECT_EQ(view.GetText(100), "");
  };
  Run({});
  EXPECT_EQ(Errors(), Strings{"dialog 900, control 12345: there is no such control"});
}

TEST_F(Dialogs, AButtonOpensAnotherDialog) {
  CProbeDlg inner(c_inner);
  int nInnerResult = 0;
  m_dialog.m_onButton = [&](IDialogView& view) {
    nInnerResult = inner.DoModal();
    view.SetText(102, inner.m_strText);
  };
  m_platform->AddScript(901, {DialogStep::Type(102, "from inside"), DialogStep::Ok()});
  EXPECT_EQ(Run({DialogStep::Click(160), DialogStep::Type(100, "9"), DialogStep::Ok()}), c_nIdOk);
  EXPECT_EQ(nInnerResult, c_nIdOk);
  EXPECT_EQ(m_dialog.m_strText, "from inside");
  EXPECT_EQ(m_dialog.m_nInt, 9);
  EXPECT_EQ(inner.m_nInt, 3);
}

TEST_F(Dialogs, ScriptsServeOneOpeningEachInTheirOrder) {
  m_platform->AddScript(900, {DialogStep::Type(100, "1"), DialogStep::Ok()});
  m_platform->AddScript(900, {DialogStep::Type(100, "2"), DialogStep::Ok()});
  m_dialog.DoModal();
  EXPECT_EQ(m_dialog.m_nInt, 1);
  EXPECT_TRUE(m_platform->HasUnusedScripts());
  m_dialog.DoModal();
  EXPECT_EQ(m_dialog.m_nInt, 2);
  EXPECT_FALSE(m_platform->HasUnusedScripts());
}

TEST_F(Dialogs, TimersFireWhileTimePasses) {
  m_dialog.m_onInit = [](IDialogView& view) {
    view.StartTimer(1, 1000);
    view.StartTimer(2, 400);
  };
  m_dialog.m_onButton = [](IDialogView& view) { view.StopTimer(2); };
  EXPECT_EQ(Run({DialogStep::Wait(999), DialogStep::Wait(1), DialogStep::Click(160), DialogStep::Wait(2000),
                 DialogStep::Ok()}),
            c_nIdOk);
  EXPECT_EQ(m_dialog.m_trace, (Strings{"timer 2", "timer 2", "timer 1", "clicked 160", "timer 1", "timer 1"}));
}

TEST_F(Dialogs, TimersOfTheOuterDialogRunOn) {
  CProbeDlg inner(c_inner);
  m_dialog.m_onInit = [](IDialogView& view) { view.StartTimer(1, 100); };
  m_dialog.m_onButton = [&](IDialogView&) { inner.DoModal(); };
  m_platform->AddScript(901, {DialogStep::Wait(250)});
  Run({DialogStep::Click(160), DialogStep::Wait(50)});
  EXPECT_EQ(m_dialog.m_nTicks, 3);
  EXPECT_EQ(inner.m_nTicks, 0);
}

// ---- Painting --------------------------------------------------------------------------------------------------

void DrawSample(IPaintContext& paint) {
  paint.SetPen({255, 0, 0}, 2.0);
  paint.SetBrush({0xF0, 0xF0, 0xF0});
  paint.Rectangle(30.0, 40.0, -20.0, -10.0);
  paint.Line(0.0, 0.0, 1.5, -0.001);
  const std::array<PaintPoint, 3> points = {PaintPoint{0.0, 0.0}, PaintPoint{1.0, 2.0}, PaintPoint{3.0, 4.0}};
  paint.Polyline(points);
  paint.Polyline(std::span(points).first(1));
  paint.SetTextHeight(10.0);
  paint.Text(5.0, 6.0, "位移 <a> & \"b\"\x01\xFF", HorizontalAlign::Right, VerticalAlign::Baseline);
  const double dNan = std::numeric_limits<double>::quiet_NaN();
  paint.Line(0.0, dNan, 1.0, 1.0);
  paint.Rectangle(0.0, 0.0, 1.0 / 0.0, 1.0);
  paint.Text(dNan, 0.0, "x");
}

TEST(Paint, RecorderKeepsItemsWithTheirState) {
  CPaintRecorder recorder;
  DrawSample(recorder);
  const std::vector<PaintItem>& items = recorder.GetItems();
  ASSERT_EQ(items.size(), 4U) << "items without a finite place are left out";
  EXPECT_EQ(items[0].kind, PaintItem::Kind::Rectangle);
  EXPECT_EQ(items[0].points, (std::vector<PaintPoint>{{10.0, 30.0}, {30.0, 40.0}}));
  EXPECT_EQ(items[0].state.brush, (Colour{0xF0, 0xF0, 0xF0}));
  EXPECT_EQ(items[0].state.pen, (Colour{255, 0, 0}));
  EXPECT_EQ(items[1].points.size(), 2U);
  EXPECT_EQ(items[2].points.size(), 3U);
  EXPECT_EQ(items[3].state.dTextHeight, 10.0);
  EXPECT_EQ(items[3].horizontal, HorizontalAlign::Right);
}

TEST(Paint, SvgIsTheExactDocument) {
  CSvgPaintContext svg(320, 200);
  DrawSample(svg);
  const std::string strDocument = svg.GetDocument();
  const size_t nBody = strDocument.find("<rect x=");
  ASSERT_NE(nBody, std::string::npos);
  EXPECT_EQ(strDocument.substr(0, strDocument.find(" font-family")),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" "
            "width=\"320\" height=\"200\" viewBox=\"0 0 320 200\"");
  EXPECT_NE(strDocument.find("<rect width=\"320\" height=\"200\" fill=\"#ffffff\"/>\n"), std::string::npos);
  EXPECT_EQ(strDocument.substr(nBody),
            "<rect x=\"10\" y=\"30\" width=\"20\" height=\"10\" fill=\"#f0f0f0\" stroke=\"#ff0000\" "
            "stroke-width=\"2\"/>\n"
            "<polyline points=\"0,0 1.5,0\" fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\"/>\n"
            "<polyline points=\"0,0 1,2 3,4\" fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\"/>\n"
            "<text x=\"5\" y=\"6\" font-size=\"10\" text-anchor=\"end\" fill=\"#ff0000\">"
            "位移 &lt;a&gt; &amp; \"b\"\uFFFD\uFFFD</text>\n</svg>\n");
}

TEST(Paint, BrokenUtf8NeverReachesTheDocument) {
  for (const std::string_view strText :
       {"\x80", "\xC0\xAF", "\xE4\xBD", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xEF\xBF\xBE", "\xE0\x80\xAF"}) {
    CSvgPaintContext svg(10, 10);
    svg.Text(0.0, 0.0, strText);
    const std::string strDocument = svg.GetDocument();
    EXPECT_EQ(strDocument.find(strText), std::string::npos);
    EXPECT_NE(strDocument.find("\uFFFD"), std::string::npos);
  }
  CSvgPaintContext svg(10, 10);
  svg.Text(0.0, 0.0, "θ𝛼é\t");
  EXPECT_NE(svg.GetDocument().find(">θ𝛼é\t<"), std::string::npos);
}

}  // namespace
}  // namespace skyframe
