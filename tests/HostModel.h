#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "System.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/platform/Platform.h"

namespace skyframe::test {

enum Joint : int { c_nPinned = 0, c_nRigid = 1 };
enum Member : int { c_nBar = 0, c_nBeam = 1, c_nCable = 2, c_nMembrane = 3 };

/// Fills the host records, which it clears at both ends of its life. Numbers are 1-based as in the records.
class CHostModel {
 public:
  CHostModel() { ResetHostData(); }
  ~CHostModel() { ResetHostData(); }
  CHostModel(const CHostModel&) = delete;
  CHostModel& operator=(const CHostModel&) = delete;

  /// strRestraint: six digits 0/1 for X Y Z RX RY RZ. Returns the node number.
  int AddNode(double dX, double dY, double dZ, int nJoint = c_nRigid, const std::string& strRestraint = "000000") {
    const int n = ++ABCD.m_nNodes;
    ABCD.m_fX[n] = static_cast<float>(dX);
    ABCD.m_fY[n] = static_cast<float>(dY);
    ABCD.m_fZ[n] = static_cast<float>(dZ);
    ABCD.m_nJoint[n] = nJoint;
    int nRestrained[6] = {};
    for (int i = 0; i < 6; ++i) nRestrained[i] = strRestraint[i] - '0';
    ABCD.m_nRestraint[n] = RestraintCode::EncodeRestraint(nRestrained);
    return n;
  }

  /// Section group nGroup, shape nShape: area in mm2, second moments in mm4.
  void SetSection(int nGroup, int nShape, double dArea, double dIx = 0.0, double dIy = 0.0, double dIz = 0.0) {
    const int i = (nGroup - 1) * c_nShapesPerGroup + nShape - 1;
    SECT.m_fArea[i] = static_cast<float>(dArea);
    COMDAT.m_fIx[i] = static_cast<float>(dIx);
    COMDAT.m_fIy[i] = static_cast<float>(dIy);
    COMDAT.m_fIz[i] = static_cast<float>(dIz);
  }

  /// Returns the 0-based slot.
  int AddElement(int nType, int nI, int nJ, int nSection = 102) {
    const int k = ABCD.m_nElements++;
    ABCD.m_nElementType[k] = nType;
    ABCD.m_nFirstNode[k] = nI;
    ABCD.m_nSecondNode[k] = nJ;
    ABCD.m_nSection[k] = nSection;
    return k;
  }

  /// nDof: place of the DOF, X Y Z RX RY RZ = 0..5; dValue in kN or kNm.
  void AddLoad(int nCase, int nNode, int nDof, double dValue) {
    AddLoadCode(LoadCode::Encode(nCase, nDof), nNode, dValue);
  }
  void AddLoadCode(int nCode, int nNode, double dValue) {
    const int k = ABCD.m_nLoads++;
    ABCD.m_nLoadCode[k] = nCode;
    ABCD.m_nLoadNode[k] = nNode;
    ABCD.m_fLoadValue[k] = static_cast<float>(dValue);
  }
};

/// A fresh folder that is removed with the object; its job path goes into COMDAT and g_FilePathName.
class CJobFolder {
 public:
  explicit CJobFolder(const std::string& strName)
      : m_folder(std::filesystem::temp_directory_path() /
                 ("skyframe_" + strName + std::to_string(GetProcessNumber()))) {
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    g_FilePathName = GetJobPath();
    g_FilePathName.copy(COMDAT.m_szJobPath, c_nMaxPath - 1);
    COMDAT.m_szJobPath[g_FilePathName.size()] = '\0';
  }
  ~CJobFolder() { std::filesystem::remove_all(m_folder); }
  CJobFolder(const CJobFolder&) = delete;
  CJobFolder& operator=(const CJobFolder&) = delete;

  std::string GetJobPath() const { return (m_folder / "job").string(); }
  std::string GetPath(const std::string& strSuffix) const { return GetJobPath() + strSuffix; }
  bool Has(const std::string& strSuffix) const { return std::filesystem::exists(GetPath(strSuffix)); }
  std::string Read(const std::string& strSuffix) const {
    std::ifstream strm(ToFilePath(GetPath(strSuffix)), std::ios::binary);
    return {std::istreambuf_iterator<char>(strm), {}};
  }
  void Write(const std::string& strSuffix, const std::string& strText) const {
    std::ofstream(ToFilePath(GetPath(strSuffix)), std::ios::binary) << strText;
  }
  /// Names of the files in the folder.
  std::vector<std::string> List() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
      names.push_back(entry.path().filename().string());
    return names;
  }

 private:
  std::filesystem::path m_folder;
};

}  // namespace skyframe::test
