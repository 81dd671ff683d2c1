#pragma once

#include <stddef.h>

#include "skyframe/skyframe.h"

// The layout of the records as the compiler of this file sees it: every size, and the places of the fields that follow
// one of another kind.
#define RECORD_LAYOUT                                                                                               \
  {                                                                                                                 \
    sizeof(struct tagAbcd), sizeof(struct tagComDat), sizeof(struct tagSect), sizeof(struct tagComDynamic),         \
        sizeof(struct tagComZhu), sizeof(struct tagComResult), sizeof(struct RecordSizes),                          \
        offsetof(struct tagAbcd, m_fX), offsetof(struct tagAbcd, m_nFirstNode), offsetof(struct tagAbcd, m_nJoint), \
        offsetof(struct tagAbcd, m_nLoads), offsetof(struct tagAbcd, m_fLoadValue),                                 \
        offsetof(struct tagComDat, m_pFirstOrder), offsetof(struct tagComDat, m_szJobPath),                         \
        offsetof(struct tagComDynamic, m_dModeTol), offsetof(struct tagComDynamic, m_dDampRatio),                   \
        offsetof(struct tagComDynamic, m_dDirCoef), offsetof(struct tagComDynamic, m_dHistoryStep),                 \
        offsetof(struct tagComDynamic, m_nPseudoLoadNo), offsetof(struct tagComZhu, m_nNode),                       \
        offsetof(struct RecordSizes, nLoadTypes)                                                                    \
  }
