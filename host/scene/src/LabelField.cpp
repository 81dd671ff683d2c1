#include "skyframe/scene/LabelField.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {

namespace {

constexpr double c_dGap = 2.0;      // pixels, from the point
constexpr double c_dPadding = 2.0;  // around the text
// Turns away from the direction wished for, degrees.
constexpr std::array<double, 5> c_dTurns = {0.0, 50.0, -50.0, 100.0, -100.0};
constexpr double c_dDegree = 0.017453292519943295;

bool Overlap(const Box& a, const Box& b) {
  return a.dLeft < b.dRight && b.dLeft < a.dRight && a.dTop < b.dBottom && b.dTop < a.dBottom;
}

/// A unit vector; upwards when there is no direction.
PaintPoint FindDirection(PaintPoint aside) {
  const double dLength = std::hypot(aside.dX, aside.dY);
  return dLength > 0.0 ? PaintPoint{aside.dX / dLength, aside.dY / dLength} : PaintPoint{0.0, -1.0};
}

/// The box beside the point that just lets it free.
Box PlaceBeside(PaintPoint at, PaintPoint direction, double dWidth, double dHeight) {
  constexpr double c_dLeast = 1.0e-9;
  const double d = std::min((0.5 * dWidth + c_dGap) / std::max(std::abs(direction.dX), c_dLeast),
                            (0.5 * dHeight + c_dGap) / std::max(std::abs(direction.dY), c_dLeast));
  const double dX = at.dX + d * direction.dX;
  const double dY = at.dY + d * direction.dY;
  return {dX - 0.5 * dWidth, dY - 0.5 * dHeight, dX + 0.5 * dWidth, dY + 0.5 * dHeight};
}

}  // namespace

CLabelField::CLabelField(const Box& within, std::size_t nMost, double dTextHeight, Colour ground)
    : m_within(within), m_nMost(nMost), m_dTextHeight(dTextHeight), m_ground(ground) {}

bool CLabelField::IsFree(const Box& box) const {
  const bool bInside = box.dLeft >= m_within.dLeft && box.dRight <= m_within.dRight && box.dTop >= m_within.dTop &&
                       box.dBottom <= m_within.dBottom;
  return bInside && std::ranges::none_of(m_taken, [&](const Box& taken) { return Overlap(taken, box); });
}

void CLabelField::Paint(IPaintContext& paint) {
  std::ranges::stable_sort(m_labels, std::ranges::greater(), &Label::dPriority);
  for (const Label& label : m_labels) {
    if (m_nPainted < m_nMost) PaintOne(paint, label);
  }
  m_labels.clear();
}

void CLabelField::PaintOne(IPaintContext& paint, const Label& label) {
  const double dWidth = EstimateTextWidth(label.strText, m_dTextHeight) + 2.0 * c_dPadding;
  const double dHeight = 1.2 * m_dTextHeight;
  const PaintPoint wished = FindDirection(label.aside);
  for (const double dTurn : c_dTurns) {
    const double c = std::cos(dTurn * c_dDegree);
    const double s = std::sin(dTurn * c_dDegree);
    const PaintPoint direction{c * wished.dX - s * wished.dY, s * wished.dX + c * wished.dY};
    const Box box = PlaceBeside(label.at, direction, dWidth, dHeight);
    if (!IsFree(box)) continue;
    Reserve(box);
    ++m_nPainted;
    paint.SetPen(m_ground);
    paint.SetBrush(m_ground);
    paint.Rectangle(box.dLeft, box.dTop, box.GetWidth(), box.GetHeight());
    paint.SetPen(label.colour);
    paint.SetTextHeight(m_dTextHeight);
    return paint.Text(0.5 * (box.dLeft + box.dRight), 0.5 * (box.dTop + box.dBottom), label.strText,
                      HorizontalAlign::Centre, VerticalAlign::Middle);
  }
}

}  // namespace skyframe::host
