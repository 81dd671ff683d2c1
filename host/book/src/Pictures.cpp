#include "Pictures.h"

#include <algorithm>
#include <cmath>

#include "Figures.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "skyframe/scene/ScenePainter.h"
#include "texts.h"

namespace skyframe::host {

namespace {

// Pixels
constexpr int c_nModelWidth = 1200, c_nModelHeight = 760;
constexpr int c_nStoreyHeight = 520, c_nStoreyWidth = 1000;
constexpr double c_dTextHeight = 13, c_dTickHeight = 11;
constexpr double c_dViewMargin = 34;
constexpr Colour c_frameColour{0xd6, 0xda, 0xe0};
constexpr Colour c_memberColour{0x4a, 0x55, 0x63};
constexpr Colour c_farColour{0xb4, 0xbb, 0xc4};
constexpr AxesStyle c_axes = {22, 9, 1.0, {c_faintColour, c_faintColour, c_faintColour}};
constexpr std::size_t c_nManyMembers = 2000;

struct View {
  Words title;
  Box box;
  ViewDirection direction;
};
constexpr View c_highViews[] = {{{"Axonometric", "轴测图"}, {12, 12, 592, 748}, c_isometricView},
                                {{"Elevation X–Z", "XZ 立面"}, {604, 12, 890, 470}, c_frontView},
                                {{"Elevation Y–Z", "YZ 立面"}, {902, 12, 1188, 470}, c_sideView},
                                {{"Plan X–Y", "平面图"}, {604, 482, 1188, 748}, c_planView}};
constexpr View c_flatViews[] = {{{"Axonometric", "轴测图"}, {12, 12, 592, 748}, c_isometricView},
                                {{"Elevation X–Z", "XZ 立面"}, {604, 12, 1188, 190}, c_frontView},
                                {{"Elevation Y–Z", "YZ 立面"}, {604, 202, 1188, 380}, c_sideView},
                                {{"Plan X–Y", "平面图"}, {604, 392, 1188, 748}, c_planView}};

void PaintView(IPaintContext& paint, const CScene& scene, const View& view) {
  const Box& box = view.box;
  paint.SetPen(c_frameColour);
  paint.SetBrush(c_white);
  paint.Rectangle(box.dLeft, box.dTop, box.GetWidth(), box.GetHeight());
  paint.SetPen(c_inkColour);
  paint.SetTextHeight(c_dTextHeight);
  paint.Text(box.dLeft + 10, box.dTop + 8, Say(view.title));
  CCamera camera;
  camera.SetDirection(view.direction);
  camera.SetViewport(box);
  std::vector<Point3> points;
  for (const SceneNode& node : scene.GetNodes()) points.push_back(node.at);
  camera.Fit(points, c_dViewMargin);
  CScenePainter painter(paint, scene, camera);
  const double dWidth = scene.GetMembers().size() > c_nManyMembers ? 0.5 : 1.2;
  painter.PaintMembers({c_memberColour, c_farColour, dWidth, 0.7 * dWidth});
  painter.PaintSupports(c_markColour);
  painter.PaintAxes({box.dLeft + 18, box.dBottom - 26}, c_axes);
}

/// A coordinate system of its own: storeys upwards, one quantity to the right.
class CStoreyChart {
 public:
  CStoreyChart(IPaintContext& paint, const Box& box, const StoreyModel& storeys, const StoreyCurve& curve)
      : m_paint(paint), m_box(box), m_storeys(storeys.storeys), m_curve(curve) {
    const double dLargest = std::max(std::ranges::max(curve.values), curve.limit.value_or(0.0));
    m_ticks = ChooseTicks(0.0, dLargest, 5);
  }

  void Paint() {
    PaintGrid();
    PaintCurve();
    if (m_curve.limit) PaintLimit();
  }

 private:
  [[nodiscard]] double MapX(double d) const { return m_box.dLeft + m_box.GetWidth() * d / m_ticks.GetLast(); }
  [[nodiscard]] double MapY(double z) const {
    const double dBase = m_storeys.front().dBottom, dTop = m_storeys.back().dTop;
    return m_box.dBottom - m_box.GetHeight() * (z - dBase) / (dTop - dBase);
  }

  void PaintGrid() {
    m_paint.SetTextHeight(c_dTickHeight);
    for (int k = 0; k < m_ticks.nCount; ++k) {
      const double dX = MapX(m_ticks.Get(k));
      m_paint.SetPen(c_gridColour);
      m_paint.Line(dX, m_box.dTop, dX, m_box.dBottom);
      m_paint.SetPen(c_inkColour);
      m_paint.Text(dX, m_box.dBottom + 6, m_ticks.FormatTick(k), HorizontalAlign::Centre);
    }
    double dFree = m_box.dBottom + c_dTickHeight;  // lower edge of what is free for a storey's number
    for (std::size_t j = 0; j < m_storeys.size(); ++j) {
      const double dY = MapY(m_storeys[j].dTop);
      m_paint.SetPen(c_gridColour);
      m_paint.Line(m_box.dLeft, dY, m_box.dRight, dY);
      if (dY > dFree - c_dTickHeight) continue;
      m_paint.SetPen(c_inkColour);
      m_paint.Text(m_box.dLeft - 6, dY, std::to_string(j + 1), HorizontalAlign::Right, VerticalAlign::Middle);
      dFree = dY - 2;
    }
    m_paint.SetPen(c_inkColour);
    m_paint.Line(m_box.dLeft, m_box.dTop, m_box.dLeft, m_box.dBottom);
    m_paint.Line(m_box.dLeft, m_box.dBottom, m_box.dRight, m_box.dBottom);
    m_paint.SetTextHeight(c_dTextHeight);
    m_paint.Text(m_box.dLeft, m_box.dTop - 26, m_curve.strTitle);
  }

  void PaintCurve() {
    std::vector<PaintPoint> points;
    if (!m_curve.bSteps) points.push_back({m_box.dLeft, m_box.dBottom});
    for (std::size_t j = 0; j < m_storeys.size(); ++j) {
      const double dX = MapX(m_curve.values[j]);
      if (m_curve.bSteps) points.push_back({dX, MapY(m_storeys[j].dBottom)});
      points.push_back({dX, MapY(m_storeys[j].dTop)});
    }
    m_paint.SetPen(c_curveColour, 2.0);
    m_paint.Polyline(points);
  }

  void PaintLimit() {
    const double dX = MapX(*m_curve.limit);
    m_paint.SetPen(c_markColour, 1.4);
    m_paint.Line(dX, m_box.dTop, dX, m_box.dBottom);
    PaintLabel(m_paint, m_box, {dX, m_box.dTop + 20}, m_curve.strLimit, c_markColour);
  }

  IPaintContext& m_paint;
  Box m_box;
  const std::vector<Storey>& m_storeys;
  const StoreyCurve& m_curve;
  Ticks m_ticks;
};

std::string DescribeSite(const SpectrumChapter& chapter) {
  constexpr std::array<const char*, 5> c_pszClasses = {"", "I", "II", "III", "IV"};
  return Tell(
      {"intensity {0}, {1} earthquake, site class {2}, design group {3}",
       "{0}，{1}，场地类别 {2}，设计地震分组第 {3} 组"},
      {DescribeIntensity(*chapter.job.nIntensity), DescribeLevel(*chapter.job.nLevel),
       c_pszClasses[static_cast<std::size_t>(*chapter.job.nSiteClass)], std::to_string(*chapter.job.nZoneGroup)});
}

}  // namespace

std::string DrawModel(const Job& job) {
  const CScene scene(job);
  CSvgPaintContext paint(c_nModelWidth, c_nModelHeight);
  const auto [dX, dY, dZ] = scene.GetExtents();
  for (const View& view : dZ < 0.5 * std::max(dX, dY) ? c_flatViews : c_highViews) PaintView(paint, scene, view);
  return paint.GetDocument();
}

std::string DrawStoreys(const StoreyModel& storeys, std::span<const StoreyCurve> curves) {
  constexpr double c_dLeft = 44, c_dGap = 60, c_dRight = 26;
  CSvgPaintContext paint(c_nStoreyWidth, c_nStoreyHeight);
  const auto nCurves = static_cast<double>(curves.size());
  const double dWidth = (c_nStoreyWidth - c_dLeft - c_dRight - c_dGap * (nCurves - 1.0)) / nCurves;
  double dX = c_dLeft;
  for (const StoreyCurve& curve : curves) {
    CStoreyChart(paint, {dX, 44, dX + dWidth, c_nStoreyHeight - 36.0}, storeys, curve).Paint();
    dX += dWidth + c_dGap;
  }
  return paint.GetDocument();
}

std::string DrawSpectrumCurve(const BookData& book, const SpectrumChapter& chapter) {
  SpectrumPicture picture;
  picture.strTitle = book.GetTitle();
  picture.strSite = DescribeSite(chapter);
  picture.site = chapter.site;
  picture.dDamping = *chapter.job.dDamping;
  for (std::size_t i = 0; i < chapter.basis.GetCount(); ++i) picture.periods.push_back(chapter.basis.GetPeriod(i));
  CSvgPaintContext paint(c_chartSize.nWidth, c_chartSize.nHeight);
  PaintSpectrum(paint, picture);
  return paint.GetDocument();
}

std::string DrawBaseShear(const BookData& book, const HistoryChapter& chapter) {
  HistoryPicture picture;
  picture.strTitle = book.GetTitle();
  picture.strSubtitle = Tell({"Base shear along {0}", "基底剪力，方向 {0}"}, {DescribeDirection(chapter.direction)});
  picture.strQuantity = Tell({"base shear V", "基底剪力 V"});
  picture.unit = c_forceUnits.front();
  picture.dTimeStep = book.history.content->dTimeStep;
  picture.curves.push_back({"", chapter.shear});
  CSvgPaintContext paint(c_chartSize.nWidth, c_chartSize.nHeight);
  PaintHistoryChart(paint, picture);
  return paint.GetDocument();
}

std::string DrawExtract(const BookData& book, const HistoryExtract& extract, const std::string& strSubtitle) {
  const bool bForce = extract.choice.nQuantity == c_nHistoryForce;
  HistoryPicture picture;
  picture.strTitle = book.GetTitle();
  picture.strSubtitle = strSubtitle;
  picture.strQuantity = bForce ? Tell({"axial force N", "轴力 N"}) : Tell({"displacement u", "位移 u"});
  picture.unit = bForce ? c_forceUnits.front() : c_displacementUnits.front();
  picture.dTimeStep = extract.history->dTimeStep;
  picture.curves.push_back({"", extract.history->values});
  CSvgPaintContext paint(c_chartSize.nWidth, c_chartSize.nHeight);
  PaintHistoryChart(paint, picture);
  return paint.GetDocument();
}

}  // namespace skyframe::host
