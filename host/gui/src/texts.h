#pragma once

#include <string_view>

namespace skyframe::gui::texts {

inline constexpr std::string_view c_strProgram = "Skyframe";

// Menus
inline constexpr std::string_view c_strFileMenu = "文件(&F)";
inline constexpr std::string_view c_strOpen = "打开(&O)…";
inline constexpr std::string_view c_strOpenTip = "Open a job file";
inline constexpr std::string_view c_strReload = "重新载入(&R)";
inline constexpr std::string_view c_strReloadTip = "Read the job file again";
inline constexpr std::string_view c_strRecent = "最近的文件(&N)";
inline constexpr std::string_view c_strSavePicture = "保存图片(&S)…";
inline constexpr std::string_view c_strSavePictureTip = "Save the drawing as a PNG picture";
inline constexpr std::string_view c_strQuit = "退出(&X)";
inline constexpr std::string_view c_strQuitTip = "Close the program";
inline constexpr std::string_view c_strAnalysisMenu = "分析(&A)";
inline constexpr std::string_view c_strModal = "模态分析(&M)…";
inline constexpr std::string_view c_strModalTip = "Frequencies and mode shapes";
inline constexpr std::string_view c_strSpectrum = "谱分析(&S)…";
inline constexpr std::string_view c_strSpectrumTip = "Response-spectrum analysis; needs the modes";
inline constexpr std::string_view c_strTimeHistory = "时程分析(&T)…";
inline constexpr std::string_view c_strTimeHistoryTip =
    "Time history by direct integration; needs the modes for damping";
inline constexpr std::string_view c_strHistoryResults = "时程结果(&R)…";
inline constexpr std::string_view c_strHistoryResultsTip = "Plot and export the last time history under ground motion";
inline constexpr std::string_view c_strStatic = "静力分析(&L)…";
inline constexpr std::string_view c_strStaticTip = "Static analysis, linear or geometrically nonlinear";
inline constexpr std::string_view c_strViewMenu = "视图(&V)";
inline constexpr std::string_view c_strIsometric = "轴测图(&I)";
inline constexpr std::string_view c_strIsometricTip = "Look from the front right above";
inline constexpr std::string_view c_strFront = "正视图(&F)";
inline constexpr std::string_view c_strFrontTip = "Look along Y: X to the right, Z up";
inline constexpr std::string_view c_strSide = "侧视图(&E)";
inline constexpr std::string_view c_strSideTip = "Look against X: Y to the right, Z up";
inline constexpr std::string_view c_strPlan = "俯视图(&P)";
inline constexpr std::string_view c_strPlanTip = "Look down: X to the right, Y up";
inline constexpr std::string_view c_strFit = "全部显示(&A)";
inline constexpr std::string_view c_strFitTip = "Fit the structure into the window (or double-click)";
inline constexpr std::string_view c_strSupports = "支座(&U)";
inline constexpr std::string_view c_strSupportsTip = "Show the supports";
inline constexpr std::string_view c_strLoads = "荷载(&D)";
inline constexpr std::string_view c_strLoadsTip = "Show the loads, a colour for each load case";
inline constexpr std::string_view c_strNodeNumbers = "节点号(&N)";
inline constexpr std::string_view c_strNodeNumbersTip = "Show node numbers, as in the result files";
inline constexpr std::string_view c_strElementNumbers = "单元号(&B)";
inline constexpr std::string_view c_strElementNumbersTip = "Show element numbers, as in the result files";
inline constexpr std::string_view c_strFontMenu = "字号(&Z)";
inline constexpr std::string_view c_strFontTip = "Font size of all windows";
inline constexpr std::string_view c_strHelpMenu = "帮助(&H)";
inline constexpr std::string_view c_strAbout = "关于(&A)";
inline constexpr std::string_view c_strAboutTip = "Version of the program";
inline constexpr std::string_view c_strAboutText = "空间框架与桁架的静力和动力分析";

// Bars and docks
inline constexpr std::string_view c_strShapeBar = "变形";
inline constexpr std::string_view c_strShapeTip = "Deformed shape or mode drawn over the structure";
inline constexpr std::string_view c_strNoShape = "未变形";
inline constexpr std::string_view c_strAmplitude = "振幅";
inline constexpr std::string_view c_strAmplitudeTip = "How far the drawn shape departs from the structure";
inline constexpr std::string_view c_strAnimate = "动画";
inline constexpr std::string_view c_strAnimateTip = "Let the shape swing";
inline constexpr std::string_view c_strConsole = "控制台";
inline constexpr std::string_view c_strConsoleTip = "Progress and trace lines of the analyses";
inline constexpr std::string_view c_strResults = "结果文件";
inline constexpr std::string_view c_strResultsTip = "Result files beside the job file; click one to read it";
inline constexpr std::string_view c_strAdvice = "提示";
inline constexpr std::string_view c_strAdviceTip =
    "Warnings and errors of the last run; the manual explains each under its name";
inline constexpr std::string_view c_strShownHistory = "时程结果: ";
inline constexpr std::string_view c_strCut = "\n…（文件过大，仅显示开头部分）\n";

// Drawing
inline constexpr std::string_view c_strLinearState = "静力变形（线性）";
inline constexpr std::string_view c_strNonlinearState = "静力变形（非线性）";
inline constexpr std::string_view c_strMode = "振型";
inline constexpr std::string_view c_strMagnified = "放大";
inline constexpr std::string_view c_strTimes = "倍";
inline constexpr std::string_view c_strNoJob = "打开一个作业文件（Ctrl+O）";
inline constexpr std::string_view c_strNodes = "节点";
inline constexpr std::string_view c_strElements = "单元";

// Job files
inline constexpr std::string_view c_strOpenTitle = "打开作业文件";
inline constexpr std::string_view c_strJobFilter = "作业文件 (*.json);;所有文件 (*)";
inline constexpr std::string_view c_strPictureFilter = "PNG 图片 (*.png)";
inline constexpr std::string_view c_strErrorTitle = "作业文件有误";
inline constexpr std::string_view c_strErrorKept = "文件未打开，当前作业保持不变。";
inline constexpr std::string_view c_strPlace = "位置";
inline constexpr std::string_view c_strReason = "原因";
inline constexpr std::string_view c_strClose = "关闭";
inline constexpr std::string_view c_strPathTooLong = "作业文件的路径过长";
inline constexpr std::string_view c_strPictureFailed = "图片无法保存。";

}  // namespace skyframe::gui::texts
