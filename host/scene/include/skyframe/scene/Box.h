#pragma once

namespace skyframe::host {

/// Part of a picture, pixels.
struct Box {
  double dLeft = 0.0;
  double dTop = 0.0;
  double dRight = 0.0;
  double dBottom = 0.0;

  [[nodiscard]] double GetWidth() const { return dRight - dLeft; }
  [[nodiscard]] double GetHeight() const { return dBottom - dTop; }
};

}  // namespace skyframe::host
