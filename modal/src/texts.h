#pragma once

#include <string_view>

// Fixed texts of the modal room.

namespace skyframe::modal::texts {

// Modal solution.
inline constexpr std::string_view c_strTooManyModes = "模态数大于结构自由度,计算终止!";
inline constexpr std::string_view c_strBadModeCount = "请正确输入模态数!";
inline constexpr std::string_view c_strBadTolerance = "请正确输入迭代精度!";
inline constexpr std::string_view c_strBadMultiple = "请正确输入迭代倍数!";
inline constexpr std::string_view c_strRigidBody = "结构存在平动，请约束";
inline constexpr std::string_view c_strNoConvergedModes = "达到迭代要求次数，结果不收敛";
inline constexpr std::string_view c_strModalProgress = "模态分析";
inline constexpr std::string_view c_strRootCount = "丢根判断";

// Mode file.
inline constexpr std::string_view c_strModeHeader = "The_Data_of_Zan's_Mode_Analysis";
inline constexpr std::string_view c_strFileVersion = "v1.0";
inline constexpr std::string_view c_strFrequencyMark = "Eigen_And_Freq:";
inline constexpr std::string_view c_strShapeMark = "Node_DOF_When_FREQ_";
inline constexpr std::string_view c_strModeFileAccess = "模态文件访问出错,计算终止!";
inline constexpr std::string_view c_strModeFileForeign = "模态文件读入出错,计算终止!";
inline constexpr std::string_view c_strModeFileCounts = "文件数据错误，计算终止!";
inline constexpr std::string_view c_strModeFileRead = "文件读入出错,计算终止!";
inline constexpr std::string_view c_strTooManyExpanded = "扩展模态数大于总模态数，计算终止!";
inline constexpr std::string_view c_strWriteModes = "写模态文件";
inline constexpr std::string_view c_strReadModes = "读模态文件";

// Design spectrum.
inline constexpr std::string_view c_strNoDirection = "反应谱方向未输入，计算终止!";
inline constexpr std::string_view c_strBadVerticalReduction = "请正确输入竖向折减系数!";
inline constexpr std::string_view c_strBadDamping = "请正确输入阻尼率!";
inline constexpr std::string_view c_strBadQuakeLevel = "地震类型输入错误，请检查!";
inline constexpr std::string_view c_strBadIntensity = "地震烈度输入错误，请检查!";
inline constexpr std::string_view c_strNoRareCheck = "6度地震不进行罕遇验算!";
inline constexpr std::string_view c_strBadZoneGroup = "分组类型选择错误!";
inline constexpr std::string_view c_strBadSiteClass = "场地类型选择错误!";

// Spectrum analysis.
inline constexpr std::string_view c_strMeshTooFine = "网格最多划分20格，计算终止!";
inline constexpr std::string_view c_strBadExpanded = "请正确输入扩展模态数!";
inline constexpr std::string_view c_strNoModes = "模态、频率未求解，计算终止!";
inline constexpr std::string_view c_strBadPseudoLoad = "错误:虚拟地震静力序号";
inline constexpr std::string_view c_strSpectrumFileAccess = "反应谱结果文件无法写入,计算终止!";
inline constexpr std::string_view c_strCombineModes = "振型组合";
inline constexpr std::string_view c_strWriteSpectrum = "写反应谱结果文件";
inline constexpr std::string_view c_strSpectrumHeader = "The_Data_of_Zan's_Spectrum_Analysis";
inline constexpr std::string_view c_strModeMasses = "各阶振型参与质量:";
inline constexpr std::string_view c_strComputedMass = "总计算参与质量:";
inline constexpr std::string_view c_strTotalMass = "总参与质量:";
inline constexpr std::string_view c_strCombineMethod = "Spectrum_Combine_method: ";
inline constexpr std::string_view c_strCombineNames[] = {"SRSS", "CQC", "GRP"};
inline constexpr std::string_view c_strNodeDisplacements = "Node_Dis:";
inline constexpr std::string_view c_strForces = "Force:";
inline constexpr std::string_view c_strSupports = "Support:";
inline constexpr std::string_view c_strVirtualShape = "虚拟振型";
inline constexpr std::string_view c_strVirtualFrequency = "虚拟频率";

}  // namespace skyframe::modal::texts

namespace skyframe {
namespace texts = modal::texts;
}  // namespace skyframe
