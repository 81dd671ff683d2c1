#pragma once

#include "skyframe/values/Capacities.h"

#ifdef __cplusplus
#include <cstddef>

namespace skyframe {
#else
#include <stddef.h>
#endif

// Types of the host records, for C and C++ alike. A host with other capacities has other records; see RecordSizes.

/// Geometry, topology, supports and loads. Coordinates in m, loads in kN and kNm. A load group is a run
/// of consecutive loads with one key (see LoadCode); groups count from 0 in the order in which they first
/// appear, and group g is load case g of a static combination. So the loads stand sorted by case, and
/// every case up to the highest has at least one, if need be of value 0.
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

/// Sizes in bytes of the records as a binary was built with them, and the capacities that these do not show.
struct RecordSizes {
  size_t nAbcd;
  size_t nComDat;
  size_t nSect;
  size_t nComDynamic;
  size_t nComZhu;
  size_t nComResult;
  int nLoadTypes;
  int nSpringGroups;

#ifdef __cplusplus
  bool operator==(const RecordSizes&) const = default;
#endif
};

/// Those of the binary that is compiled.
#define SKYFRAME_RECORD_SIZES                                                                               \
  {                                                                                                         \
    sizeof(struct tagAbcd), sizeof(struct tagComDat), sizeof(struct tagSect), sizeof(struct tagComDynamic), \
        sizeof(struct tagComZhu), sizeof(struct tagComResult), c_nLoadTypes, c_nMaxSpringGroups             \
  }

#ifdef __cplusplus
}  // namespace skyframe
#endif
