#include <algorithm>
#include <cmath>

#include "skyframe/connect/Inquiries.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Chart.h"
#include "skyframe/plot/Pictures.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dLongestPeriod = 6.0;  // the spectrum ends here
constexpr int c_nCurveSteps = 1200;
constexpr double c_dLabelGap = 16;  // least distance of two period labels
constexpr double c_dLabelHeight = 12;
constexpr double c_dLegendGap = 8;

double GetAlpha(const SpectrumPicture& picture, double T) {
  return EvaluateDesignSpectrum(picture.site, T, picture.dDamping).value_or(DesignSpectrumValue{}).dAlpha;
}

std::vector<PaintPoint> SampleSpectrum(const SpectrumPicture& picture, double dTg) {
  std::vector<double> periods = {0.1, dTg, 5.0 * dTg};
  for (int k = 0; k <= c_nCurveSteps; ++k) periods.push_back(c_dLongestPeriod * k / c_nCurveSteps);
  std::sort(periods.begin(), periods.end());
  std::vector<PaintPoint> points;
  for (const double T : periods) {
    if (T < c_dLongestPeriod) points.push_back({T, GetAlpha(picture, T)});
  }
  return points;
}

/// Dropped lines and squares on the curve, neighbours labelled together: "4-6".
void MarkPeriods(IPaintContext& paint, CChart& chart, const SpectrumPicture& picture) {
  const std::vector<double>& T = picture.periods;
  std::size_t nFirst = 0;
  for (std::size_t i = 0; i < T.size(); ++i) {
    if (T[i] > c_dLongestPeriod) {
      nFirst = i + 1;
      continue;
    }
    const double dAlpha = GetAlpha(picture, T[i]);
    const PaintPoint at = chart.Map(T[i], dAlpha);
    paint.SetPen(c_markColour, 0.8);
    paint.Line(at.dX, at.dY, at.dX, chart.GetBox().dBottom);
    chart.Mark(T[i], dAlpha, c_markColour);
    const bool bLast = i + 1 == T.size() || at.dX - chart.Map(T[i + 1], 0.0).dX > c_dLabelGap;
    if (!bLast) continue;
    const double dCentre = 0.5 * (at.dX + chart.Map(T[nFirst], 0.0).dX);
    const std::string strLast = std::to_string(i + 1);
    const std::string strLabel = nFirst == i ? strLast : std::to_string(nFirst + 1) + "–" + strLast;
    const double dTop = std::min(at.dY, chart.Map(0.0, GetAlpha(picture, T[nFirst])).dY);
    PaintLabel(paint, chart.GetBox(), {dCentre, dTop - 7}, strLabel, c_markColour);
    nFirst = i + 1;
  }
}

/// Periods at which the curve changes its law.
void MarkCorners(IPaintContext& paint, const CChart& chart, double dTg) {
  const std::pair<double, std::string> corners[] = {{dTg, Format("Tg = %g s", dTg)}, {5.0 * dTg, "5 Tg"}};
  for (const auto& [T, strLabel] : corners) {
    const double dX = chart.Map(T, 0.0).dX;
    paint.SetPen(c_faintColour, 0.6);
    paint.Line(dX, chart.GetBox().dTop, dX, chart.GetBox().dBottom);
    paint.SetPen(c_faintColour);
    paint.SetTextHeight(c_dLabelHeight);
    paint.Text(dX + 5, chart.GetBox().dTop + 4, strLabel);
  }
}

}  // namespace

void PaintSpectrum(IPaintContext& paint, const SpectrumPicture& picture, PictureSize size) {
  const double dTg = EvaluateDesignSpectrum(picture.site, 0.0, picture.dDamping).value_or(DesignSpectrumValue{}).dTg;
  const std::vector<PaintPoint> curve = SampleSpectrum(picture, dTg);
  double dHighest = 0.0;
  for (const PaintPoint& point : curve) dHighest = std::max(dHighest, point.dY);
  CChart chart(paint,
               {picture.strTitle, Say(texts::c_designSpectrum, {picture.strSite}), std::string(Say(texts::c_period)),
                std::string(Say(texts::c_alpha))},
               {ChooseAxis(0.0, c_dLongestPeriod, 13), ChooseAxis(0.0, 1.15 * dHighest, 8), GetChartBox(size)});
  MarkCorners(paint, chart, dTg);
  chart.Curve(curve, c_curveColour, 2.0);
  MarkPeriods(paint, chart, picture);
  std::vector<LegendEntry> legend = {
      {Say(texts::c_alphaOfPeriod, {Format("%g", picture.dDamping)}), c_curveColour, false}};
  if (!picture.periods.empty())
    legend.push_back({Say(texts::c_modePeriods, {std::to_string(picture.periods.size())}), c_markColour, true});
  const Box& box = chart.GetBox();
  chart.Legend(legend, {box.dRight - c_dLegendGap - GetLegendWidth(legend), box.dTop + c_dLegendGap});
}

}  // namespace skyframe::host
