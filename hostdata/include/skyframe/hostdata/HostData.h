#pragma once

#include <string>

#include "skyframe/values/Export.h"
#include "skyframe/values/Records.h"

namespace skyframe {

SKYFRAME_API extern tagAbcd ABCD;
SKYFRAME_API extern tagComDat COMDAT;
SKYFRAME_API extern tagSect SECT;
SKYFRAME_API extern tagComDynamic COMDYN;
SKYFRAME_API extern tagComZhu ZHU;
SKYFRAME_API extern tagComResult RES;
SKYFRAME_API extern std::string g_ProgramPath;  ///< directory of the host program
/// Current job path. It must agree with COMDAT.m_szJobPath: a ground-motion history is written and read
/// under this one, every other result under that one.
SKYFRAME_API extern std::string g_FilePathName;

/// Clears every record, string and spring group, forgets a renumbering and puts the initial settings
/// into COMDYN.
SKYFRAME_API void ResetHostData();

/// Restraint codes, read as decimal digits d7 d6 d5 d4 d3 d2 d1 d0: a digit of 3 or more restrains
/// X (d4), Y (d3), Z (d2), RX (d7), RY (d6), RZ (d5); 222 in d4 d3 d2 selects spring group code / 100000.
struct SKYFRAME_API RestraintCode {
  bool bSpring = false;
  int nSpringGroup = 0;
  int nRestrained[6] = {};  ///< X Y Z RX RY RZ, 1 = restrained; all 0 for spring supports

  [[nodiscard]] static RestraintCode Decode(int nCode);
  [[nodiscard]] static int EncodeRestraint(const int (&nRestrained)[6]);
  [[nodiscard]] static int EncodeSpring(int nGroup);
};

/// Parts of a load code.
struct SKYFRAME_API LoadCode {
  /// Digit 1..6 of a DOF place: X Y Z RX RY RZ are 1 2 3 6 4 5.
  static constexpr int c_nDigitOfDof[6] = {1, 2, 3, 6, 4, 5};

  [[nodiscard]] static int GetCase(int nCode) { return nCode / 1000; }
  [[nodiscard]] static int GetDirectionDigit(int nCode) { return (nCode % 1000) / 100; }
  [[nodiscard]] static int GetType(int nCode) { return nCode % 100; }
  /// Consecutive loads with the same key form a load group. Groups follow the order of first appearance,
  /// whatever case their codes name.
  [[nodiscard]] static int GetGroupKey(int nCode) { return nCode % 10 + 10 * (nCode / 1000); }
  /// Case 0 is dead load (type 1), every other case live (type 2).
  [[nodiscard]] static int Encode(int nCase, int nDofDirection);
};

/// Services of the host that the module calls.
class SKYFRAME_API CCommonData {
 public:
  /// Renumbers the nodes by Cuthill-McKee, from either end and in either direction, whichever costs least to factorise,
  /// unless the present order costs no more.
  /// Permutes coordinates, joints, restraints, element ends, loads and inclined supports; records the
  /// mapping in COMDAT's node-order arrays where they are present: second[old] = new, first[new] = old,
  /// old being the host's own number. In a new order unused nodes come last; ends and load nodes that
  /// name no node stay as they are.
  /// Failure: std::bad_alloc; nothing is changed then.
  /// Source: George and Liu (1981), section 4.3, with a pseudo-peripheral starting node per component.
  static void OnReNodeCode();
  /// Puts the host's own numbering back exactly, however often OnReNodeCode was called; without a
  /// call it does nothing. Needs no memory.
  static void OnRestoreNodeCode() noexcept;
  /// Translational stiffnesses of a spring group, kN/mm; 0 for an unknown group.
  static void OnCalculateKxKyKz(int nGroup, float& fKx, float& fKy, float& fKz);

  /// For the host that owns the model: defines a spring group 0..c_nMaxSpringGroups; other numbers
  /// are ignored.
  static void SetSpringGroup(int nGroup, float fKx, float fKy, float fKz);
};

}  // namespace skyframe
