#include <bit>
#include <future>
#include <iostream>

#include "ProbeDialog.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/PaintContext.h"
#include "skyframe/values/Findings.h"

namespace skyframe::test {
namespace {

namespace fs = std::filesystem;

// ---- Numbers as text -------------------------------------------------------------------------------------------

template <class... Arguments>
std::string Print(const char* szFormat, Arguments... arguments) {
  std::array<char, 2000> buffer;
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
  const double dSmallest = std::numeric_limits<double>::denorm_min(), dLargest = std::numeric_limits<double>::max();
  std::vector<double> values = {0.0,    -0.0,          9.999994999e5, 999999.0,   99999.95,  9.9999995,
                                0.0001, 0.00009999995, 9.99999499e-5, 0.5,        1.5,       2.5,
                                2.5e-5, 1.0e6,         dSmallest,     -dSmallest, -dLargest, 1.005};
  std::mt19937_64 random(20240517);
  std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
  std::uniform_int_distribution<int> exponent(-12, 12);
  for (int i = 0; i < 3000; ++i) {
    values.push_back(mantissa(random) * std::pow(10.0, exponent(random)));
    const double dValue = std::bit_cast<double>(random());
    if (std::isfinite(dValue)) values.push_back(dValue);
  }
  // Some C libraries drop the zeros of "%#g" where rounding up makes the notation scientific.
  std::erase_if(values, [](double d) { return std::abs(d) >= 999999.5 && std::abs(d) < 1.0e6; });
  return values;
}

TEST(TextWriter, NumbersHaveTheTextOfPrintf) {
  for (const double d : MakeSampleNumbers()) {
    ASSERT_EQ(Written([d](CTextWriter& w) {
                w.General(d).Text(" ").GeneralPoint(d).Text(" ");
                w.Fixed(d, 0).Text(" ").Fixed(d, 3).Text(" ").Fixed(d, 15);
              }),
              Print("%g %#g %#.0f %#.3f %#.15f", d, d, d, d, d));
    ASSERT_EQ(FormatGeneral(d) + FormatFixed(d, 2), Print("%g%.2f", d, d));
    const std::optional<double> back = ParseReal(FormatShortest(d));
    ASSERT_TRUE(back.has_value()) << d;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(d));
  }
  std::vector<double> row = {0.0, -0.0, -1e-9, 5e9, 5e9, 0.0625, 0.0625, std::nan(""), 3187.381, 3187.3810001};
  for (int k = 0; k < 400; ++k) row.insert(row.end(), {1.0 * k, 1.0 * k, -2.5e6, -2.5e6});
  std::string strFields;
  for (const double d : row) strFields += Print(std::isnan(d) ? "%-15f" : "%-15.3f", d);
  EXPECT_EQ(Written([&row](CTextWriter& w) { w.FixedRow(row, 3, 15).FixedRow(row, 3, 15).FixedRow(row, 3, 15); }),
            strFields + strFields + strFields);
  EXPECT_EQ(Written([](CTextWriter& w) { w.GeneralPoint(1.5).Text(" ").GeneralPoint(-999999.75); }),
            "1.50000 -1.00000e+06");
  EXPECT_EQ(FormatShortest(1.0e-16) + " " + FormatShortest(0.02) + " " + FormatShortest(10.0), "1e-16 0.02 10");
}

TEST(TextWriter, NumbersThatAreNoneAndFieldsFilledNeverCut) {
  const double dNan = std::numeric_limits<double>::quiet_NaN(), dInf = std::numeric_limits<double>::infinity();
  for (const auto& [dValue, szText] :
       {std::pair(dNan, "nannan  nan"), {-dNan, "nannan  nan"}, {dInf, "infinf  inf"}, {-dInf, "-inf-inf -inf"}}) {
    const double d = dValue;
    EXPECT_EQ(Written([d](CTextWriter& w) { w.General(d).GeneralPoint(d, 5).Fixed(d, 0); }), szText);
  }
  EXPECT_EQ(FormatFixed(-dNan, 2), "nan");
  EXPECT_EQ(Written([](CTextWriter& w) {
              w.Integer(-12, 6, Align::Right).Integer(34, 5).Text("|").Text("abc", 2).General(0.1, 8, Align::Right);
              w.Fixed(2.0, 0, 4).EndLine().Integer(std::numeric_limits<long long>::min());
            }),
            "   -1234   |abc     0.12.  \n-9223372036854775808");
}

TEST(TextWriter, LongOutputArrivesWholeAndAFailedStreamIsReported) {
  std::ostringstream strm;
  std::string strExpected;
  CTextWriter writer(strm);
  for (int i = 0; i < 200000; ++i) {
    writer.Integer(i, 7, Align::Right).EndLine();
    strExpected += Print("%7d\n", i);
  }
  const std::string strHuge(3U << 20U, 'x');
  EXPECT_TRUE(writer.Text(strHuge).Text("end").Flush());
  EXPECT_TRUE(strm.str() == strExpected + strHuge + "end");
  strm.setstate(std::ios::badbit);
  EXPECT_FALSE(writer.Text("b").Flush());
}

// ---- Files -----------------------------------------------------------------------------------------------------

/// Writes more than any buffer holds; the reason why it could not be committed.
std::string WriteMuch(COutputFile& file, RunFindings& findings) {
  file.GetWriter().Text(std::string(3U << 20U, 'n')).Text("end");
  const bool bWritten = CommitResult(file, findings);
  EXPECT_EQ(bWritten, file.GetError().empty());
  return file.GetError();
}

TEST(Files, BackslashSeparatesDirectoriesAndOnlyRegularFilesAreRead) {
  const CJobFolder job("platform_paths");
  fs::create_directory(job.GetPath("s"));
  RunFindings findings;
  COutputFile file(job.GetPath("s\\地震.txt"));
  file.GetStream() << "0.5\n";
  ASSERT_TRUE(CommitResult(file, findings));
  EXPECT_EQ(findings.files, Strings{job.GetPath("s\\地震.txt")});
  EXPECT_EQ(job.Read("s/地震.txt"), "0.5\n");
  const bool bLink = MakeLink(job.GetPath("s/地震.txt"), job.GetPath("link"));
  MakePipeFile(job.GetPath("pipe"));
  for (const auto& [szName, bReadable] :
       {std::pair("s\\地震.txt", true), {"link", bLink}, {"absent", false}, {"s", false}, {"pipe", false}}) {
    EXPECT_EQ(ReadWholeFile(job.GetPath(szName)).value_or("none"), bReadable ? "0.5\n" : "none") << szName;
  }
}

/// False where a folder stays while one of its files is open.
bool RemoveFolder(const fs::path& folder) {
  std::error_code error;
  fs::remove_all(folder, error);
  return !error;
}

// Whether the damage is there before the file is opened or comes while it is written.
TEST(Files, WhatCannotBeWrittenLeavesTheOldFileAndSaysWhy) {
  using Path = const fs::path&;
  const struct {
    std::string strReason;
    std::function<bool(Path)> damage;  // false: the system has no such thing
  } cases[] = {
      {"is a symbolic link", [](Path p) { return fs::rename(p, p.string() + "2"), MakeLink("file.txt2", p); }},
      {"is a symbolic link", [](Path p) { return fs::remove(p), MakeLink("absent", p); }},
      {"is not a regular file", [](Path p) { return fs::remove(p), MakePipeFile(p); }},
      {"is not a regular file", [](Path p) { return fs::remove(p), fs::create_directory(p); }},
      {"Permission denied", [](Path p) { return fs::permissions(p, fs::perms(0444)), true; }},
      {"No such file or directory", [](Path p) { return RemoveFolder(p.parent_path()); }},
  };
  for (const auto& c : cases) {
    for (const bool bLate : {false, true}) {
      SCOPED_TRACE(c.strReason + (bLate ? " later" : " before"));
      const CJobFolder job("platform_damage");
      const std::string strPath = job.GetPath("s/file.txt");
      fs::create_directory(job.GetPath("s"));
      job.Write("s/file.txt", "old");
      RunFindings findings;
      {
        const auto pEarly = bLate ? std::make_unique<COutputFile>(strPath) : nullptr;
        if (!c.damage(strPath)) continue;
        const auto pFile = bLate ? nullptr : std::make_unique<COutputFile>(strPath);
        EXPECT_EQ(WriteMuch(bLate ? *pEarly : *pFile, findings), c.strReason);
      }
      ASSERT_EQ(findings.failures.size(), 1U);
      EXPECT_EQ(findings.failures[0].strPath + findings.failures[0].strReason, strPath + c.strReason);
      EXPECT_EQ(findings.files, Strings{});
      EXPECT_EQ(fs::is_regular_file(strPath) ? job.Read("s/file.txt") : "old", "old");
      std::error_code error;
      fs::permissions(strPath, fs::perms::owner_write, fs::perm_options::add,
                      error);  // else Windows does not remove it
      for (const auto& entry : fs::directory_iterator(job.GetPath("s"), error)) {
        EXPECT_NE(entry.path().extension(), ".part");
      }
    }
  }
}

TEST(Files, LeftoversOfAKilledRunGoAndThoseOfALiveOneStay) {
  const CJobFolder job("platform_orphans");
  std::optional<COutputFile> killed(std::in_place, job.GetPath(".txt"));
  const std::string strLeft = job.List().at(0).substr(3);  // behind "job"
  killed.reset();
  job.Write(strLeft, "half");
  for (const char* const szOther : {".txt.part", ".txt.0123456g.part", ".txt2.01234567.part"}) job.Write(szOther, "");
  std::size_t nStay = 3;
  nStay += MakeLink(job.GetPath(".txt.part"), job.GetPath(".txt.01234567.part")) ? 1 : 0;
  nStay += MakePipeFile(job.GetPath(".txt.12345678.part")) ? 1 : 0;
  RunFindings findings;
  COutputFile first(job.GetPath(".txt"));
  EXPECT_EQ(job.List().size(), nStay + 1);
  first.GetStream() << "first";
  COutputFile second(job.GetPath(".txt"));
  EXPECT_EQ(job.List().size(), nStay + 2);
  EXPECT_EQ(WriteMuch(second, findings), "");
  fs::permissions(job.GetPath(".txt"), fs::perms(0640));
  const fs::perms kept = fs::status(job.GetPath(".txt")).permissions();
  EXPECT_TRUE(first.Commit()) << first.GetError();
  EXPECT_EQ(job.Read(".txt"), "first");
  EXPECT_EQ(fs::status(job.GetPath(".txt")).permissions(), kept);
  EXPECT_EQ(job.List().size(), nStay + 1);
}

TEST(Files, RunsAtOnceLeaveWholeFiles) {
  const CJobFolder job("platform_runs");
  const auto write = [strPath = job.GetPath(".txt")](char cFill) {
    for (int i = 0; i < 400; ++i) {
      COutputFile file(strPath);
      file.GetStream() << std::string(100000, cFill);
      if (!file.Commit()) return file.GetError();
    }
    return std::string();
  };
  std::vector<std::future<std::string>> runs;
  for (const char cFill : {'a', 'b', 'c'}) runs.push_back(std::async(std::launch::async, write, cFill));
  for (int i = 0; i < 100; ++i) {
    const std::string strText = job.Read(".txt");
    ASSERT_TRUE(strText.empty() || strText == std::string(100000, strText.front()));
  }
  for (std::future<std::string>& run : runs) EXPECT_EQ(run.get(), "");
  EXPECT_EQ(job.List(), Strings{"job.txt"});
}

// ---- Platform --------------------------------------------------------------------------------------------------

TEST(Platform, DefaultIsHeadlessAndComesBack) {
  std::ostringstream strmError;
  std::streambuf* const pPrevious = std::cerr.rdbuf(strmError.rdbuf());
  GetPlatform().ShowMessage("结构几何可变");
  std::cerr.rdbuf(pPrevious);
  EXPECT_EQ(strmError.str(), "结构几何可变\n");
  IPlatform* const pDefault = &GetPlatform();
  EXPECT_EQ(&pDefault->GetConsole(), &std::cout);
  CTestPlatform platform;
  EXPECT_EQ(InstallPlatform(nullptr), &*platform);
  EXPECT_EQ(&GetPlatform(), pDefault);

  RecordSizes oneNodeLess = c_recordSizes;
  oneNodeLess.nComZhu -= sizeof(int);
  RecordSizes oneTypeMore = c_recordSizes;
  ++oneTypeMore.nLoadTypes;
  for (const RecordSizes& sizes : {oneNodeLess, oneTypeMore}) EXPECT_EQ(InstallPlatform(&*platform, sizes), nullptr);
  EXPECT_EQ(&GetPlatform(), pDefault);
  EXPECT_EQ(platform.GetMessages(), Strings(2, "宿主数据记录与本模块不符,计算终止!"));
}

class CSwitchPlatform : public CHeadlessPlatform {
 public:
  CSwitchPlatform() : CHeadlessPlatform(std::cerr, std::cout) {}
  std::string m_strTrace;

 protected:
  void SetBusy(bool bBusy) override { m_strTrace += bBusy ? "busy " : "idle "; }
  void SwitchModule(bool bInside) override { m_strTrace += bInside ? "in " : "out "; }
};

TEST(Platform, WaitCursorAndModuleNestAndLeavingEndsBoth) {
  CSwitchPlatform platform;
  for (int i = 0; i < 2; ++i) platform.EnterModule();
  for (int i = 0; i < 2; ++i) platform.BeginWaitCursor();
  for (int i = 0; i < 3; ++i) platform.EndWaitCursor();
  for (int i = 0; i < 2; ++i) platform.BeginWaitCursor();
  for (int i = 0; i < 3; ++i) platform.LeaveModule();
  platform.EndWaitCursor();
  EXPECT_EQ(platform.m_strTrace, "in busy idle busy idle out ");
  EXPECT_EQ(platform.GetModuleDepth() + platform.GetWaitCursorDepth(), 0);
}

// ---- Dialogs ---------------------------------------------------------------------------------------------------

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

TEST_F(Dialogs, FieldsThatAreNoNumbersAreRefused) {
  std::vector<std::pair<int, std::string>> cases = {
      {100, "2147483648"}, {100, "-2147483649"}, {100, std::string(30, '9')},
      {100, "1.0"},        {100, "1e2"},         {101, "1e999"},
      {101, "nan"},        {101, "-inf"},        {101, "1,5"},
      {101, "1.5.2"},      {101, "1e"},          {101, "."},
  };
  for (const int nId : {100, 101}) {
    for (const char* szText : {"", "  ", "abc", "1x", "1 2", "0x10", "+-1", "++1", "-", "+", "１２"}) {
      cases.emplace_back(nId, szText);
    }
  }
  for (const auto& [nId, strText] : cases) {
    m_platform->Clear();
    const auto look = Do::Inspect([nId = nId, strText = strText](const IDialogView& view) {
      EXPECT_EQ(view.GetFocus(), nId);
      EXPECT_EQ(view.GetText(nId), strText) << "the text stays for correction";
    });
    EXPECT_EQ(Run({Do::Type(102, "new"), Do::Type(nId, strText), Do::Ok(), look}), c_nIdCancel);
    EXPECT_EQ(m_platform.GetMessages(), Strings{nId == 100 ? "请输入一个整数。" : "请输入一个数字。"}) << strText;
    EXPECT_EQ(m_dialog.m_strText, "text") << "fields behind the wrong one are not read";
  }
  const auto look = Do::Inspect([](const IDialogView& view) { EXPECT_EQ(view.GetFocus(), 100) << "the first"; });
  Run({look, Do::Type(100, "x"), Do::Type(101, "x"), Do::Ok(), Do::Type(100, " +12 "),
       Do::Type(101, "-1.7976931348623157E308\t"), Do::Tick(120, false), Do::Tick(120), Do::Tick(120), Do::Ok()});
  EXPECT_EQ(m_platform.GetMessages().size(), 2U) << "of the first wrong field alone";
  EXPECT_EQ(std::tuple(m_dialog.m_nInt, m_dialog.m_dReal, m_dialog.m_bCheck),
            std::tuple(12, std::numeric_limits<double>::lowest(), 1));
  EXPECT_EQ(std::ranges::count(m_dialog.m_trace, "clicked 120"), 1) << "a tick that is there stays";
}

TEST_F(Dialogs, WhatAPersonCouldNotDoEndsTheDialog) {
  const std::vector<std::pair<DialogStep, std::string>> cases = {
      {Do::Click(161), "161: the control is disabled"},
      {Do::Click(999), "999: there is no such control"},
      {Do::Type(120, "x"), "120: the control cannot be used that way"},
      {Do::Tick(110), "110: the control cannot be used that way"},
      {Do::ChooseItem(130, 3), "130: there is no such row"},
      {Do::ChooseItem(130, "d"), "130: there is no such row"},
      {Do::DoubleClick(141, -2), "141: there is no such row"},
  };
  for (const auto& [step, strError] : cases) {
    m_platform->Clear();
    EXPECT_EQ(Run({step, Do::Ok()}), c_nIdCancel);
    EXPECT_EQ(Errors(), Strings{"dialog 900, step 1, control " + strError});
  }
  m_platform->Clear();
  m_dialog.m_onInit = [](IDialogView& view) { view.SetText(12345, "x"); };
  EXPECT_EQ(Run({Do::Ok(), Do::Wait(1)}), c_nIdOk);
  EXPECT_EQ(Errors(), (Strings{"dialog 900, control 12345: there is no such control",
                               "dialog 900, step 2, control 0: the dialog has ended"}));
}

TEST_F(Dialogs, ListsByTheProgramAndByHand) {
  m_dialog.m_onInit = [this](IDialogView& view) { CheckLists(view, m_dialog); };
  Run({Do::ToggleRow(141, 0), Do::DoubleClick(141, 2), Do::Inspect([](const IDialogView& view) {
         EXPECT_TRUE(view.IsSelected(141, 2) && !view.IsSelected(141, 0)) << "one row at a time";
       })});
  EXPECT_EQ(m_dialog.m_trace, (Strings{"selection 141", "selection 141", "double 141"}));
}

TEST_F(Dialogs, TimersFireWhileTimePassesHereAndInADialogAButtonOpens) {
  CProbeDlg inner(c_inner);
  m_dialog.m_onInit = [](IDialogView& view) {
    view.StartTimer(1, 1000);
    view.StartTimer(2, 400);
  };
  m_dialog.m_onButton = [&](IDialogView& view) {
    view.StopTimer(2);
    inner.DoModal();
    view.SetText(102, inner.m_strText);
  };
  m_platform->AddScript(901, {Do::Wait(1500), Do::Type(102, "from inside"), Do::Ok()});
  EXPECT_EQ(Run({Do::Wait(999), Do::Wait(1), Do::Click(160), Do::Wait(500), Do::Ok()}), c_nIdOk);
  EXPECT_EQ(m_dialog.m_trace, (Strings{"timer 2", "timer 2", "timer 1", "clicked 160", "timer 1", "timer 1"}));
  EXPECT_EQ(inner.m_trace, Strings{"text 102"});
  EXPECT_EQ(m_dialog.m_strText, "from inside");
}

TEST_F(Dialogs, AHandlerThatThrowsLeavesNoViewBehind) {
  m_dialog.m_onInit = [](IDialogView& view) { view.StartTimer(1, 10); };
  m_dialog.m_onButton = [](IDialogView&) { throw std::bad_alloc(); };
  EXPECT_THROW(Run({Do::Click(160)}), std::bad_alloc);
  m_dialog.m_trace.clear();
  EXPECT_EQ(Run({Do::Wait(25), Do::Type(100, "-2147483648"), Do::Ok()}), c_nIdOk);
  EXPECT_EQ(m_dialog.m_trace, (Strings{"timer 1", "timer 1", "text 100"}));
  EXPECT_EQ(m_dialog.m_nInt, std::numeric_limits<int>::min());
}

// ---- Painting --------------------------------------------------------------------------------------------------

TEST(Paint, SvgIsTheExactDocument) {
  CSvgPaintContext svg(320, 200);
  svg.SetPen({255, 0, 0}, 2.0);
  svg.SetBrush({0xF0, 0xF0, 0xF0});
  svg.Rectangle(30.0, 40.0, -20.0, -10.0);
  svg.Line(0.0, 0.0, 1.5, -0.001);
  svg.Line(0.0, 0.0, 1.5, 0.0);
  const std::array<PaintPoint, 3> points = {PaintPoint{0.0, 0.0}, PaintPoint{1.0, 2.0}, PaintPoint{3.0, 4.0}};
  svg.Polyline(points);
  svg.Polyline(std::span(points).first(1));
  svg.Polygon(points);
  svg.Polygon(std::span(points).first(2));
  svg.SetTextHeight(10.0);
  svg.Text(5.0, 6.0, "位移 <a> & \"b\"\x01\xFF", HorizontalAlign::Right, VerticalAlign::Baseline);
  const double dNan = std::numeric_limits<double>::quiet_NaN();
  svg.Line(0.0, dNan, 1.0, 1.0);
  svg.Rectangle(0.0, 0.0, 1.0 / 0.0, 1.0);
  svg.Text(dNan, 0.0, "x");
  const std::string strDocument = svg.GetDocument();
  EXPECT_EQ(strDocument.substr(0, strDocument.find(" font-family")),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" "
            "width=\"320\" height=\"200\" viewBox=\"0 0 320 200\"");
  EXPECT_NE(strDocument.find("<rect width=\"320\" height=\"200\" fill=\"#ffffff\"/>\n"), std::string::npos);
  EXPECT_EQ(strDocument.substr(std::min(strDocument.find("<rect x="), strDocument.size())),
            "<rect x=\"10\" y=\"30\" width=\"20\" height=\"10\" fill=\"#f0f0f0\" stroke=\"#ff0000\" "
            "stroke-width=\"2\"/>\n"
            "<path d=\"M0,0 1.5,0M0,0 1,2 3,4\" fill=\"none\" stroke=\"#ff0000\" stroke-width=\"2\"/>\n"
            "<polygon points=\"0,0 1,2 3,4\" fill=\"#f0f0f0\" stroke=\"#ff0000\" stroke-width=\"2\"/>\n"
            "<text x=\"5\" y=\"6\" font-size=\"10\" text-anchor=\"end\" fill=\"#ff0000\">"
            "位移 &lt;a&gt; &amp; \"b\"\uFFFD\uFFFD</text>\n</svg>\n");
  // Chords that leave an arc of radius 100 by 0.05, of 0.0632 rad, hold twelve of its steps.
  CSvgPaintContext arc(10, 10);
  std::vector<PaintPoint> points200;
  for (int k = 0; k <= 200; ++k) points200.push_back({100.0 * std::cos(0.005 * k), 100.0 * std::sin(0.005 * k)});
  arc.Polyline(points200);
  EXPECT_EQ(std::ranges::count(arc.GetDocument().substr(arc.GetDocument().find("<path")), ','), 1 + (200 + 11) / 12);
  for (const std::string_view strBroken :
       {"\x80", "\xC0\xAF", "\xE4\xBD", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xEF\xBF\xBE", "\xE0\x80\xAF"}) {
    CSvgPaintContext broken(10, 10);
    broken.Text(0.0, 0.0, strBroken);
    broken.Text(0.0, 0.0, "θ𝛼é\t");
    const std::string strText = broken.GetDocument();
    EXPECT_TRUE(strText.find(strBroken) > strText.size() && strText.find("\uFFFD") < strText.size());
    EXPECT_NE(strText.find(">θ𝛼é\t<"), std::string::npos);
  }
}

}  // namespace
}  // namespace skyframe::test
