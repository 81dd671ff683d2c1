#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "skyframe/values/DialogIds.h"

namespace skyframe::host {

inline constexpr std::array<std::string_view, 4> c_strElementTypes = {"bar", "beam", "cable", "membrane"};
inline constexpr std::array<std::string_view, 2> c_strJoints = {"pinned", "rigid"};
inline constexpr std::array<std::string_view, 6> c_strDirections = {"X", "Y", "Z", "RX", "RY", "RZ"};
inline constexpr std::array<std::string_view, 3> c_strAxes = {"X", "Y", "Z"};
inline constexpr std::array<std::string_view, 4> c_strCriteria = {"force_abs", "disp_abs", "force_rel", "disp_rel"};
inline constexpr std::array<std::string_view, 2> c_strRootChecks = {"sturm", "compare"};
inline constexpr std::array<std::string_view, 6> c_strIntensities = {"6 (0.05g)", "7 (0.10g)", "7 (0.15g)",
                                                                     "8 (0.20g)", "8 (0.30g)", "9 (0.40g)"};
inline constexpr std::array<std::string_view, 2> c_strQuakeLevels = {"frequent", "rare"};
/// By site class, from 1.
inline constexpr std::array<std::string_view, 5> c_strSiteClasses = {"", "I", "II", "III", "IV"};
inline constexpr std::array<std::string_view, 3> c_strModalCombinations = {"SRSS", "CQC", "GRP"};

inline constexpr std::array<std::string_view, 7> c_strStructures = {
    "steel frame", "concrete frame", "frame-wall", "walls", "tower", "dome", "other"};
inline constexpr std::array<std::string_view, 2> c_strEditions = {"2001", "2010"};

inline constexpr std::array<std::string_view, 2> c_strMethods = {"wilson", "newmark"};
inline constexpr std::array<std::string_view, 2> c_strDynamicLoads = {"nodal_force", "ground_motion"};
inline constexpr std::array<std::string_view, 2> c_strImpulseShapes = {"triangular", "rectangular"};
inline constexpr std::array<std::string_view, 2> c_strQuakeModes = {"principal", "oblique"};
inline constexpr std::array<std::string_view, 4> c_strPeaks = {"X", "Y", "Z", "oblique"};

enum ElementType : int { c_nBar, c_nBeam, c_nCable, c_nMembrane };
enum JointKind : int { c_nPinned, c_nRigid };
enum StructureKind : int { c_nSteelFrame, c_nConcreteFrame, c_nFrameWall, c_nWalls, c_nTower, c_nDome, c_nOther };
enum CodeEdition : int { c_nEdition2001, c_nEdition2010 };

/// Metres. The host number of a node is its place in the list, from 1; nId is the job's own name.
struct JobNode {
  int nId = 0;
  double dX = 0.0;
  double dY = 0.0;
  double dZ = 0.0;
  int nJoint = c_nRigid;
  std::array<int, 6> restraint = {};  ///< X Y Z RX RY RZ, 1 = restrained
  std::optional<int> nSpring;         ///< spring group; then restraint is all 0

  bool operator==(const JobNode&) const = default;
};

/// kN/mm.
struct JobSpring {
  int nGroup = 0;
  double dKx = 0.0;
  double dKy = 0.0;
  double dKz = 0.0;

  bool operator==(const JobSpring&) const = default;
};

/// mm2 and mm4. The section group is the place in the list, from 1.
struct JobSection {
  std::string strId;
  int nShape = 1;  ///< 1..6
  double dArea = 0.0;
  double dIx = 0.0;
  double dIy = 0.0;
  double dIz = 0.0;

  bool operator==(const JobSection&) const = default;
};

struct JobElement {
  int nType = c_nBar;
  int nNodeI = 0;    ///< host number
  int nNodeJ = 0;    ///< host number
  int nSection = 0;  ///< place in the list of sections, from 0

  bool operator==(const JobElement&) const = default;
};

/// kN, kNm.
struct JobLoad {
  int nCase = 0;
  int nNode = 0;       ///< host number
  int nDirection = 0;  ///< index into c_strDirections
  double dValue = 0.0;

  bool operator==(const JobLoad&) const = default;
};

/// Factor of each load case that takes part.
using JobCombination = std::map<int, double>;

// Analyses. What is not set keeps the dialog's own default. Fields.h tells what the members are.

struct StaticJob {
  static constexpr std::string_view c_strType = "static";
  static constexpr int c_nDialog = c_nIdNonlinStaticDlg;

  std::optional<bool> bNonlinear;
  std::optional<int> nCriterion;
  std::optional<double> dTolerance;
  std::optional<int> nMaxIterations;
  JobCombination combination;

  bool operator==(const StaticJob&) const = default;
};

struct ModalJob {
  static constexpr std::string_view c_strType = "modal";
  static constexpr int c_nDialog = c_nIdModeDlg;

  std::optional<int> nModes;
  std::optional<int> nRootCheck;
  std::optional<double> dAccuracy;
  std::optional<int> nIterationMultiple;
  std::optional<bool> bShear;
  JobCombination combination;
  std::optional<bool> bVerify = std::nullopt;  ///< count by Sturm after the run whether the file misses modes

  bool operator==(const ModalJob&) const = default;
};

struct SpectrumJob {
  static constexpr std::string_view c_strType = "spectrum";
  static constexpr int c_nDialog = c_nIdSpectrumDlg;

  std::optional<int> nModes;
  std::optional<int> nMeshDivision;
  std::optional<std::array<double, 3>> direction;
  std::optional<int> nSiteClass;  ///< 1..4
  std::optional<int> nZoneGroup;  ///< 1..3
  std::optional<int> nIntensity;
  std::optional<int> nLevel;
  std::optional<double> dDamping;
  std::optional<int> nMethod;
  JobCombination combination;
  // Settings of the host's record; the dialog has no controls for them.
  std::optional<bool> bVirtualMode = std::nullopt;
  std::optional<int> nPseudoLoad = std::nullopt;

  bool operator==(const SpectrumJob&) const = default;
};

/// Which of X, Y, Z.
using JobAxes = std::array<bool, 3>;

/// Peaks X, Y, Z, oblique.
using JobPeaks = std::array<std::optional<double>, 4>;

struct JobOutputNode {
  int nNode = 0;       ///< host number
  int nDirection = 0;  ///< 0..2

  bool operator==(const JobOutputNode&) const = default;
};

/// Histories of a run that are written to files of their own. A file is named after its node or element: none is here
/// twice.
struct JobOutputs {
  std::vector<JobOutputNode> nodes;
  std::vector<int> elements;  ///< from 1

  [[nodiscard]] bool IsEmpty() const { return nodes.empty() && elements.empty(); }

  bool operator==(const JobOutputs&) const = default;
};

/// Time history by the Wilson method under the loads of the job's impulse file.
struct WilsonJob {
  static constexpr std::string_view c_strType = "time_history";
  static constexpr int c_nMethod = 0;
  static constexpr int c_nDialog = c_nIdWilsonDlg;

  std::optional<std::array<double, 2>> damping;
  std::optional<double> dTheta;
  std::optional<double> dTimeStep;
  std::optional<double> dDuration;
  std::optional<bool> bNonlinear;
  JobPeaks peaks;
  JobCombination combination;
  JobOutputs outputs = {};

  bool operator==(const WilsonJob&) const = default;
};

struct JobImpulse {
  int nNode = 0;       ///< host number
  int nDirection = 0;  ///< 0..2
  double dPeak = 0.0;  ///< kN

  bool operator==(const JobImpulse&) const = default;
};

struct ImpulseLoadJob {
  static constexpr int c_nDialog = c_nIdImpulseLoadDlg;

  std::optional<int> nShape;
  std::vector<JobImpulse> impulses;
  std::optional<double> dPeakTime;
  std::optional<double> dUnloadTime;
  std::optional<double> dTimeStep;
  std::optional<double> dDuration;

  bool operator==(const ImpulseLoadJob&) const = default;
};

struct GeneralLoadJob {
  static constexpr int c_nDialog = c_nIdGeneralLoadDlg;

  std::optional<double> dTimeStep;
  std::optional<double> dDuration;

  bool operator==(const GeneralLoadJob&) const = default;
};

struct EarthquakeJob {
  static constexpr int c_nDialog = c_nIdEarthquakeDlg;

  std::optional<double> dTimeStep;
  std::optional<double> dDuration;
  std::optional<int> nMode;
  JobAxes directions = {};                           ///< principal mode
  std::optional<std::array<double, 3>> obliqueAxis;  ///< oblique mode
  JobPeaks peaks;

  bool operator==(const EarthquakeJob&) const = default;
};

/// Time history by the Newmark method.
struct NewmarkJob {
  static constexpr std::string_view c_strType = "time_history";
  static constexpr int c_nMethod = 1;
  static constexpr int c_nDialog = c_nIdNewmarkDlg;

  std::optional<int> nLoad;
  std::optional<std::array<double, 2>> damping;
  std::optional<double> dAlpha;
  std::optional<double> dDelta;
  std::optional<bool> bNonlinear;
  std::optional<int> nCriterion;
  std::optional<double> dTolerance;
  std::optional<int> nMaxIterations;
  std::optional<bool> bFromFile;
  std::optional<ImpulseLoadJob> impulse;
  std::optional<GeneralLoadJob> generalLoad;
  std::optional<EarthquakeJob> earthquake;
  JobCombination combination;
  JobOutputs outputs = {};

  [[nodiscard]] bool HasGroundMotion() const { return nLoad == 1; }

  bool operator==(const NewmarkJob&) const = default;
};

using JobAnalysis = std::variant<StaticJob, ModalJob, SpectrumJob, WilsonJob, NewmarkJob>;

/// Nodes whose coordinates differ by no more stand at one level, or on one plumb line, m.
inline constexpr double c_dLevelTolerance = 0.01;

/// Limits that take the place of the code's in a calculation report.
struct JobLimits {
  std::optional<double> dDrift;              ///< n of 1/n, frequent earthquake
  std::optional<double> dRareDrift;          ///< n of 1/n, rare earthquake
  std::optional<double> dShearWeight;        ///< least ratio of storey shear to weight
  std::optional<double> dMassParticipation;  ///< least share of the mass
  std::optional<double> dPeriodRatio;        ///< Tt/T1
  std::optional<double> dDisplacementRatio;  ///< largest to mean displacement of a storey, never to be exceeded

  bool operator==(const JobLimits&) const = default;
};

/// What a calculation report needs to know beside the model.
struct JobReport {
  std::optional<std::string> strProject;
  std::optional<std::string> strEngineer;
  std::optional<int> nStructure;  ///< StructureKind
  std::optional<int> nEdition;    ///< CodeEdition
  std::vector<double> storeys;    ///< levels of the base and the floors, m, upwards; none: found in the model
  JobLimits limits;

  bool operator==(const JobReport&) const = default;
};

struct Job {
  std::string strTitle;
  std::vector<JobNode> nodes;
  std::vector<JobSpring> springs;
  std::vector<JobSection> sections;
  std::vector<JobElement> elements;
  std::vector<int> inclinedSupports;  ///< host numbers
  std::vector<JobLoad> loads;
  std::vector<JobAnalysis> analyses;
  JobReport report;

  /// Highest load case in use; 0 without loads.
  [[nodiscard]] int GetHighestCase() const;
  /// Load cases from 0 to the highest one in use that have no load.
  [[nodiscard]] std::vector<int> FindEmptyCases() const;
  /// False: ids and host numbers differ.
  [[nodiscard]] bool HasConsecutiveIds() const;
};

}  // namespace skyframe::host
