#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace skyframe::host {

inline constexpr std::array<std::string_view, 4> c_strElementTypes = {"bar", "beam", "cable", "membrane"};
inline constexpr std::array<std::string_view, 2> c_strJoints = {"pinned", "rigid"};
inline constexpr std::array<std::string_view, 6> c_strDirections = {"X", "Y", "Z", "RX", "RY", "RZ"};
inline constexpr std::array<std::string_view, 4> c_strCriteria = {"force_abs", "disp_abs", "force_rel", "disp_rel"};
inline constexpr std::array<std::string_view, 2> c_strRootChecks = {"sturm", "compare"};
inline constexpr std::array<std::string_view, 6> c_strIntensities = {"6 (0.05g)", "7 (0.10g)", "7 (0.15g)",
                                                                     "8 (0.20g)", "8 (0.30g)", "9 (0.40g)"};
inline constexpr std::array<std::string_view, 2> c_strQuakeLevels = {"frequent", "rare"};
inline constexpr std::array<std::string_view, 3> c_strModalCombinations = {"SRSS", "CQC", "GRP"};

enum ElementType : int { c_nBar, c_nBeam, c_nCable, c_nMembrane };
enum JointKind : int { c_nPinned, c_nRigid };

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

// Analyses. What is not set keeps the dialog's own default.

struct StaticJob {
  std::optional<bool> bNonlinear;
  std::optional<int> nCriterion;
  std::optional<double> dTolerance;
  std::optional<int> nMaxIterations;
  JobCombination combination;

  bool operator==(const StaticJob&) const = default;
};

struct ModalJob {
  std::optional<int> nModes;
  std::optional<int> nRootCheck;
  std::optional<double> dAccuracy;
  std::optional<int> nIterationMultiple;
  std::optional<bool> bShear;
  JobCombination combination;

  bool operator==(const ModalJob&) const = default;
};

struct SpectrumJob {
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

  bool operator==(const SpectrumJob&) const = default;
};

using JobAnalysis = std::variant<StaticJob, ModalJob, SpectrumJob>;

struct Job {
  std::string strTitle;
  std::vector<JobNode> nodes;
  std::vector<JobSpring> springs;
  std::vector<JobSection> sections;
  std::vector<JobElement> elements;
  std::vector<int> inclinedSupports;  ///< host numbers
  std::vector<JobLoad> loads;
  std::vector<JobAnalysis> analyses;

  /// Highest load case in use; 0 without loads.
  [[nodiscard]] int GetHighestCase() const;
  /// False: ids and host numbers differ.
  [[nodiscard]] bool HasConsecutiveIds() const;
};

}  // namespace skyframe::host
