#include <array>

#include "skyframe/dialogs/Resource.h"

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

}  // namespace

constinit const DialogTemplate c_modeTemplate{c_nIdModeDlg, "模态分析", 200, 142, c_modeControls};
constinit const DialogTemplate c_loadCombTemplate{c_nIdLoadCombDlg, "荷载组合", 240, 146, c_loadCombControls};
constinit const DialogTemplate c_nonlinStaticTemplate{c_nIdNonlinStaticDlg, "非线性静力分析", 200, 102,
                                                      c_nonlinStaticControls};

namespace {

constexpr std::array c_templates = {&c_modeTemplate, &c_loadCombTemplate, &c_nonlinStaticTemplate};

}  // namespace

std::span<const DialogTemplate* const> GetDialogTemplates() { return c_templates; }

}  // namespace skyframe
