#include "Report.h"

#include <cmath>

#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

/// Never "-0.000".
std::string FormatForce(double dKilonewton) {
  return Format("%.3f", std::abs(dKilonewton) < 0.5e-3 ? 0.0 : dKilonewton);
}

}  // namespace

void PrintLine(std::string_view strLabel, std::string_view strText, std::ostream& out) {
  out << "  " << PadRight(strLabel, 22) << strText << '\n';
}

std::string FormatForces(const std::array<double, 3>& kilonewtons) {
  const auto& [X, Y, Z] = kilonewtons;
  return Say(texts::c_forces, {FormatForce(X), FormatForce(Y), FormatForce(Z)});
}

}  // namespace skyframe::host
