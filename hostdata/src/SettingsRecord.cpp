#include "skyframe/hostdata/SettingsRecord.h"

#include <algorithm>

namespace skyframe {

void FromRecord(const tagComDynamic& record, ModalSettings& settings) {
  settings = {};
  settings.m_nModes = record.m_nModes;
  settings.m_nRootCheck = record.m_nRootCheck;
  settings.m_nIterMultiple = record.m_nIterMultiple;
  settings.m_bShear = record.m_bShear;
}

void ToRecord(const ModalSettings& settings, tagComDynamic& record) {
  record.m_nModes = settings.m_nModes;
  record.m_nRootCheck = settings.m_nRootCheck;
  record.m_dModeTol = settings.m_dModeTol;
  record.m_nIterMultiple = settings.m_nIterMultiple;
  record.m_bShear = settings.m_bShear;
}

void FromRecord(const tagComDynamic& record, SpectrumSettings& settings) {
  settings = {};
  settings.m_nQuakeLevel = record.m_nQuakeLevel;
  settings.m_nIntensity = record.m_nIntensity;
  settings.m_nZoneGroup = record.m_nZoneGroup;
  settings.m_nSiteClass = record.m_nSiteClass;
  settings.m_nExpandModes = record.m_nExpandModes;
  settings.m_dDirCoef = std::to_array(record.m_dDirCoef);
  settings.m_dDampRatio = record.m_dDampRatio;
  settings.m_nCombMethod = record.m_nCombMethod;
  settings.m_nMeshDiv = record.m_nMeshDiv;
  settings.DesignAcceleration = record.m_dDesignAcceleration;
}

void ToRecord(const SpectrumSettings& settings, tagComDynamic& record) {
  record.m_nQuakeLevel = settings.m_nQuakeLevel;
  record.m_nIntensity = settings.m_nIntensity;
  record.m_nZoneGroup = settings.m_nZoneGroup;
  record.m_nSiteClass = settings.m_nSiteClass;
  record.m_nExpandModes = settings.m_nExpandModes;
  std::ranges::copy(settings.m_dDirCoef, record.m_dDirCoef);
  record.m_dDampRatio = settings.m_dDampRatio;
  record.m_nCombMethod = settings.m_nCombMethod;
  record.m_nMeshDiv = settings.m_nMeshDiv;
  record.m_dDesignAcceleration = settings.DesignAcceleration;
}

}  // namespace skyframe
