#include "SteelSections.h"

#include <cmath>

namespace skyframe::host {

namespace {

double Cube(double d) { return d * d * d; }

constexpr int c_nShape = 1;

}  // namespace

JobSection MakeHSection(int nHeight, int nBreadth, int nWeb, int nFlange) {
  const double h = nHeight;
  const double b = nBreadth;
  const double tw = nWeb;
  const double tf = nFlange;
  const double hw = h - 2.0 * tf;
  const std::string strId = "H " + std::to_string(nHeight) + "x" + std::to_string(nBreadth) + "x" +
                            std::to_string(nWeb) + "x" + std::to_string(nFlange);
  const double dArea = 2.0 * b * tf + hw * tw;
  const double dIx = (2.0 * b * Cube(tf) + hw * Cube(tw)) / 3.0;  // thin open section: sum of b t^3/3
  const double dIy = (b * Cube(h) - (b - tw) * Cube(hw)) / 12.0;
  const double dIz = (2.0 * tf * Cube(b) + hw * Cube(tw)) / 12.0;
  return {strId, c_nShape, dArea, std::round(dIx), std::round(dIy), std::round(dIz)};
}

JobSection MakeBoxSection(int nSide, int nPlate) {
  const double b = nSide;
  const double t = nPlate;
  const double c = b - 2.0 * t;
  const std::string strSide = std::to_string(nSide);
  const double dI = (b * Cube(b) - c * Cube(c)) / 12.0;
  const double dIx = t * Cube(b - t);  // Bredt: 4 A^2/(s/t), middle line of side b - t
  return {"box " + strSide + "x" + strSide + "x" + std::to_string(nPlate),
          c_nShape,
          b * b - c * c,
          dIx,
          std::round(dI),
          std::round(dI)};
}

}  // namespace skyframe::host
