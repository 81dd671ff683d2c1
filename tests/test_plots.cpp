#include <regex>

#include "CommandFolder.h"
#include "skyframe/job/JobFile.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/run/DataDirectory.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"

namespace skyframe::host {
namespace {

constexpr double c_dNan = std::numeric_limits<double>::quiet_NaN();

TEST(Plots, TicksAreRoundAndEncloseTheRange) {
  const struct {
    double dLow, dHigh;
    int nMost;
    const char *pszFirst, *pszSecond, *pszLast;
  } cases[] = {{0.0, 6.0, 13, "0.0", "0.5", "6.0"},
               {-24.1, 26.2, 10, "-30", "-20", "30"},
               {-1e-9, 3e-9, 10, "-1e-09", "-5e-10", "3e-09"},
               {5.0, 5.0, 10, "2", "3", "8"},
               {0.0, 0.0, 10, "-1.0", "-0.5", "1.0"}};
  for (const auto& c : cases) {
    const Ticks ticks = ChooseTicks(c.dLow, c.dHigh, c.nMost);
    EXPECT_EQ(ticks.FormatTick(0), c.pszFirst);
    EXPECT_EQ(ticks.FormatTick(1), c.pszSecond);
    EXPECT_EQ(ticks.FormatTick(ticks.nCount - 1), c.pszLast);
    EXPECT_LE(ticks.nCount, c.nMost + 1);
  }
}

/// Nothing may reach over the edge, as far as that can be told without a font.
void ExpectInside(const CPaintRecorder& paint, PictureSize size) {
  EXPECT_FALSE(paint.GetItems().empty());
  for (const PaintItem& item : paint.GetItems()) {
    for (const PaintPoint& point : item.points) {
      EXPECT_TRUE(point.dX >= 0.0 && point.dX <= size.nWidth && point.dY >= 0.0 && point.dY <= size.nHeight)
          << point.dX << ", " << point.dY << ' ' << item.strText;
    }
  }
}

const PaintItem* FindText(const CPaintRecorder& paint, const std::string& strText) {
  for (const PaintItem& item : paint.GetItems()) {
    if (item.kind == PaintItem::Kind::Text && item.strText.find(strText) != std::string::npos) return &item;
  }
  return nullptr;
}

TEST(Plots, PeriodsStandOnTheSpectrum) {
  // Modes 2 and 3 are neighbours; mode 1 lies beyond the spectrum's end.
  CPaintRecorder paint;
  PaintSpectrum(paint, {"Title", "words", {0, 9, 1, 2}, 0.05, {7.0, 1.01, 1.0, 0.2}});
  ExpectInside(paint, c_chartSize);
  for (const char* pszText : {"Title", "period T [s]", "α", "2–3", "Tg = 0.35 s", "modes 1–4", "damping ratio 0.05"}) {
    EXPECT_NE(FindText(paint, pszText), nullptr) << pszText;
  }
  EXPECT_EQ(FindText(paint, "1–"), FindText(paint, "modes 1–4"));
  // 8 degrees (0.20 g), frequent: 0.16 on the plateau at T = 0.2 s; axes 0..6 s and 0..0.20
  bool bFound = false;
  for (const PaintItem& item : paint.GetItems()) {
    if (item.kind != PaintItem::Kind::Rectangle || item.state.brush != c_markColour) continue;
    const double dX = 0.5 * (item.points[0].dX + item.points[1].dX);
    const double dY = 0.5 * (item.points[0].dY + item.points[1].dY);
    bFound = bFound || (std::abs(dX - (90 + 875 * 0.2 / 6)) < 0.01 && std::abs(dY - (500 - 404 * 0.8)) < 0.01);
  }
  EXPECT_TRUE(bFound);
}

TEST(Plots, HistoryMarksItsPeak) {
  const struct {
    std::vector<double> values;
    std::string strPeak;
  } cases[] = {{{1, -2, 3, -4}, "peak -4 mm at 2 s"},
               {{5, 4, c_dNan, -1}, "peak 5 mm at 0.5 s"},
               {{0, 0, 0, 0}, ""},
               {{}, ""},
               {{c_dNan}, ""}};
  for (const auto& c : cases) {
    CPaintRecorder paint;
    PaintHistoryChart(paint, {"Title", "below", "displacement X", {"mm", 1.0}, 0.5, {{"node 1", c.values}}});
    ExpectInside(paint, c_chartSize);
    const PaintItem* pPeak = FindText(paint, "peak");
    EXPECT_EQ(pPeak != nullptr ? pPeak->strText : "", c.strPeak);
    EXPECT_NE(FindText(paint, "displacement X [mm]"), nullptr);
  }
}

TEST(Plots, HistoriesZoomAndTellTheirValues) {
  HistoryPicture picture{"Title", "below", "displacement", c_displacementUnits[0], 0.5, {{"a", {}}, {"b", {}}}};
  for (int k = 1; k <= 100; ++k) {
    picture.curves[0].values.push_back(0.001 * k * (k % 2 == 0 ? 1 : -1));
    picture.curves[1].values.push_back(k == 30 ? c_dNan : 0.002);
  }
  picture.time = {14.0, 16.0};
  picture.values = {-20.0, 20.0};
  picture.cursor = 15.1;
  const PictureSize size{640, 360};
  CPaintRecorder paint;
  PaintHistoryChart(paint, picture, size);
  const Box box = FormHistoryFrame(picture, size).GetBox();
  for (const PaintItem& item : paint.GetItems()) {
    if (item.kind != PaintItem::Kind::Polyline || item.state.dPenWidth != 1.3) continue;
    for (const PaintPoint& point : item.points) {
      EXPECT_TRUE(point.dX > box.dLeft - 1e-6 && point.dX < box.dRight + 1e-6 && point.dY > box.dTop - 1e-6 &&
                  point.dY < box.dBottom + 1e-6);
    }
  }
  for (const char* pszText : {"t = 15 s", "14.0", "16.0"}) EXPECT_NE(FindText(paint, pszText), nullptr) << pszText;
  EXPECT_EQ(FindText(paint, "30 mm"), nullptr) << "out of sight";
  EXPECT_EQ(FindText(paint, "peak"), nullptr) << "out of sight";
  const CChartFrame frame = FormHistoryFrame(picture, size);
  EXPECT_NEAR(frame.Unmap(frame.Map(14.5, 3.0)).dX, 14.5, 1e-9);
  EXPECT_EQ(FindHistoryStep(picture, 1e9), 99U);

  for (const auto& time : {picture.time, std::optional<ChartRange>()}) {  // out of the axes there, and in all of them
    picture.time = time;
    picture.cursor = 15.6;
    CPaintRecorder other;
    PaintHistoryChart(other, picture, size);
    for (const char* pszText : {"t = 15.5 s", "2 mm"}) EXPECT_NE(FindText(other, pszText), nullptr) << pszText;
  }
  picture.cursor = std::nullopt;

  picture.time = picture.values = std::nullopt;
  picture.unit = c_displacementUnits[2];
  const CLanguageScope chinese(Language::Chinese);
  CPaintRecorder whole;
  PaintHistoryChart(whole, picture, size);
  for (const char* pszText : {"峰值 0.1 m，t = 50 s", "峰值 0.002 m，t = 0.5 s", "时间 t [s]"})
    EXPECT_NE(FindText(whole, pszText), nullptr) << pszText;
}

TEST(Plots, ShapesStayOnTheSheet) {
  Job job;
  job.nodes = {{.nId = 7, .restraint = {1, 1, 1, 1, 1, 1}, .nSpring = {}},
               {.nId = 8, .dZ = 30, .nSpring = {}},
               {.nId = 9, .dX = 8, .dY = 5, .dZ = 30, .nSpring = {}}};
  job.elements = {{.nType = c_nBeam, .nNodeI = 1, .nNodeJ = 2}, {.nType = c_nBar, .nNodeI = 2, .nNodeJ = 3}};
  for (const double dZ : {30.0, 2.0, 0.0}) {
    job.nodes[1].dZ = job.nodes[2].dZ = dZ;
    for (const double dSize : {0.0, 1e-7, 3.0, 1e9}) {
      ShapePicture picture;
      picture.scene = CScene(job);
      picture.shape.displacements = {{}, {dSize, 0, 0, 0, 0.1 * dSize, 0}, {-2 * dSize, dSize, 0, 0, 0, 0}};
      for (const ShapeKind kind : {ShapeKind::LinearState, ShapeKind::Mode}) {
        picture.shape.kind = kind;
        CPaintRecorder paint;
        PaintShape(paint, picture);
        ExpectInside(paint, c_sheetSize);
        EXPECT_EQ(FindText(paint, "node 9") != nullptr, dSize > 0.0);
        for (const char* pszView : {"Isometric", "Elevation X–Z", "Elevation Y–Z", "Plan X–Y", "undeformed"}) {
          EXPECT_NE(FindText(paint, pszView), nullptr);
        }
      }
    }
  }
}

TEST(Session, ShowsHistoriesOfItsOwnJobAlone) {
  const test::CCommandFolder job;
  const Job model =
      ParseJob(
          test::MakeCantilever("111111", R"({"type": "modal", "modes": 2}, {"type": "time_history", "method": "newmark",
      "load": "ground_motion", "earthquake": {"time_step": 0.02, "duration": 0.4, "directions": ["Y"]}})"))
          .job;
  std::ostringstream messages, console;
  CPlatformScope platform(messages, console);
  CSvgPaintContext paint(665, 300);
  const auto Open = [&](const std::string& strPath) { return CSession::Open(model, strPath, FindDataDirectory()); };
  auto first = Open(job.GetPath(""));
  EXPECT_FALSE(first->GetHistories().bComplete);
  for (const JobAnalysis& analysis : model.analyses) {
    EXPECT_EQ(first->Run(analysis, platform.Get()).status, RunStatus::Done) << messages.str();
  }
  EXPECT_TRUE(first->GetHistories().bComplete);
  auto other = Open(job.GetPath("other"));
  EXPECT_FALSE(other->PaintViewer({}, platform.Get(), paint));
  EXPECT_FALSE(other->GetHistories().bComplete);
  auto again = Open(job.GetPath(""));
  EXPECT_TRUE(again->PaintViewer({}, platform.Get(), paint) && again->GetHistories().bComplete);
  other = Open(job.GetPath("other"));
  EXPECT_FALSE(other->PaintViewer({}, platform.Get(), paint) || other->GetHistories().bComplete);
}

TEST(Plots, WhatIsNotThereEndsWithStatusTwo) {
  const test::CCommandFolder job;
  job.Write(".json", test::MakeCantilever("111111", R"({"type": "static", "nonlinear": false, "combination": {"0": 1}},
      {"type": "modal", "modes": 2}, {"type": "spectrum", "modes": 2, "site_class": 2}, {"type": "time_history",
       "method": "newmark", "load": "ground_motion",
       "earthquake": {"time_step": 0.02, "duration": 0.4, "directions": ["Y"]}})"));
  const auto Plot = [&](std::vector<std::string> what) {
    what.insert(what.begin(), {"plot", job.GetPath(".json"), "-o", job.GetPath(".svg")});
    return job.Call(what);
  };
  const std::vector<std::vector<std::string>> pictures = {{"--spectrum"},
                                                          {"--mode", "2"},
                                                          {"--node", "90", "--dir", "Y"},
                                                          {"--deformed"},
                                                          {"--element", "1"},
                                                          {"--node", "90", "--dir", "y", "--viewer"},
                                                          {"--force", "My"},
                                                          {"--colour", "m", "--of", "spectrum"},
                                                          {"--reactions"},
                                                          {"--mode", "1", "--coloured"},
                                                          {"--force", "N", "--of", "history", "--at", "0.2"},
                                                          {"--node", "90", "--node", "5", "--dir", "X,Y"}};
  const auto ExpectNone = [&](const std::string& strReason) {
    for (const auto& what : pictures) {
      const test::CommandOutcome outcome = Plot(what);
      EXPECT_EQ(outcome.nStatus, 2) << what[0];
      EXPECT_NE(outcome.strErr.find(strReason), std::string::npos) << outcome.strErr;
    }
  };
  ExpectNone(": cannot be opened; it is written by the ");
  EXPECT_FALSE(job.Has(".svg"));
  EXPECT_EQ(job.Solve().nStatus, 0);
  for (const auto& what : pictures) {
    EXPECT_EQ(Plot(what).strErr, "") << what[0];
    EXPECT_NE(job.Read(".svg").find("</svg>"), std::string::npos);
    EXPECT_EQ(job.Read(".svg").find("width=\"665\"") != std::string::npos, what.back() == "--viewer");
  }

  const std::pair<std::vector<std::string>, std::string> refused[] = {
      {{"--mode", "0"}, job.GetPath(".mode") + ": no mode 0; the file has 2\n"},
      {{"--node", "2"}, "no node has the id 2\n"},
      {{"--element", "3"}, "no element 3; the job has 1\n"},
      {{"--deformed", "--viewer"}, "--viewer: belongs to --node or --element\n"},
      {{"--force", "My", "--of", "history", "--at", "0.2"}, "the history has axial forces alone\n"},
      {{"--force", "N", "--of", "history"}, "--of history: give the time with --at\n"},
      {{"--colour", "N", "--of", "history", "--at", "0.2", "--with-reactions"}, "the history has no reactions\n"},
      {{"--reactions", "--of", "history", "--at", "0.2"}, "the history has no reactions\n"},
      {{"--loads", "1.2*0+1.4*1"}, "no loads in case 1\n"},
      {{}, "say what to draw; --local-axes or --sections alone draw the structure\n"},
      {{"--mode", "1", "--deformed"}, "--mode and --deformed: one picture at a time\n"},
      {{"--reactions", "--frame", "W=3"}, "--frame: not as X=0, Y=6.5 or Z=3\n"},
      {{"--local-axes", "--frame", "X=1"}, "no member lies at X = 1 m\n"},
      {{"--force", "N", "--of", "history", "--at", "9"},
       job.GetPath("_HisTime.txt") + ": t = 9 s: the history ends at 0.4 s\n"},
      {{"--loads", "7"}, "no loads in case 7\n"},
      {{"--loads", "1.2*0+x"}, "--loads: neither all, nor a case, nor a combination such as 1.2*0+1.4*1\n"},
      {{"--loads", "all", "--frame", "Y=3"}, "no member lies at Y = 3 m\n"},
      {{"--deformed", "--nonlinear"},
       job.GetPath("_StaticNonlinearSol.txt") +
           ": cannot be opened; it is written by the nonlinear static analysis\n"}};
  for (const auto& [what, strError] : refused) {
    const test::CommandOutcome outcome = Plot(what);
    EXPECT_EQ(std::tuple(outcome.nStatus, outcome.strErr), std::tuple(2, strError));
  }
  EXPECT_EQ(Plot({"--loads", "1.5*0+1*2", "--frame", "Y=0", "--sections", "--local-axes"}).nStatus, 0);
  EXPECT_NE(job.Read(".svg").find(">16.0<"), std::string::npos) << "1.5 x 8 kN + 4 kN";
  EXPECT_EQ(Plot({"--force", "My"}).nStatus, 0);
  for (const char* pszText : {"min -32.0 kN·m (element 1)", "drawn on the tension side", ">-32.0<"})
    EXPECT_NE(job.Read(".svg").find(pszText), std::string::npos) << pszText;
  EXPECT_EQ(Plot({"--node", "90", "--dir", "W"}).nStatus, 2);
  EXPECT_EQ(Plot({"--local-axes"}).strErr, "");
  EXPECT_NE(job.Read(".svg").find(">Structure<"), std::string::npos);
  EXPECT_EQ(
      job.Solve(test::MakeCantilever("111111", R"({"type": "time_history", "method": "newmark", "load": "ground_motion",
      "earthquake": {"time_step": 0.5, "duration": 0.4, "directions": ["Y"]}})"))
          .nStatus,
      0);
  EXPECT_EQ(Plot({"--node", "90"}).nStatus, 2) << "no steps";
  for (const char* pszSuffix : {".mode", ".spec", "_HisTime.txt", "_StaticLinearSol.txt"})
    job.Write(pszSuffix, "other");
  ExpectNone(": ");
}

/// Points of the SVG's lines (path) or areas (polygon) that have such a colour, by shape.
std::vector<std::vector<PaintPoint>> FindShapes(const std::string& strSvg, const std::string& strKind,
                                                const std::string& strColour) {
  std::vector<std::vector<PaintPoint>> shapes;
  const std::regex shape("<" + strKind + " (?:points|d)=\"M?([^\"]*)\" [^>]*" + strColour + "[^>]*>");
  for (std::sregex_iterator it(strSvg.begin(), strSvg.end(), shape), end; it != end; ++it) {
    std::istringstream lines((*it)[1].str());
    for (std::string strLine; std::getline(lines, strLine, 'M');) {
      std::istringstream text(strLine);
      std::vector<PaintPoint>& points = shapes.emplace_back();
      char cComma = ' ';
      for (PaintPoint point; text >> point.dX >> cComma >> point.dY;) points.push_back(point);
    }
  }
  return shapes;
}

/// A beam of 4 m along X from a clamped end, and one of 3 m along Y from its tip; the forces bend both.
const std::string c_strCorner =
    R"({"nodes": [{"id": 1, "x": 0, "y": 0, "z": 0, "restraint": "111111"}, {"id": 2, "x": 4, "y": 0, "z": 0},
      {"id": 3, "x": 4, "y": 3, "z": 0}], "sections": [{"id": "S", "shape": 2, "area": 1e4, "Ix": 4e7, "Iy": 2e7, "Iz": 3e7}],
    "elements": [{"type": "beam", "i": 1, "j": 2, "section": "S"}, {"type": "beam", "i": 2, "j": 3, "section": "S"}],
    "loads": [{"case": 0, "node": 3, "direction": "X", "value": 3}, {"case": 0, "node": 2, "direction": "Y", "value": 6},
      {"case": 0, "node": 2, "direction": "Z", "value": -8}, {"case": 1, "node": 3, "direction": "Z", "value": 5}],
    "analyses": [{"type": "static", "nonlinear": false, "combination": {"0": 1}}]})";

TEST(Plots, ArrowsAndOrdinatesAreDrawnToScale) {
  const test::CCommandFolder job;
  ASSERT_EQ(job.Solve(c_strCorner).nStatus, 0);
  const auto plot = [&](std::vector<std::string> what) {
    what.insert(what.begin(), {"plot", job.GetPath(".json"), "-o", job.GetPath(".svg")});
    EXPECT_EQ(job.Call(what).strErr, "");
    return job.Read(".svg");
  };
  const auto toLines = [](const std::vector<std::vector<PaintPoint>>& shapes) {
    std::set<std::pair<int, int>> lines;  // from tail to head, pixels
    for (const auto& p : shapes) {
      if (p.size() > 2 || std::hypot(p[1].dX - p[0].dX, p[1].dY - p[0].dY) < 5.0) continue;  // end on, a legend
      lines.insert(
          {static_cast<int>(std::lround(p[1].dX - p[0].dX)), static_cast<int>(std::lround(p[1].dY - p[0].dY))});
    }
    return lines;
  };
  using Lines = std::set<std::pair<int, int>>;
  const std::string strCase0 = "#1e6ec8\" stroke-width=\"1.4\"";
  const struct {
    std::vector<std::string> what;
    Lines arrows;
  } cases[] = {
      {{"--loads", "0", "--view", "plan"}, {{20, 0}, {0, -39}}},  // 3 and 6 of 8 kN, the longest arrow 52
      {{"--loads", "all", "--view", "front"}, {{0, 52}, {20, 0}}},
      {{"--loads", "0.5*0", "--view", "front"}, {}},  // colours of combinations are others
  };
  for (const auto& c : cases) {
    EXPECT_EQ(toLines(FindShapes(plot(c.what), "path", strCase0)), c.arrows) << c.what[1] << c.what[3];
  }
  // The support pushes back: 3 kN along X, 6 along Y, 8 along Z; of its moments 32 about Y and 15 about Z one is seen.
  EXPECT_EQ(toLines(FindShapes(plot({"--reactions", "--view", "plan"}), "path", "#8a2b6f")),
            (Lines{{-20, 0}, {0, 39}, {0, 52}}));

  // About Z: 6 x 4 - 3 x 3 = 15 kN m at the clamped end, on the side of -Y; 9 at the corner, on the other.
  const auto areas = FindShapes(plot({"--force", "Mz", "--view", "plan"}), "polygon", "fill=\"#d9e6f4\"");
  const auto members = FindShapes(job.Read(".svg"), "path", "stroke-width=\"1.4\"");
  ASSERT_EQ(areas.size(), 2U);
  const double dMetre = (members[0][1].dX - members[0][0].dX) / 4.0;
  const bool bFirst = std::abs(areas[0][0].dX - members[0][0].dX) < 0.01;
  const auto &along = areas[bFirst ? 0 : 1], &across = areas[bFirst ? 1 : 0];
  const double dRoot = along[1].dY - along[0].dY, dCorner = along[along.size() - 2].dY - along.back().dY;
  EXPECT_GT(dRoot, 0.1 * dMetre) << "downwards is -Y";
  EXPECT_NEAR(dCorner, -0.6 * dRoot, 0.02);
  EXPECT_NEAR(across[1].dX - across[0].dX, -0.6 * dRoot, 0.02) << "pulled at its left side";
  EXPECT_NEAR(across[across.size() - 2].dX, across.back().dX, 0.02) << "nothing at the free end";
  for (const char* pszText : {"min -15.0 kN·m (element 1)", ">-15.0<", ">-9.0<", ">9.0<", "drawn on the tension side"})
    EXPECT_NE(job.Read(".svg").find(pszText), std::string::npos) << pszText;

  // 8 x 4 about Y and 15 about Z, together 35.3; the second beam has 9 alone.
  const std::string strColours = plot({"--colour", "M"});
  EXPECT_NE(strColours.find("max 35.3 kN·m (element 1)"), std::string::npos);
  EXPECT_NE(plot({"--colour", "M", "--frame", "X=4"}).find("max 9.00 kN·m (element 2)"), std::string::npos)
      << "of what is seen";
  EXPECT_NE(plot({"--colour", "M", "--lang", "zh"}).find("35.3 kN·m（单元 1）"), std::string::npos);
}

TEST(Plots, OptionsBelongToTheirPictures) {
  const test::CCommandFolder job;
  ASSERT_EQ(job.Solve(c_strCorner).nStatus, 0);
  using Strings = test::Strings;
  const Strings pictures[] = {{"--spectrum"},   {"--mode", "1"},   {"--node", "2"}, {"--element", "1"}, {"--deformed"},
                              {"--force", "N"}, {"--colour", "N"}, {"--reactions"}, {"--loads", "all"}};
  const std::string strForces = "--force --colour --reactions", strStructures = strForces + " --loads";
  const std::pair<Strings, std::string> options[] = {{{"--dir", "Y"}, "--node"},
                                                     {{"--viewer"}, "--node --element"},
                                                     {{"--nonlinear"}, "--deformed"},
                                                     {{"--coloured"}, "--mode --deformed"},
                                                     {{"--of", "linear"}, strForces},
                                                     {{"--at", "1"}, strForces},
                                                     {{"--frame", "Z=0"}, strStructures},
                                                     {{"--view", "plan"}, strStructures},
                                                     {{"--with-reactions"}, "--force --colour"},
                                                     {{"--local-axes"}, strStructures},
                                                     {{"--sections"}, strStructures}};
  for (const auto& [option, strPictures] : options) {
    for (const Strings& picture : pictures) {
      Strings arguments = {"plot", job.GetPath(".json"), "-o", job.GetPath(".svg")};
      arguments.insert(arguments.end(), picture.begin(), picture.end());
      arguments.insert(arguments.end(), option.begin(), option.end());
      const test::CommandOutcome outcome = job.Call(arguments);
      const bool bBelongs = (strPictures + ' ').find(picture[0] + ' ') != std::string::npos;
      EXPECT_EQ(outcome.strErr.starts_with(option[0] + ": belongs to "), !bBelongs)
          << picture[0] << ' ' << option[0] << ' ' << outcome.strErr;
      EXPECT_TRUE(bBelongs || outcome.nStatus == 2);
    }
  }
}

TEST(Plots, TellTheirAgeOnceAndRefuseWhatNobodyHas) {
  const test::CCommandFolder job;
  const std::string strQuake =
      R"({"type": "modal", "modes": 2}, {"type": "time_history", "method": "newmark", "load": "ground_motion",
      "earthquake": {"duration": 0.1, "directions": ["Y"]},
      "outputs": {"nodes": [{"node": 90, "direction": "Y"}]}})";
  ASSERT_EQ(job.Solve(test::MakeCantilever("111111", strQuake)).nStatus, 0);
  job.Write(".json", std::regex_replace(test::MakeCantilever("111111", strQuake), std::regex("1e4"), "2e4"));
  const auto plot = [&](test::Strings what) {
    what.insert(what.begin(), {"plot", job.GetPath(".json"), "-o", job.GetPath(".svg")});
    return job.Call(what);
  };
  const test::CommandOutcome outcome = plot({"--node", "90", "--node", "5", "--dir", "X,Y"});
  EXPECT_EQ(std::tuple(outcome.nStatus, std::ranges::count(outcome.strErr, '\n')), std::tuple(0, 1)) << outcome.strErr;
  EXPECT_NE(outcome.strErr.find("[outdated-result]"), std::string::npos);
  EXPECT_NE(job.Read(".svg").find(">job (results of another model)<"), std::string::npos);
  EXPECT_NE(job.Read(".svg").find("4 curves: time history, Newmark, linear, 5 steps of 0.02 s"), std::string::npos);

  std::filesystem::remove(job.GetPath("_HisTime.txt"));  // each curve from a file of its own
  EXPECT_EQ(std::ranges::count(plot({"--node", "90", "--node", "90", "--dir", "Y"}).strErr, '\n'), 1);

  EXPECT_EQ(job.Call({"generate", "tower", "--panels", "2", "-o", job.GetPath(".json")}).nStatus, 0);
  ASSERT_EQ(job.Solve().nStatus, 0);
  for (const auto& [pszOption, pszQuantity] : {std::pair("--colour", "M"), {"--force", "My"}, {"--colour", "qy"}}) {
    const test::CommandOutcome refused = plot({pszOption, pszQuantity});
    EXPECT_EQ(refused.nStatus, 2);
    EXPECT_TRUE(refused.strErr.starts_with("no member has ")) << refused.strErr;
  }
  EXPECT_EQ(plot({"--colour", "N"}).strErr, "");
}

}  // namespace
}  // namespace skyframe::host
