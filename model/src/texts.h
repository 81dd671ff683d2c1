#pragma once

#include <array>
#include <string_view>

// Fixed texts of the model room.

namespace skyframe::model::texts {

// Nodes and equations.
inline constexpr std::string_view c_strDofNames[] = {"X向", "Y向", "Z向", "RYZ向", "RZX向", "RXY向"};
inline constexpr std::string_view c_strNoSuchDof = "自由度输入错误！\n本自由度对应节点号码不存在！";

// Model build.
inline constexpr std::string_view c_strNodesCleared = "节点初始化";
inline constexpr std::string_view c_strNoNodes = "缺少节点!";
inline constexpr std::string_view c_strBeyondCapacity = "模型规模超出容量,计算终止!";
inline constexpr std::string_view c_strNoElements = "单元未定义！";
inline constexpr std::string_view c_strInclinedSupport = "提示：本版本“动力分析模块”暂不能考虑斜边界约束！";
inline constexpr std::string_view c_strNoCables = "不能计算索单元!";
inline constexpr std::string_view c_strNoMembranes = "不能计算模单元!";
inline constexpr std::string_view c_strDiagonalAddresses = "计算总刚对角地址";
inline constexpr std::string_view c_strProfileTooLarge = "总刚矩阵存储量超出范围,计算终止!";

/// Node number and DOF name go between the parts.
inline constexpr std::string_view c_strRunawayParts[] = {"节点", "的", "超过限定值1.0e10!\n结构几何可变，请检查！"};

// Steps of the work.
inline constexpr std::string_view c_strStiffness = "组装刚度矩阵";
inline constexpr std::string_view c_strMass = "组装质量矩阵";

// Loads.
inline constexpr std::string_view c_strGetLoadVector = "获取荷载向量";
inline constexpr std::string_view c_strAssembleLoad = "荷载组装";

// Materials and result lines of members.
inline constexpr std::string_view c_strMaterialKind = "材料类型: ";
inline constexpr std::string_view c_strElasticModulus = "  初始弹性模量: ";
inline constexpr std::string_view c_strUnitWeight = "  材料容重: ";
inline constexpr std::string_view c_strPoissonRatio = "  泊松比: ";
inline constexpr std::string_view c_strBeamArea = "Beam  面积:";
inline constexpr std::string_view c_strTrussArea = "Truss  面积:";
inline constexpr std::string_view c_strInertiaX = "  绕X轴惯性矩:";
inline constexpr std::string_view c_strInertiaY = "  绕Y轴惯性矩:";
inline constexpr std::string_view c_strInertiaZ = "  绕Z轴惯性矩:";
inline constexpr std::string_view c_strShearCoefficient = "\n截面修正系数:";
inline constexpr std::string_view c_strMaterialNumber = "  材料类型编号:";
inline constexpr std::string_view c_strNodeNumbers = "  节点号:";
inline constexpr std::string_view c_strNodeGap = "  ";
inline constexpr std::string_view c_strBeamAxialForce = "N=  ";
inline constexpr std::string_view c_strTrussAxialForce = "N = ";

// Trace of the bar's tangent stiffness.
inline constexpr std::string_view c_strTraceDisplacement = "adNodeDisp----------";
inline constexpr std::string_view c_strTraceDisplacementEnd = "----------------";
inline constexpr std::string_view c_strTraceTransformation = "-----------matT------------";
inline constexpr std::string_view c_strTraceA = "-----------matA------------";
inline constexpr std::string_view c_strTraceG = "-----------matG------------";
inline constexpr std::string_view c_strTraceBnl = "-----------matBnl------------";
inline constexpr std::string_view c_strTraceEnd = "---------------------------";

// Progress texts of the element families, in the order of ElementStep.
inline constexpr std::string_view c_strNumberPlace = "%d";
using ElementTexts = std::array<std::string_view, 11>;
inline constexpr ElementTexts c_beamTexts = {"",
                                             "形成第%d号梁单元一致质量矩阵",
                                             "",
                                             "将第%d号梁单元组装进总体质量矩阵",
                                             "将第%d号梁单元组装进总体刚度矩阵",
                                             "加入第%d号梁单元，计算总刚度矩阵带宽",
                                             "计算第%d号梁单元内力",
                                             "输出第%d号梁单元材料参数",
                                             "输出第%d号梁单元内力",
                                             "读取梁单元节点号",
                                             "将第%d号梁单元组装进平衡矩阵"};
// Deliberate: the lumped mass says "质量质量" for the left hinge and for both.
inline constexpr ElementTexts c_hingeLeftTexts = {"形成第%d号左端铰接梁单元刚度矩阵",
                                                  "形成第%d号左端铰接梁单元一致质量矩阵",
                                                  "形成第%d号左端铰接梁单元质量质量矩阵",
                                                  "将第%d号左端铰接梁单元组装进总体质量矩阵",
                                                  "将第%d号左端铰接梁单元组装进总体刚度矩阵",
                                                  "加入第%d号左端铰接梁单元，计算总刚度矩阵带宽",
                                                  "计算第%d号左端铰接梁单元内力",
                                                  "输出第%d号梁单元材料参数",
                                                  "输出第%d号梁单元内力",
                                                  "读取梁单元节点号",
                                                  "将第%d号梁单元组装进平衡矩阵"};
inline constexpr ElementTexts c_hingeRightTexts = {"形成第%d号右端铰接梁单元刚度矩阵",
                                                   "形成第%d号右端铰接梁单元一致质量矩阵",
                                                   "形成第%d号右端铰接梁单元集中质量矩阵",
                                                   "将第%d号右端铰接梁单元组装进总体质量矩阵",
                                                   "将第%d号右端铰接梁单元组装进总体刚度矩阵",
                                                   "加入第%d号右端铰接梁单元，计算总刚度矩阵带宽",
                                                   "计算第%d号右端铰接梁单元内力",
                                                   "输出第%d号梁单元材料参数",
                                                   "输出第%d号梁单元内力",
                                                   "读取梁单元节点号",
                                                   "将第%d号梁单元组装进平衡矩阵"};
// Deliberate: the stiffness step of the beam hinged at both ends has the text of the left hinge.
inline constexpr ElementTexts c_hingeBothTexts = {"形成第%d号左端铰接梁单元刚度矩阵",
                                                  "形成第%d号两端铰接梁单元一致质量矩阵",
                                                  "形成第%d号两端铰接梁单元质量质量矩阵",
                                                  "将第%d号两端铰接梁单元组装进总体质量矩阵",
                                                  "将第%d号两端铰接梁单元组装进总体刚度矩阵",
                                                  "加入第%d号两端铰接梁单元，计算总刚度矩阵带宽",
                                                  "计算第%d号两端铰接梁单元内力",
                                                  "输出第%d号梁单元材料参数",
                                                  "输出第%d号梁单元内力",
                                                  "读取梁单元节点号",
                                                  "将第%d号梁单元组装进平衡矩阵"};
inline constexpr ElementTexts c_trussTexts = {"",
                                              "形成第%d号杆单元一致质量矩阵",
                                              "形成第%d号杆单元集中质量矩阵",
                                              "将第%d号杆单元组装进总体质量矩阵",
                                              "将第%d号杆单元组装进总体刚度矩阵",
                                              "加入第%d号杆单元，计算总刚度矩阵带宽",
                                              "计算第%d号杆单元内力",
                                              "输出第%d号杆单元材料参数",
                                              "---------输出第%d号杆单元内力--------",
                                              "读入杆单元节点号",
                                              "将索单元%d组装进平衡矩阵"};

}  // namespace skyframe::model::texts

namespace skyframe {
namespace texts = model::texts;
}  // namespace skyframe
