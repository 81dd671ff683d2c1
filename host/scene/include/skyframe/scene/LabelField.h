#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "skyframe/platform/PaintContext.h"
#include "skyframe/scene/Box.h"

namespace skyframe::host {

/// A text that belongs to a point of a drawing.
struct Label {
  PaintPoint at;
  PaintPoint aside;  ///< direction in which it should stand from there, of any length; none: upwards
  std::string strText;
  Colour colour;
  double dPriority = 0.0;  ///< greater ones take their places first
};

/// Labels that a drawing of so many members can bear.
[[nodiscard]] std::size_t ChooseLabelCount(std::size_t nMembers);

/// Labels of a drawing, which do not cover one another: those that find no free place beside their points are left out,
/// and so are those that would say the same at the same point.
/// They are painted last, above all that is drawn.
class CLabelField {
 public:
  /// No more than nMost of them, within the box; ground: the colour around the letters.
  CLabelField(const Box& within, std::size_t nMost, double dTextHeight, Colour ground = c_white);

  void Add(Label label) { m_labels.push_back(std::move(label)); }
  /// Keeps a place free.
  void Reserve(const Box& box) { m_taken.push_back(box); }
  /// Paints them and forgets them.
  void Paint(IPaintContext& paint);

 private:
  void PaintOne(IPaintContext& paint, const Label& label);
  /// Whether the same text stands at the point already, as at two members' common end.
  [[nodiscard]] bool IsSaid(const Label& label) const;
  [[nodiscard]] bool IsFree(const Box& box) const;

  Box m_within;
  std::size_t m_nMost;
  double m_dTextHeight;
  Colour m_ground;
  std::vector<Label> m_labels;
  std::vector<Box> m_taken;
  std::vector<Label> m_painted;
};

}  // namespace skyframe::host
