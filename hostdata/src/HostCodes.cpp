#include "skyframe/hostdata/HostData.h"

namespace skyframe {

namespace {

/// Place value of the digit of each DOF, X Y Z RX RY RZ.
constexpr int c_nPlaceOfDof[6] = {10'000, 1'000, 100, 10'000'000, 1'000'000, 100'000};
constexpr int c_nRestrainedDigit = 3;

// A spring support carries 222 in d4 d3 d2 and the group above them.
constexpr int c_nSpringDigits = 222;
constexpr int c_nSpringGroupPlace = 100'000;

constexpr int c_nDeadLoadType = 1;
constexpr int c_nLiveLoadType = 2;

}  // namespace

RestraintCode RestraintCode::Decode(int nCode) {
  RestraintCode result;
  if ((nCode / 100) % 1000 == c_nSpringDigits) {
    result.bSpring = true;
    result.nSpringGroup = nCode / c_nSpringGroupPlace;
    return result;
  }
  for (int d = 0; d < 6; ++d) {
    result.nRestrained[d] = (nCode / c_nPlaceOfDof[d]) % 10 >= c_nRestrainedDigit ? 1 : 0;
  }
  return result;
}

int RestraintCode::EncodeRestraint(const int (&nRestrained)[6]) {
  int nCode = 0;
  for (int d = 0; d < 6; ++d) {
    if (nRestrained[d] != 0) nCode += c_nRestrainedDigit * c_nPlaceOfDof[d];
  }
  return nCode;
}

int RestraintCode::EncodeSpring(int nGroup) { return nGroup * c_nSpringGroupPlace + c_nSpringDigits * 100; }

int LoadCode::Encode(int nCase, int nDofDirection) {
  const int nType = nCase == 0 ? c_nDeadLoadType : c_nLiveLoadType;
  return 1000 * nCase + 100 * c_nDigitOfDof[nDofDirection] + nType;
}

}  // namespace skyframe
