#pragma once

#include <limits>
#include <span>
#include <type_traits>

#include "skyframe/job/Job.h"

namespace skyframe::host {

// Every parameter of an analysis, once: key of the job file, control of the dialog, meaning, member, limits or words.
// What reads, writes, scripts or describes analyses is a visitor of these functions.
//
// Exceptions, by their type: the cases of a combination, the rows of the impulse list, the histories to
// write, the axes and the peaks of a ground motion. Keys without a control are the host's own (verify_modes) or go to
// its record, because the dialog's control is always disabled (virtual_mode, pseudo_load), or to the viewer (outputs).
// Rules between fields stand with the reader.

/// What a parameter is called in a job file, in its dialog and in the manuals.
struct Field {
  std::string_view strKey;
  std::array<int, 4> controls;  ///< the first button of a group of radios; 0: none
  std::string_view strEnglish;
  std::string_view strChinese;
  std::string_view strUnit = {};
  std::string_view strDefault = {};  ///< JSON; of a key without a control

  [[nodiscard]] bool HasControl() const { return controls.front() != 0; }
};

template <class T>
concept Scalar = std::is_arithmetic_v<T>;

/// Of a number; those of a number that a group of radios shows start with its first button.
template <class T>
struct Limits {
  T lowest = std::numeric_limits<T>::lowest();
  T highest = std::numeric_limits<T>::max();
};
template <class T>
using LimitsOf = Limits<std::type_identity_t<T>>;

using Choices = std::span<const std::string_view>;

/// An analysis, or the part of one that has a dialog of its own.
template <class T>
concept DialogJob = requires {
  T::c_nDialog;
};

template <class V, class A>
void VisitEquilibrium(V& v, A& a) {
  v.Visit({"nonlinear", {c_nIdNonlinear}, "geometrically nonlinear", "几何非线性"}, a.bNonlinear);
  v.Visit({"criterion",
           {c_nIdCriterion},
           "what must become small: force or displacement, absolute or relative",
           "须变小的量：力或位移，绝对值或相对值"},
          a.nCriterion, c_strCriteria);
  v.Visit(
      {"tolerance", {c_nIdTolerance}, "N, m, or none for relative criteria", "力准则 N，位移准则 m，相对准则无单位"},
      a.dTolerance, {0.0});
  v.Visit({"max_iterations", {c_nIdMaxIter}, "most iterations in a step", "每步的迭代上限"}, a.nMaxIterations, {1});
}

template <class V, class A>
void VisitTimeAxis(V& v, A& a, int nStep, int nDuration) {
  v.Visit({"time_step", {nStep}, "time step", "积分步长", "s"}, a.dTimeStep);
  v.Visit({"duration", {nDuration}, "duration", "计算时长", "s"}, a.dDuration);
}

template <class V, class A>
void VisitDamping(V& v, A& a) {
  v.Visit({"damping",
           {c_nIdDamping1, c_nIdDamping2},
           "damping ratios at the first frequency and the next different one",
           "第一阶和第二个不同频率的阻尼比"},
          a.damping);
}

template <class V, class A>
void VisitMass(V& v, A& a, int nButton) {
  v.Visit({"combination",
           {nButton},
           "load cases that become mass; gravity with negative factors",
           "重力荷载代表值：换算成质量的工况，重力取负系数"},
          a.combination);
}

template <class V, class A>
void VisitOutputs(V& v, A& a) {
  v.Visit({"outputs",
           {},
           "histories written after the run: nodes (id, direction), elements (number)",
           "运行后写出的时程：节点（`id`、方向）、单元（号码）"},
          a.outputs);
}

template <class V>
void VisitFields(V& v, StaticJob& a) {
  VisitEquilibrium(v, a);
  v.Visit({"combination", {c_nIdLoadComb}, "load cases that act", "施加的工况"}, a.combination);
}

template <class V>
void VisitFields(V& v, ModalJob& a) {
  v.Visit({"modes", {c_nIdModes}, "number of modes wanted", "要求的振型数"}, a.nModes, {1});
  v.Visit({"root_check", {c_nIdSturm}, "check for lost roots", "检查是否漏掉振型的方法"}, a.nRootCheck,
          c_strRootChecks);
  v.Visit({"accuracy",
           {c_nIdAccuracy},
           "relative accuracy of the tridiagonal eigensolution, not 0",
           "三对角特征值解法的相对精度，不得为 0"},
          a.dAccuracy, {0.0});
  v.Visit({"iteration_multiple",
           {c_nIdIterMultiple},
           "the subspace may grow to this multiple of its first size",
           "子空间可增大到首次尺寸的多少倍"},
          a.nIterationMultiple, {1});
  v.Visit({"shear", {c_nIdShear}, "shear deformation of beams", "梁计入剪切变形"}, a.bShear);
  v.Visit({"verify_modes", {}, "count after the run whether modes are missing", "分析后清点有无遗漏的振型", "", "true"},
          a.bVerify);
  VisitMass(v, a, c_nIdModeLoadComb);
}

template <class V>
void VisitFields(V& v, SpectrumJob& a) {
  v.Visit({"modes", {c_nIdExpandModes}, "number of modes combined", "参与组合的振型数"}, a.nModes, {1});
  v.Visit({"mesh_division",
           {c_nIdMeshDiv},
           "cells of a beam in which forces are printed, at most 20",
           "每根梁输出内力的分格数，不大于 20"},
          a.nMeshDivision, {1});
  v.Visit({"direction",
           {c_nIdDirectionX, c_nIdDirectionY, c_nIdDirectionZ},
           "direction of the earthquake, any length",
           "地震作用方向，长度任意"},
          a.direction);
  v.Visit({"site_class", {c_nIdSiteClass1}, "site class", "场地类别"}, a.nSiteClass, {1, 4});
  v.Visit({"zone_group", {c_nIdZoneGroup1}, "design group", "设计地震分组"}, a.nZoneGroup, {1, 3});
  v.Visit({"intensity", {c_nIdIntensity6}, "intensity with the design basic acceleration", "设防烈度和设计基本加速度"},
          a.nIntensity, c_strIntensities);
  v.Visit({"level", {c_nIdFrequentQuake}, "frequent or rare earthquake", "多遇或罕遇地震"}, a.nLevel, c_strQuakeLevels);
  v.Visit({"damping", {c_nIdDampRatio}, "damping ratio of all modes", "各阶振型的阻尼比"}, a.dDamping, {0.0});
  v.Visit({"modal_combination", {c_nIdSrss}, "modal combination", "振型组合方法"}, a.nMethod, c_strModalCombinations);
  v.Visit({"virtual_mode", {}, "add the residual-mass mode", "加入剩余质量振型", "", "false"}, a.bVirtualMode);
  v.Visit({"pseudo_load",
           {},
           "pseudo-static load number, not negative with the virtual mode",
           "地震拟静力荷载序号；启用虚拟模态时不得为负",
           "",
           "0"},
          a.nPseudoLoad);
  VisitMass(v, a, c_nIdLoadValues);
}

template <class V>
void VisitFields(V& v, WilsonJob& a) {
  VisitDamping(v, a);
  v.Visit({"theta", {c_nIdTheta}, "Wilson's θ", "Wilson θ"}, a.dTheta);
  VisitTimeAxis(v, a, c_nIdWilsonStep, c_nIdWilsonDuration);
  v.Visit({"nonlinear", {c_nIdNonlinear}, "no effect", "不起作用"}, a.bNonlinear);
  v.Visit({"peaks", {c_nIdPeakX, c_nIdPeakY, c_nIdPeakZ, c_nIdPeakOblique}, "no effect", "不起作用", "m/s²"}, a.peaks);
  v.Visit({"combination", {c_nIdLoadComb}, "no effect", "不起作用"}, a.combination);
  VisitOutputs(v, a);
}

template <class V>
void VisitFields(V& v, ImpulseLoadJob& a) {
  v.Visit({"shape", {c_nIdTriangular}, "shape in time", "力随时间的形状"}, a.nShape, c_strImpulseShapes);
  v.Visit({"loads",
           {c_nIdImpulseList},
           "impulses: node (id), direction, peak (kN)",
           "冲击：节点（`id`）、方向、峰值（kN）"},
          a.impulses);
  v.Visit({"peak_time", {c_nIdPeakTime}, "rise time of the triangle", "三角冲击上升到峰值的时间", "s"}, a.dPeakTime);
  v.Visit({"unload_time", {c_nIdUnloadTime}, "length of the rectangle", "矩形冲击的持续时间", "s"}, a.dUnloadTime);
  VisitTimeAxis(v, a, c_nIdStep, c_nIdDuration);
}

template <class V>
void VisitFields(V& v, GeneralLoadJob& a) {
  VisitTimeAxis(v, a, c_nIdStep, c_nIdDuration);
}

template <class V>
void VisitFields(V& v, EarthquakeJob& a) {
  VisitTimeAxis(v, a, c_nIdStep, c_nIdDuration);
  v.Visit({"mode", {c_nIdPrincipal}, "along an axis or in any direction", "沿坐标轴或沿任意方向"}, a.nMode,
          c_strQuakeModes);
  v.Visit({"directions",
           {c_nIdQuakeX, c_nIdQuakeY, c_nIdQuakeZ},
           "axes; only the first in this order is used",
           "坐标轴；只用次序最前的一个"},
          a.directions);
  v.Visit({"oblique_axis",
           {c_nIdObliqueX, c_nIdObliqueY, c_nIdObliqueZ},
           "any direction, any length",
           "任意方向，长度任意"},
          a.obliqueAxis);
  v.Visit({"peaks",
           {c_nIdPeakX, c_nIdPeakY, c_nIdPeakZ, c_nIdPeakOblique},
           "peak ground acceleration",
           "地面加速度峰值",
           "m/s²"},
          a.peaks);
}

template <class V>
void VisitFields(V& v, NewmarkJob& a) {
  v.Visit({"load", {c_nIdNodalForce}, "excitation", "激励的种类"}, a.nLoad, c_strDynamicLoads);
  VisitDamping(v, a);
  v.Visit({"alpha", {c_nIdAlpha}, "Newmark's α (often called β)", "Newmark α（常记作 β）"}, a.dAlpha);
  v.Visit({"delta", {c_nIdDelta}, "Newmark's δ (often called γ)", "Newmark δ（常记作 γ）"}, a.dDelta);
  VisitEquilibrium(v, a);
  v.Visit({"from_file",
           {c_nIdFromFile},
           "take forces or accelerations from files beside the job",
           "荷载或加速度从作业旁的文件读取"},
          a.bFromFile);
  v.Visit({"impulse", {c_nIdImpulseLoad}, "impulses on nodes", "节点冲击"}, a.impulse);
  v.Visit({"general_load", {c_nIdGeneralLoad}, "time axis of forces from a file", "文件中荷载的时间选项"},
          a.generalLoad);
  v.Visit({"earthquake", {c_nIdEarthquake}, "ground motion", "地面运动"}, a.earthquake);
  VisitMass(v, a, c_nIdLoadComb);
  VisitOutputs(v, a);
}

}  // namespace skyframe::host
