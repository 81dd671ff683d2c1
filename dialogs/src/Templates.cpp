#include <array>

#include "Tips.h"
#include "skyframe/dialogs/HisResultDlg.h"
#include "skyframe/dialogs/Templates.h"

namespace skyframe {

namespace {

// Makers of controls. A position is the row's left end and top; everything but the second and later
// radio buttons of a set starts a group.
constexpr int c_nEditHeight = 14;
constexpr int c_nTextHeight = 10;
constexpr int c_nTextDrop = 2;  // from the row's top to a label, check or radio button

constexpr ControlTemplate Label(std::string_view strText, int nX, int nY, int nWidth, int nId = -1) {
  return {nId, ControlKind::Label, strText, {nX, nY + c_nTextDrop, nWidth, c_nTextHeight}, c_nStyleGroup, {}};
}

constexpr ControlTemplate Group(std::string_view strText, DialogRect rect) {
  return {-1, ControlKind::Group, strText, rect, c_nStyleGroup, {}};
}

constexpr ControlTemplate Edit(int nId, int nX, int nY, int nWidth, unsigned nStyle = c_nStyleNone) {
  return {nId, ControlKind::Edit, {}, {nX, nY, nWidth, c_nEditHeight}, nStyle | c_nStyleGroup, {}};
}

constexpr ControlTemplate Radio(int nId, std::string_view strText, int nX, int nY, int nWidth,
                                unsigned nStyle = c_nStyleNone) {
  return {nId, ControlKind::Radio, strText, {nX, nY + c_nTextDrop, nWidth, c_nTextHeight}, nStyle, {}};
}

constexpr ControlTemplate Check(int nId, std::string_view strText, int nX, int nY, int nWidth,
                                unsigned nStyle = c_nStyleNone) {
  return {nId, ControlKind::Check, strText, {nX, nY + c_nTextDrop, nWidth, c_nTextHeight}, nStyle | c_nStyleGroup, {}};
}

constexpr ControlTemplate Button(int nId, std::string_view strText, int nX, int nY, int nWidth) {
  return {nId, ControlKind::Button, strText, {nX, nY, nWidth, c_nEditHeight}, c_nStyleGroup, {}};
}

constexpr ControlTemplate Ok(std::string_view strText, int nX, int nY) {
  return {c_nIdOk, ControlKind::DefaultButton, strText, {nX, nY, 50, c_nEditHeight}, c_nStyleGroup, {}};
}

constexpr ControlTemplate Cancel(std::string_view strText, int nX, int nY) {
  return Button(c_nIdCancel, strText, nX, nY, 50);
}

constexpr ControlTemplate DropList(int nId, std::span<const std::string_view> items, int nX, int nY, int nWidth,
                                   unsigned nStyle = c_nStyleNone) {
  return {nId, ControlKind::DropList, {}, {nX, nY, nWidth, c_nEditHeight}, nStyle | c_nStyleGroup, items};
}

constexpr ControlTemplate SortedList(int nId, DialogRect rect) {
  return {nId, ControlKind::ListBox, {}, rect, c_nStyleGroup | c_nStyleSorted | c_nStyleMultiple, {}};
}

constexpr std::array<std::string_view, 4> c_criteria = {"绝对值力", "绝对值位移", "相对值力", "相对值位移"};

constexpr std::array<std::string_view, 4> c_saveAs = {"X向水平地震", "Y向水平地震", "Z向竖向地震", "斜向水平地震"};
constexpr std::array<std::string_view, 1> c_standardRecords = {"El-Centro"};
constexpr std::array<std::string_view, 3> c_impulseColumns = {"节点号", "作用方向", "峰值"};

constexpr ControlTemplate c_modeControls[] = {
    Label("所需总模态数:", 7, 7, 60),
    Edit(c_nIdModes, 75, 7, 50),
    Group("丢根判断:", {7, 27, 186, 32}),
    Radio(c_nIdSturm, "STURM法", 15, 39, 60, c_nStyleGroup),
    Radio(c_nIdModeComparison, "模态比较法", 90, 39, 70),
    Label("计算精度:", 7, 65, 60),
    Edit(c_nIdAccuracy, 75, 65, 50),
    Label("迭代倍数:", 7, 83, 60),
    Edit(c_nIdIterMultiple, 75, 83, 50),
    Check(c_nIdShear, "考虑剪切变形", 7, 101, 80),
    Button(c_nIdModeLoadComb, "荷载组合", 7, 121, 60),
    Ok("确认", 87, 121),
    Cancel("取消", 143, 121),
};

constexpr ControlTemplate c_loadCombControls[] = {
    SortedList(c_nIdAvailable, {153, 7, 80, 110}),
    SortedList(c_nIdCombined, {7, 7, 80, 110}),
    Button(c_nIdAdd, "添加", 95, 37, 50),
    Button(c_nIdRemove, "删除", 95, 59, 50),
    Label("折减系数:", 7, 125, 44, c_nIdFactorLabel),
    Edit(c_nIdFactor, 57, 125, 50),
    Ok("确定", 127, 125),
    Cancel("取消", 183, 125),
};

constexpr ControlTemplate c_nonlinStaticControls[] = {
    Label("收敛准则", 7, 7, 60),
    DropList(c_nIdCriterion, c_criteria, 75, 7, 80),
    Label("最大迭代步数", 7, 25, 60),
    Edit(c_nIdMaxIter, 75, 25, 50),
    Label("收敛容差", 7, 43, 60),
    Edit(c_nIdTolerance, 75, 43, 50),
    Check(c_nIdNonlinear, "考虑非线性", 7, 61, 80),
    Button(c_nIdLoadComb, "荷载组合", 7, 81, 60),
    Ok("OK", 87, 81),
    Cancel("Cancel", 143, 81),
};

constexpr ControlTemplate c_spectrumControls[] = {
    Label("保存为", 7, 7, 44),
    DropList(c_nIdSaveAs, c_saveAs, 67, 7, 90, c_nStyleDisabled),
    Label("网格划分:", 7, 25, 44),
    Edit(c_nIdMeshDiv, 67, 25, 50),
    Label("扩展模态:", 7, 43, 44),
    Edit(c_nIdExpandModes, 67, 43, 50),
    Group("地震方向系数", {7, 61, 152, 70}),
    Label("x向:", 15, 73, 30),
    Edit(c_nIdDirectionX, 67, 73, 50),
    Label("y向:", 15, 91, 30),
    Edit(c_nIdDirectionY, 67, 91, 50),
    Label("z向:", 15, 109, 30),
    Edit(c_nIdDirectionZ, 67, 109, 50),
    Group("场地类别", {7, 135, 152, 30}),
    Radio(c_nIdSiteClass1, "Ⅰ类", 13, 147, 34, c_nStyleGroup),
    Radio(c_nIdSiteClass2, "Ⅱ类", 49, 147, 34),
    Radio(c_nIdSiteClass3, "Ⅲ类", 85, 147, 34),
    Radio(c_nIdSiteClass4, "Ⅳ类", 121, 147, 34),
    Group("特征分区", {7, 169, 152, 30}),
    Radio(c_nIdZoneGroup1, "一区", 13, 181, 40, c_nStyleGroup),
    Radio(c_nIdZoneGroup2, "二区", 61, 181, 40),
    Radio(c_nIdZoneGroup3, "三区", 109, 181, 40),
    Group("地震烈度", {166, 7, 147, 66}),
    Radio(c_nIdIntensity6, "6度(0.05g)", 172, 19, 62, c_nStyleGroup),
    Radio(c_nIdIntensity7, "7度(0.10g)", 240, 19, 62),
    Radio(c_nIdIntensity7Half, "7度(0.15g)", 172, 37, 62),
    Radio(c_nIdIntensity8, "8度(0.20g)", 240, 37, 62),
    Radio(c_nIdIntensity8Half, "8度(0.30g)", 172, 55, 62),
    Radio(c_nIdIntensity9, "9度(0.40g)", 240, 55, 62),
    Group("地震水准", {166, 77, 147, 30}),
    Radio(c_nIdFrequentQuake, "多遇地震", 172, 89, 54, c_nStyleGroup),
    Radio(c_nIdRareQuake, "罕遇地震", 240, 89, 54),
    Label("阻尼率:", 166, 115, 60),
    Edit(c_nIdDampRatio, 240, 115, 50),
    Group("组合方法", {166, 135, 147, 30}),
    Radio(c_nIdSrss, "SRSS", 172, 147, 36, c_nStyleGroup),
    Radio(c_nIdCqc, "CQC", 218, 147, 36),
    Radio(c_nIdGrp, "GRP", 264, 147, 36),
    Check(c_nIdVirtualMode, "是否组合虚拟模态", 166, 169, 100, c_nStyleDisabled),
    Label("地震拟静力荷载序号", 166, 185, 80),
    Edit(c_nIdPseudoLoad, 263, 185, 50, c_nStyleDisabled),
    Button(c_nIdLoadValues, "设定荷载代表值", 7, 209, 76),
    Ok("确认", 207, 209),
    Cancel("取消", 263, 209),
};

constexpr ControlTemplate c_dynOptionControls[] = {
    Group("计算方法", {7, 7, 136, 46}),
    Radio(c_nIdWilson, "Wilson(限冲击)", 15, 19, 90, c_nStyleGroup),
    Radio(c_nIdNewmark, "Newmark", 15, 35, 90),
    Ok("确认", 37, 60),
    Cancel("取消", 93, 60),
};

constexpr ControlTemplate c_wilsonControls[] = {
    Group("阻尼率", {7, 7, 115, 52}),
    Label("第一阶", 13, 19, 46),
    Edit(c_nIdDamping1, 66, 19, 50),
    Label("第二阶", 13, 37, 46),
    Edit(c_nIdDamping2, 66, 37, 50),
    Group("计算参数", {7, 63, 115, 34}),
    Label("θ的取值", 13, 75, 46),
    Edit(c_nIdTheta, 66, 75, 50),
    Group("时间选项", {7, 101, 115, 52}),
    Label("时间步长(s)", 13, 113, 46),
    Edit(c_nIdWilsonStep, 66, 113, 50),
    Label("响应时长(s)", 13, 131, 46),
    Edit(c_nIdWilsonDuration, 66, 131, 50),
    Check(c_nIdNonlinear, "考虑非线性", 128, 7, 80),
    Group("地震峰值", {128, 25, 115, 88}),
    Label("斜", 136, 37, 20),
    Edit(c_nIdPeakOblique, 175, 37, 60),
    Label("X", 136, 55, 20),
    Edit(c_nIdPeakX, 175, 55, 60),
    Label("Y", 136, 73, 20),
    Edit(c_nIdPeakY, 175, 73, 60),
    Label("Z", 136, 91, 20),
    Edit(c_nIdPeakZ, 175, 91, 60),
    Button(c_nIdLoadComb, "荷载组合", 128, 121, 60),
    Ok("确认", 137, 160),
    Cancel("取消", 193, 160),
};

constexpr ControlTemplate c_newmarkControls[] = {
    Group("荷载类型", {7, 7, 140, 32}),
    Radio(c_nIdNodalForce, "节点荷载力", 15, 19, 62, c_nStyleGroup),
    Radio(c_nIdGroundMotion, "地震动", 88, 19, 50),
    Group("阻尼率", {7, 43, 140, 52}),
    Label("第一阶", 15, 55, 56),
    Edit(c_nIdDamping1, 83, 55, 58),
    Label("第二阶", 15, 73, 56),
    Edit(c_nIdDamping2, 83, 73, 58),
    Group("计算参数", {7, 99, 140, 52}),
    Label("α的取值", 15, 111, 56),
    Edit(c_nIdAlpha, 83, 111, 58),
    Label("δ的取值", 15, 129, 56),
    Edit(c_nIdDelta, 83, 129, 58),
    Check(c_nIdNonlinear, "考虑非线性", 7, 155, 80),
    Group("非线性选项", {7, 171, 140, 70}),
    Label("收敛准则", 15, 183, 56),
    DropList(c_nIdCriterion, c_criteria, 83, 183, 58, c_nStyleDisabled),
    Label("收敛容差", 15, 201, 56),
    Edit(c_nIdTolerance, 83, 201, 58, c_nStyleDisabled),
    Label("最大迭代步数", 15, 219, 56),
    Edit(c_nIdMaxIter, 83, 219, 58, c_nStyleDisabled),
    Check(c_nIdFromFile, "荷载/加速度信息从文件中读取", 153, 7, 134),
    Group("荷载属性", {153, 25, 134, 70}),
    Button(c_nIdImpulseLoad, "冲击荷载属性", 175, 37, 90),
    Button(c_nIdEarthquake, "地震属性", 175, 55, 90),
    Button(c_nIdGeneralLoad, "一般荷载属性", 175, 73, 90),
    Button(c_nIdLoadComb, "荷载组合", 175, 103, 90),
    Ok("确认", 181, 227),
    Cancel("取消", 237, 227),
};

constexpr ControlTemplate c_impulseLoadControls[] = {
    Group("冲击类型", {7, 7, 132, 32}),
    Radio(c_nIdTriangular, "三角冲击", 15, 19, 54, c_nStyleGroup),
    Radio(c_nIdRectangular, "矩形冲击", 79, 19, 54),
    Group("冲击特征", {7, 43, 132, 106}),
    Label("节点号码", 15, 55, 54),
    Edit(c_nIdImpulseNode, 79, 55, 54),
    Label("作用方向", 15, 73, 54),
    Edit(c_nIdImpulseDirection, 79, 73, 54),
    Label("峰值大小(kN)", 15, 91, 54),
    Edit(c_nIdImpulsePeak, 79, 91, 54),
    Label("峰值时刻(s)", 15, 109, 54),
    Edit(c_nIdPeakTime, 79, 109, 54),
    Label("卸载时刻(s)", 15, 127, 54),
    Edit(c_nIdUnloadTime, 79, 127, 54),
    Group("时间选项", {7, 153, 132, 52}),
    Label("步长(s)", 15, 165, 54),
    Edit(c_nIdStep, 79, 165, 54),
    Label("响应时长(s)", 15, 183, 54),
    Edit(c_nIdDuration, 79, 183, 54),
    {c_nIdImpulseList, ControlKind::ListView, {}, {145, 11, 128, 138}, c_nStyleGroup, c_impulseColumns},
    Button(c_nIdImpulseInsert, "插入", 145, 157, 50),
    Button(c_nIdImpulseRemove, "删除", 223, 157, 50),
    Ok("确认", 167, 191),
    Cancel("取消", 223, 191),
};

constexpr ControlTemplate c_generalLoadControls[] = {
    Group("荷载特征", {7, 7, 156, 52}),
    Label("步长(s)", 15, 19, 50),
    Edit(c_nIdStep, 80, 19, 60),
    Label("响应时长(s)", 15, 37, 50),
    Edit(c_nIdDuration, 80, 37, 60),
    Ok("确认", 57, 66),
    Cancel("取消", 113, 66),
};

constexpr ControlTemplate c_earthquakeControls[] = {
    Label("标准地震波", 7, 7, 50),
    DropList(c_nIdStandardRecord, c_standardRecords, 75, 7, 64),
    Group("时间选项", {7, 25, 138, 52}),
    Label("步长(s)", 15, 37, 50),
    Edit(c_nIdStep, 75, 37, 64),
    Label("响应时长(s)", 15, 55, 50),
    Edit(c_nIdDuration, 75, 55, 64),
    Group("地震选项", {7, 81, 138, 106}),
    Radio(c_nIdPrincipal, "正向地震", 15, 93, 54, c_nStyleGroup),
    Radio(c_nIdOblique, "斜向地震", 79, 93, 54),
    Check(c_nIdQuakeX, "X", 15, 111, 30),
    Check(c_nIdQuakeY, "Y", 58, 111, 30),
    Check(c_nIdQuakeZ, "Z", 101, 111, 30),
    Label("X分量", 15, 129, 50),
    Edit(c_nIdObliqueX, 75, 129, 64),
    Label("Y分量", 15, 147, 50),
    Edit(c_nIdObliqueY, 75, 147, 64),
    Label("Z分量", 15, 165, 50),
    Edit(c_nIdObliqueZ, 75, 165, 64),
    Group("地震峰值", {151, 7, 112, 88}),
    Label("X", 159, 19, 20, c_nIdPeakXLabel),
    Edit(c_nIdPeakX, 195, 19, 60),
    Label("Y", 159, 37, 20, c_nIdPeakYLabel),
    Edit(c_nIdPeakY, 195, 37, 60),
    Label("Z", 159, 55, 20, c_nIdPeakZLabel),
    Edit(c_nIdPeakZ, 195, 55, 60),
    Label("斜", 159, 73, 20, c_nIdPeakObliqueLabel),
    Edit(c_nIdPeakOblique, 195, 73, 60),
    Ok("确认", 157, 173),
    Cancel("取消", 213, 173),
};

// The controls keep to the left of the plot, which starts at 170 pixels.
constexpr ControlTemplate c_hisResultControls[] = {
    Radio(c_nIdNodeHistory, "节点位移(mm)", 7, 7, 80, c_nStyleGroup),
    Radio(c_nIdElementHistory, "单元轴力(kN)", 7, 69, 80),
    Label("节点号码", 7, 21, 36),
    Edit(c_nIdHistoryNode, 45, 21, 40),
    Group("自由度方向", {7, 37, 80, 26}),
    Radio(c_nIdHistoryX, "X", 12, 47, 22, c_nStyleGroup),
    Radio(c_nIdHistoryY, "Y", 37, 47, 22),
    Radio(c_nIdHistoryZ, "Z", 62, 47, 22),
    Label("单元号码", 7, 83, 36),
    Edit(c_nIdHistoryElement, 45, 83, 40),
    Button(c_nIdRefresh, "刷 新", 7, 103, 78),
    Button(c_nIdOutput, "输出到文件", 7, 121, 78),
    {c_nIdOk, ControlKind::DefaultButton, "OK", {7, 145, 37, 14}, c_nStyleGroup, {}},
    Button(c_nIdCancel, "Cancel", 48, 145, 37),
};

}  // namespace

constinit const DialogTemplate c_modeTemplate{c_nIdModeDlg, "模态分析",     200,
                                              142,          c_modeControls, dialogs::tips::c_mode};
constinit const DialogTemplate c_loadCombTemplate{c_nIdLoadCombDlg,         "荷载组合", 240, 146, c_loadCombControls,
                                                  dialogs::tips::c_loadComb};
constinit const DialogTemplate c_nonlinStaticTemplate{
    c_nIdNonlinStaticDlg, "非线性静力分析", 200, 102, c_nonlinStaticControls, dialogs::tips::c_nonlinStatic};
constinit const DialogTemplate c_spectrumTemplate{c_nIdSpectrumDlg,         "谱分析", 320, 230, c_spectrumControls,
                                                  dialogs::tips::c_spectrum};
constinit const DialogTemplate c_dynOptionTemplate{
    c_nIdDynOptionDlg, "动力计算选项", 150, 81, c_dynOptionControls, dialogs::tips::c_dynOption};
constinit const DialogTemplate c_wilsonTemplate{c_nIdWilsonDlg,         "Wilson法", 250, 181, c_wilsonControls,
                                                dialogs::tips::c_wilson};
constinit const DialogTemplate c_newmarkTemplate{c_nIdNewmarkDlg,         "Newmark法", 294, 248, c_newmarkControls,
                                                 dialogs::tips::c_newmark};
constinit const DialogTemplate c_impulseLoadTemplate{c_nIdImpulseLoadDlg,   "特殊冲击荷载属性",          280, 212,
                                                     c_impulseLoadControls, dialogs::tips::c_impulseLoad};
constinit const DialogTemplate c_generalLoadTemplate{
    c_nIdGeneralLoadDlg, "一般荷载属性", 170, 87, c_generalLoadControls, dialogs::tips::c_generalLoad};
constinit const DialogTemplate c_earthquakeTemplate{
    c_nIdEarthquakeDlg, "地震属性", 270, 194, c_earthquakeControls, dialogs::tips::c_earthquake};

constinit const DialogTemplate c_hisResultTemplate{c_nIdHisResultDlg,   "时程计算结果输出",        440, 190,
                                                   c_hisResultControls, dialogs::tips::c_hisResult};

namespace {

constexpr std::array c_templates = {&c_modeTemplate,         &c_spectrumTemplate,    &c_loadCombTemplate,
                                    &c_dynOptionTemplate,    &c_wilsonTemplate,      &c_newmarkTemplate,
                                    &c_nonlinStaticTemplate, &c_impulseLoadTemplate, &c_generalLoadTemplate,
                                    &c_earthquakeTemplate,   &c_hisResultTemplate};

}  // namespace

std::span<const DialogTemplate* const> GetDialogTemplates() { return c_templates; }

}  // namespace skyframe
