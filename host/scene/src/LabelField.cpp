#include "skyframe/scene/LabelField.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "skyframe/scene/TextExtent.h"

namespace skyframe::host {

namespace {

constexpr double c_dGap = 2.0;  // pixels, from the point
constexpr double c_dSamePoint = 3.0;
constexpr double c_dPadding = 2.0;  // around the text
// Turns away from the direction wished for, degrees.
constexpr std::array<double, 5> c_dTurns = {0.0, 50.0, -50.0, 100.0, -100.0};
constexpr double c_dDegree = 0.017453292519943295;

// Around the letters.
constexpr std::array<PaintPoint, 4> c_halo = {{{-1.2, -1.2}, {1.2, -1.2}, {-1.2, 1.2}, {1.2, 1.2}}};

void PaintMiddle(IPaintContext& paint, PaintPoint at, std::string_view strText) {
  paint.Text(at.dX, at.dY, strText, HorizontalAlign::Centre, VerticalAlign::Middle);
}

bool IsInside(const Box& box, PaintPoint at) {
  return at.dX >= box.dLeft && at.dX <= box.dRight && at.dY >= box.dTop && at.dY <= box.dBottom;
}

/// Moved into another one, which is larger.
Box MoveInto(const Box& within, const Box& box) {
  const double dX = std::max(within.dLeft - box.dLeft, 0.0) - std::max(box.dRight - within.dRight, 0.0);
  const double dY = std::max(within.dTop - box.dTop, 0.0) - std::max(box.dBottom - within.dBottom, 0.0);
  return {box.dLeft + dX, box.dTop + dY, box.dRight + dX, box.dBottom + dY};
}

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

std::size_t ChooseLabelCount(std::size_t nMembers) {
  constexpr std::size_t c_nFewest = 16;
  constexpr std::size_t c_nMost = 220;
  constexpr std::size_t c_nCrowd = 12000;  // labels times members
  return std::clamp(c_nCrowd / std::max<std::size_t>(nMembers, 1), c_nFewest, c_nMost);
}

CLabelField::CLabelField(const Box& within, std::size_t nMost, double dTextHeight, Colour ground)
    : m_within(within), m_nMost(nMost), m_dTextHeight(dTextHeight), m_ground(ground) {}

bool CLabelField::IsFree(const Box& box) const {
  return std::ranges::none_of(m_taken, [&](const Box& taken) { return Overlap(taken, box); });
}

void CLabelField::Paint(IPaintContext& paint) {
  std::ranges::stable_sort(m_labels, std::ranges::greater(), &Label::dPriority);
  for (const Label& label : m_labels) {
    if (m_painted.size() < m_nMost && IsInside(m_within, label.at)) PaintOne(paint, label);
  }
  m_labels.clear();
}

bool CLabelField::IsSaid(const Label& label) const {
  return std::ranges::any_of(m_painted, [&](const Label& other) {
    return other.strText == label.strText &&
           std::hypot(other.at.dX - label.at.dX, other.at.dY - label.at.dY) < c_dSamePoint;
  });
}

void CLabelField::PaintOne(IPaintContext& paint, const Label& label) {
  if (IsSaid(label)) return;
  const double dWidth = EstimateTextWidth(label.strText, m_dTextHeight) + 2.0 * c_dPadding;
  const double dHeight = 1.2 * m_dTextHeight;
  const PaintPoint wished = FindDirection(label.aside);
  for (const double dTurn : c_dTurns) {
    const double c = std::cos(dTurn * c_dDegree);
    const double s = std::sin(dTurn * c_dDegree);
    const PaintPoint direction{c * wished.dX - s * wished.dY, s * wished.dX + c * wished.dY};
    const Box box = MoveInto(m_within, PlaceBeside(label.at, direction, dWidth, dHeight));
    if (!IsFree(box)) continue;
    Reserve(box);
    m_painted.push_back(label);
    const PaintPoint middle{0.5 * (box.dLeft + box.dRight), 0.5 * (box.dTop + box.dBottom)};
    paint.SetTextHeight(m_dTextHeight);
    paint.SetPen(m_ground);
    for (const auto [dX, dY] : c_halo) PaintMiddle(paint, {middle.dX + dX, middle.dY + dY}, label.strText);
    paint.SetPen(label.colour);
    return PaintMiddle(paint, middle, label.strText);
  }
}

}  // namespace skyframe::host
