#pragma once

#include "skyframe/values/Constant.h"

#ifdef __cplusplus
namespace skyframe {
#endif

// Dialogs and their controls. A control's identifier is unique within its dialog only.

SKYFRAME_CONSTANT(c_nIdModeDlg, 16000);
SKYFRAME_CONSTANT(c_nIdSpectrumDlg, 16001);
SKYFRAME_CONSTANT(c_nIdLoadCombDlg, 16002);
SKYFRAME_CONSTANT(c_nIdDynOptionDlg, 16003);
SKYFRAME_CONSTANT(c_nIdWilsonDlg, 16004);
SKYFRAME_CONSTANT(c_nIdNewmarkDlg, 16005);
SKYFRAME_CONSTANT(c_nIdHisResultDlg, 16006);
SKYFRAME_CONSTANT(c_nIdNonlinStaticDlg, 16007);
SKYFRAME_CONSTANT(c_nIdImpulseLoadDlg, 16009);
SKYFRAME_CONSTANT(c_nIdGeneralLoadDlg, 16010);
SKYFRAME_CONSTANT(c_nIdEarthquakeDlg, 16012);

// Modal analysis
SKYFRAME_CONSTANT(c_nIdModes, 16000);
SKYFRAME_CONSTANT(c_nIdSturm, 16001);
SKYFRAME_CONSTANT(c_nIdModeComparison, 16002);
SKYFRAME_CONSTANT(c_nIdAccuracy, 16003);
SKYFRAME_CONSTANT(c_nIdIterMultiple, 16004);
SKYFRAME_CONSTANT(c_nIdShear, 16005);
SKYFRAME_CONSTANT(c_nIdModeLoadComb, 16044);

// Load combination
SKYFRAME_CONSTANT(c_nIdAvailable, 16039);
SKYFRAME_CONSTANT(c_nIdCombined, 16041);
SKYFRAME_CONSTANT(c_nIdAdd, 16042);
SKYFRAME_CONSTANT(c_nIdRemove, 16043);
SKYFRAME_CONSTANT(c_nIdFactorLabel, 16045);
SKYFRAME_CONSTANT(c_nIdFactor, 16046);

// Response spectrum; radio buttons in the order of their index
SKYFRAME_CONSTANT(c_nIdExpandModes, 16006);
SKYFRAME_CONSTANT(c_nIdDampRatio, 16007);
SKYFRAME_CONSTANT(c_nIdMeshDiv, 16009);
SKYFRAME_CONSTANT(c_nIdIntensity6, 16010);
SKYFRAME_CONSTANT(c_nIdIntensity7, 16049);
SKYFRAME_CONSTANT(c_nIdIntensity7Half, 16047);
SKYFRAME_CONSTANT(c_nIdIntensity8, 16011);
SKYFRAME_CONSTANT(c_nIdIntensity8Half, 16048);
SKYFRAME_CONSTANT(c_nIdIntensity9, 16012);
SKYFRAME_CONSTANT(c_nIdFrequentQuake, 16013);
SKYFRAME_CONSTANT(c_nIdRareQuake, 16014);
SKYFRAME_CONSTANT(c_nIdSiteClass1, 16015);
SKYFRAME_CONSTANT(c_nIdSiteClass2, 16016);
SKYFRAME_CONSTANT(c_nIdSiteClass3, 16017);
SKYFRAME_CONSTANT(c_nIdSiteClass4, 16018);
SKYFRAME_CONSTANT(c_nIdZoneGroup1, 16019);
SKYFRAME_CONSTANT(c_nIdZoneGroup2, 16020);
SKYFRAME_CONSTANT(c_nIdZoneGroup3, 16021);
SKYFRAME_CONSTANT(c_nIdDirectionX, 16022);
SKYFRAME_CONSTANT(c_nIdSrss, 16025);
SKYFRAME_CONSTANT(c_nIdCqc, 16026);
SKYFRAME_CONSTANT(c_nIdGrp, 16027);
SKYFRAME_CONSTANT(c_nIdDirectionY, 16028);
SKYFRAME_CONSTANT(c_nIdDirectionZ, 16029);
SKYFRAME_CONSTANT(c_nIdLoadValues, 16030);
SKYFRAME_CONSTANT(c_nIdVirtualMode, 16050);
SKYFRAME_CONSTANT(c_nIdPseudoLoad, 16051);
SKYFRAME_CONSTANT(c_nIdSaveAs, 16127);

// Static and time-history methods
SKYFRAME_CONSTANT(c_nIdLoadComb, 16059);
SKYFRAME_CONSTANT(c_nIdNonlinear, 16063);
SKYFRAME_CONSTANT(c_nIdCriterion, 16090);
SKYFRAME_CONSTANT(c_nIdTolerance, 16091);
SKYFRAME_CONSTANT(c_nIdMaxIter, 16092);

// Choice of the time-history method
SKYFRAME_CONSTANT(c_nIdWilson, 16065);
SKYFRAME_CONSTANT(c_nIdNewmark, 16066);

// Time-history methods
SKYFRAME_CONSTANT(c_nIdNodalForce, 16052);
SKYFRAME_CONSTANT(c_nIdGroundMotion, 16053);
SKYFRAME_CONSTANT(c_nIdDamping1, 16055);
SKYFRAME_CONSTANT(c_nIdDamping2, 16056);
SKYFRAME_CONSTANT(c_nIdWilsonStep, 16057);
SKYFRAME_CONSTANT(c_nIdWilsonDuration, 16058);
SKYFRAME_CONSTANT(c_nIdTheta, 16060);
SKYFRAME_CONSTANT(c_nIdDelta, 16061);
SKYFRAME_CONSTANT(c_nIdAlpha, 16064);
SKYFRAME_CONSTANT(c_nIdImpulseLoad, 16094);
SKYFRAME_CONSTANT(c_nIdEarthquake, 16095);
SKYFRAME_CONSTANT(c_nIdFromFile, 16114);
SKYFRAME_CONSTANT(c_nIdGeneralLoad, 16115);

// Step and duration of the load dialogs
SKYFRAME_CONSTANT(c_nIdStep, 16112);
SKYFRAME_CONSTANT(c_nIdDuration, 16114);

// Impulse loads
SKYFRAME_CONSTANT(c_nIdTriangular, 16099);
SKYFRAME_CONSTANT(c_nIdRectangular, 16100);
SKYFRAME_CONSTANT(c_nIdImpulseList, 16105);
SKYFRAME_CONSTANT(c_nIdImpulseDirection, 16107);
SKYFRAME_CONSTANT(c_nIdImpulsePeak, 16108);
SKYFRAME_CONSTANT(c_nIdImpulseNode, 16109);
SKYFRAME_CONSTANT(c_nIdUnloadTime, 16110);
SKYFRAME_CONSTANT(c_nIdPeakTime, 16111);
SKYFRAME_CONSTANT(c_nIdImpulseRemove, 16113);
SKYFRAME_CONSTANT(c_nIdImpulseInsert, 16115);

// Ground motion; the labels of the peaks follow their fields' enabling
SKYFRAME_CONSTANT(c_nIdQuakeX, 16070);
SKYFRAME_CONSTANT(c_nIdQuakeY, 16071);
SKYFRAME_CONSTANT(c_nIdQuakeZ, 16072);
SKYFRAME_CONSTANT(c_nIdObliqueX, 16074);
SKYFRAME_CONSTANT(c_nIdPrincipal, 16075);
SKYFRAME_CONSTANT(c_nIdObliqueY, 16077);
SKYFRAME_CONSTANT(c_nIdObliqueZ, 16078);
SKYFRAME_CONSTANT(c_nIdOblique, 16079);
SKYFRAME_CONSTANT(c_nIdPeakX, 16080);
SKYFRAME_CONSTANT(c_nIdPeakY, 16081);
SKYFRAME_CONSTANT(c_nIdPeakZ, 16082);
SKYFRAME_CONSTANT(c_nIdPeakOblique, 16083);
SKYFRAME_CONSTANT(c_nIdPeakXLabel, 16084);
SKYFRAME_CONSTANT(c_nIdPeakYLabel, 16085);
SKYFRAME_CONSTANT(c_nIdPeakZLabel, 16086);
SKYFRAME_CONSTANT(c_nIdPeakObliqueLabel, 16087);
SKYFRAME_CONSTANT(c_nIdStandardRecord, 16117);

// Result viewer; radio buttons in the order of their index
SKYFRAME_CONSTANT(c_nIdNodeHistory, 16118);
SKYFRAME_CONSTANT(c_nIdElementHistory, 16119);
SKYFRAME_CONSTANT(c_nIdHistoryNode, 16120);
SKYFRAME_CONSTANT(c_nIdHistoryX, 16121);
SKYFRAME_CONSTANT(c_nIdHistoryY, 16122);
SKYFRAME_CONSTANT(c_nIdHistoryZ, 16123);
SKYFRAME_CONSTANT(c_nIdHistoryElement, 16124);
SKYFRAME_CONSTANT(c_nIdRefresh, 16125);
SKYFRAME_CONSTANT(c_nIdOutput, 16126);

#ifdef __cplusplus
}  // namespace skyframe
#endif
