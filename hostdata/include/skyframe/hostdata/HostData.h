#pragma once

#include <string>

#include "skyframe/values/Capacities.h"

namespace skyframe {

/// Geometry, topology, supports and loads. Coordinates in m, loads in kN and kNm.
struct tagAbcd {
  int m_nNodes;  ///< 0: no model
  int m_nElements;
  int m_nReserved[6];
  int m_nLoadCases;  ///< host load cases; parameter dialogs get this count plus one
  float m_fX[c_nNodeSlots];
  float m_fY[c_nNodeSlots];
  float m_fZ[c_nNodeSlots];
  int m_nFirstNode[c_nMaxElements];    ///< 1-based node number of end 1
  int m_nSecondNode[c_nMaxElements];   ///< 1-based node number of end 2
  int m_nSection[c_nMaxElements];      ///< section group * 100 + shape (1..6)
  int m_nRestraint[c_nNodeSlots];      ///< see RestraintCode
  int m_nJoint[c_nNodeSlots];          ///< 1 rigid (six DOFs), 0 pinned (three translations)
  int m_nElementType[c_nMaxElements];  ///< 0 bar, 1 beam, 2 cable, 3 membrane
  int m_nLoads;
  int m_nLoadNode[c_nMaxLoads];
  int m_nLoadCode[c_nMaxLoads];  ///< 1000 case + 100 direction (1..6) + type (1 dead, 2 live)
  float m_fLoadValue[c_nMaxLoads];
};

/// Section tables, node orders, job path.
struct tagComDat {
  float m_fIx[c_nSectionSlots];  ///< mm4, at (group - 1) * 30 + (shape - 1)
  float m_fIy[c_nSectionSlots];
  float m_fIz[c_nSectionSlots];
  float m_fSpectrum[c_nNodeSlots];  ///< written by the spectrum analysis, by node number
  int* m_pFirstOrder;               ///< host number of each renumbered node; null outside a modal run
  int* m_pSecondOrder;              ///< renumbered number of each host node; null outside a modal run
  char m_szJobPath[c_nMaxPath];     ///< without suffix; prefix of all result files
};

/// Section areas in mm2, indexed like the section tables.
struct tagSect {
  float m_fArea[c_nSectionSlots];
};

/// Dynamic-analysis settings, remembered between runs.
struct tagComDynamic {
  int m_nModes;
  int m_nSaveAs;  ///< save-as choice of the spectrum dialog, 0..3
  double m_dModeTol;
  int m_nRootCheck;  ///< radio index: 0 "STURM法", 1 "模态比较法"
  int m_bShear;
  int m_nIterMultiple;
  int m_nExpandModes;
  double m_dDampRatio;
  double m_dDesignAcceleration;  ///< g
  int m_nMeshDiv;
  int m_nIntensity;   ///< 6..11
  int m_nSiteClass;   ///< 1..4
  int m_nQuakeLevel;  ///< 0 frequent, 1 rare
  int m_nZoneGroup;   ///< 1..3
  double m_dDirCoef[3];
  int m_bHistoryAvailable;
  double m_dHistoryStep;  ///< s
  int m_nHistoryCount;
  int m_nMethod;        ///< 0 Wilson-theta, 1 Newmark
  int m_bNonlinear;     ///< 1: nonlinear time history
  int m_nCombMethod;    ///< 0 SRSS, 1 CQC, 2 GRP
  int m_bSaveAs[4];     ///< seismic cases X, Y, Z, oblique; set by the spectrum dialog, never cleared by it
  int m_bVirtualModes;  ///< 1: the spectrum analysis adds the virtual mode; no dialog writes it
  int m_nPseudoLoadNo;  ///< seismic pseudo-static load number of that analysis; no dialog writes it
};

/// Inclined supports.
struct tagComZhu {
  int m_nCount;
  int m_nNode[c_nMaxNodes];  ///< 1-based node numbers
};

/// Results handed back; reserved for the spectrum analysis.
struct tagComResult {
  int m_nReserved;
};

extern tagAbcd ABCD;
extern tagComDat COMDAT;
extern tagSect SECT;
extern tagComDynamic COMDYN;
extern tagComZhu ZHU;
extern tagComResult RES;
extern std::string g_ProgramPath;   ///< directory of the host program
extern std::string g_FilePathName;  ///< current job path

/// Clears every record, string and spring group, forgets a renumbering and puts the initial settings
/// into COMDYN.
void ResetHostData();

/// Restraint codes, read as decimal digits d7 d6 d5 d4 d3 d2 d1 d0: a digit of 3 or more restrains
/// X (d4), Y (d3), Z (d2), RX (d7), RY (d6), RZ (d5); 222 in d4 d3 d2 selects spring group code / 100000.
struct RestraintCode {
  bool bSpring = false;
  int nSpringGroup = 0;
  int nRestrained[6] = {};  ///< X Y Z RX RY RZ, 1 = restrained; all 0 for spring supports

  [[nodiscard]] static RestraintCode Decode(int nCode);
  [[nodiscard]] static int EncodeRestraint(const int (&nRestrained)[6]);
  [[nodiscard]] static int EncodeSpring(int nGroup);
};

/// Parts of a load code.
struct LoadCode {
  /// Digit 1..6 of a DOF place: X Y Z RX RY RZ are 1 2 3 6 4 5.
  static constexpr int c_nDigitOfDof[6] = {1, 2, 3, 6, 4, 5};

  [[nodiscard]] static int GetCase(int nCode) { return nCode / 1000; }
  [[nodiscard]] static int GetDirectionDigit(int nCode) { return (nCode % 1000) / 100; }
  [[nodiscard]] static int GetType(int nCode) { return nCode % 100; }
  /// Consecutive loads with the same key form a load group.
  [[nodiscard]] static int GetGroupKey(int nCode) { return nCode % 10 + 10 * (nCode / 1000); }
  /// Case 0 is dead load (type 1), every other case live (type 2).
  [[nodiscard]] static int Encode(int nCase, int nDofDirection);
};

/// Services of the host that the module calls.
class CCommonData {
 public:
  /// Renumbers the nodes by reverse Cuthill-McKee for a small profile. Permutes coordinates, joints,
  /// restraints, element ends, loads and inclined supports; records the mapping in COMDAT's node-order
  /// arrays where they are present: second[old] = new, first[new] = old, old being the host's own
  /// number. Unused nodes come last; ends and load nodes that name no node stay as they are.
  /// Source: George and Liu (1981), section 4.3, with a pseudo-peripheral starting node per component.
  static void OnReNodeCode();
  /// Puts the host's own numbering back exactly, however often OnReNodeCode was called; without a
  /// call it does nothing.
  static void OnRestoreNodeCode();
  /// Translational stiffnesses of a spring group, kN/mm; 0 for an unknown group.
  static void OnCalculateKxKyKz(int nGroup, float& fKx, float& fKy, float& fKz);

  /// For the host that owns the model: defines a spring group 0..c_nMaxSpringGroups; other numbers
  /// are ignored.
  static void SetSpringGroup(int nGroup, float fKx, float fKy, float fKz);
};

}  // namespace skyframe
