#pragma once

namespace skyframe {

// Dialogs and their controls. A control's identifier is unique within its dialog only.

inline constexpr int c_nIdModeDlg = 16000;
inline constexpr int c_nIdSpectrumDlg = 16001;
inline constexpr int c_nIdLoadCombDlg = 16002;
inline constexpr int c_nIdDynOptionDlg = 16003;
inline constexpr int c_nIdWilsonDlg = 16004;
inline constexpr int c_nIdNewmarkDlg = 16005;
inline constexpr int c_nIdHisResultDlg = 16006;
inline constexpr int c_nIdNonlinStaticDlg = 16007;
inline constexpr int c_nIdImpulseLoadDlg = 16009;
inline constexpr int c_nIdGeneralLoadDlg = 16010;
inline constexpr int c_nIdEarthquakeDlg = 16012;

// Modal analysis
inline constexpr int c_nIdModes = 16000;
inline constexpr int c_nIdSturm = 16001;
inline constexpr int c_nIdModeComparison = 16002;
inline constexpr int c_nIdAccuracy = 16003;
inline constexpr int c_nIdIterMultiple = 16004;
inline constexpr int c_nIdShear = 16005;
inline constexpr int c_nIdModeLoadComb = 16044;

// Load combination
inline constexpr int c_nIdAvailable = 16039;
inline constexpr int c_nIdCombined = 16041;
inline constexpr int c_nIdAdd = 16042;
inline constexpr int c_nIdRemove = 16043;
inline constexpr int c_nIdFactorLabel = 16045;
inline constexpr int c_nIdFactor = 16046;

// Response spectrum; radio buttons in the order of their index
inline constexpr int c_nIdExpandModes = 16006;
inline constexpr int c_nIdDampRatio = 16007;
inline constexpr int c_nIdMeshDiv = 16009;
inline constexpr int c_nIdIntensity6 = 16010;
inline constexpr int c_nIdIntensity7 = 16049;
inline constexpr int c_nIdIntensity7Half = 16047;
inline constexpr int c_nIdIntensity8 = 16011;
inline constexpr int c_nIdIntensity8Half = 16048;
inline constexpr int c_nIdIntensity9 = 16012;
inline constexpr int c_nIdFrequentQuake = 16013;
inline constexpr int c_nIdRareQuake = 16014;
inline constexpr int c_nIdSiteClass1 = 16015;
inline constexpr int c_nIdSiteClass2 = 16016;
inline constexpr int c_nIdSiteClass3 = 16017;
inline constexpr int c_nIdSiteClass4 = 16018;
inline constexpr int c_nIdZoneGroup1 = 16019;
inline constexpr int c_nIdZoneGroup2 = 16020;
inline constexpr int c_nIdZoneGroup3 = 16021;
inline constexpr int c_nIdDirectionX = 16022;
inline constexpr int c_nIdSrss = 16025;
inline constexpr int c_nIdCqc = 16026;
inline constexpr int c_nIdGrp = 16027;
inline constexpr int c_nIdDirectionY = 16028;
inline constexpr int c_nIdDirectionZ = 16029;
inline constexpr int c_nIdLoadValues = 16030;
inline constexpr int c_nIdVirtualMode = 16050;
inline constexpr int c_nIdPseudoLoad = 16051;
inline constexpr int c_nIdSaveAs = 16127;

// Static and time-history methods
inline constexpr int c_nIdLoadComb = 16059;
inline constexpr int c_nIdNonlinear = 16063;
inline constexpr int c_nIdCriterion = 16090;
inline constexpr int c_nIdTolerance = 16091;
inline constexpr int c_nIdMaxIter = 16092;

// Choice of the time-history method
inline constexpr int c_nIdWilson = 16065;
inline constexpr int c_nIdNewmark = 16066;

// Time-history methods
inline constexpr int c_nIdNodalForce = 16052;
inline constexpr int c_nIdGroundMotion = 16053;
inline constexpr int c_nIdDamping1 = 16055;
inline constexpr int c_nIdDamping2 = 16056;
inline constexpr int c_nIdWilsonStep = 16057;
inline constexpr int c_nIdWilsonDuration = 16058;
inline constexpr int c_nIdTheta = 16060;
inline constexpr int c_nIdDelta = 16061;
inline constexpr int c_nIdAlpha = 16064;
inline constexpr int c_nIdImpulseLoad = 16094;
inline constexpr int c_nIdEarthquake = 16095;
inline constexpr int c_nIdFromFile = 16114;
inline constexpr int c_nIdGeneralLoad = 16115;

// Step and duration of the load dialogs
inline constexpr int c_nIdStep = 16112;
inline constexpr int c_nIdDuration = 16114;

// Impulse loads
inline constexpr int c_nIdTriangular = 16099;
inline constexpr int c_nIdRectangular = 16100;
inline constexpr int c_nIdImpulseList = 16105;
inline constexpr int c_nIdImpulseDirection = 16107;
inline constexpr int c_nIdImpulsePeak = 16108;
inline constexpr int c_nIdImpulseNode = 16109;
inline constexpr int c_nIdUnloadTime = 16110;
inline constexpr int c_nIdPeakTime = 16111;
inline constexpr int c_nIdImpulseRemove = 16113;
inline constexpr int c_nIdImpulseInsert = 16115;

// Ground motion; the labels of the peaks follow their fields' enabling
inline constexpr int c_nIdQuakeX = 16070;
inline constexpr int c_nIdQuakeY = 16071;
inline constexpr int c_nIdQuakeZ = 16072;
inline constexpr int c_nIdObliqueX = 16074;
inline constexpr int c_nIdPrincipal = 16075;
inline constexpr int c_nIdObliqueY = 16077;
inline constexpr int c_nIdObliqueZ = 16078;
inline constexpr int c_nIdOblique = 16079;
inline constexpr int c_nIdPeakX = 16080;
inline constexpr int c_nIdPeakY = 16081;
inline constexpr int c_nIdPeakZ = 16082;
inline constexpr int c_nIdPeakOblique = 16083;
inline constexpr int c_nIdPeakXLabel = 16084;
inline constexpr int c_nIdPeakYLabel = 16085;
inline constexpr int c_nIdPeakZLabel = 16086;
inline constexpr int c_nIdPeakObliqueLabel = 16087;
inline constexpr int c_nIdStandardRecord = 16117;

// Result viewer; radio buttons in the order of their index
inline constexpr int c_nIdNodeHistory = 16118;
inline constexpr int c_nIdElementHistory = 16119;
inline constexpr int c_nIdHistoryNode = 16120;
inline constexpr int c_nIdHistoryX = 16121;
inline constexpr int c_nIdHistoryY = 16122;
inline constexpr int c_nIdHistoryZ = 16123;
inline constexpr int c_nIdHistoryElement = 16124;
inline constexpr int c_nIdRefresh = 16125;
inline constexpr int c_nIdOutput = 16126;

}  // namespace skyframe
