#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "skyframe/model/Element.h"
#include "skyframe/model/LoadCase.h"
#include "skyframe/model/Material.h"
#include "skyframe/model/NodeTable.h"
#include "skyframe/numeric/SparseMatrix.h"
#include "skyframe/platform/TextWriter.h"
#include "skyframe/values/Capacities.h"
#include "skyframe/values/Findings.h"
#include "skyframe/values/HistorySet.h"
#include "skyframe/values/Settings.h"

namespace skyframe {

/// The object one analysis run works on: settings, nodes, elements, materials, load groups, global
/// vectors and the skyline layout. N equations, the first F of them free.
/// Lifecycle: constructed by a driver, settings taken from its dialog, one model build from the host
/// records, one analysis. Analyses are declared here and defined in their own rooms.
/// Failure: one message, then m_bValid stays false (builds) or the analysis returns.
class CAnalysisModel : public ModalSettings,
                       public SpectrumSettings,
                       public EquilibriumSettings,
                       public HistorySettings,
                       public WilsonSettings,
                       public NewmarkSettings,
                       public QuakeSettings {
 public:
  CAnalysisModel();
  virtual ~CAnalysisModel();
  CAnalysisModel(const CAnalysisModel&) = delete;
  CAnalysisModel& operator=(const CAnalysisModel&) = delete;

  // Settings that no dialog knows.
  double m_dQuakeFactor = 0.3;
  std::array<std::string, 3> m_strAccelerationFile = {"xacc.txt", "yacc.txt", "zacc.txt"};
  double m_dLoadRepValue = 0.15;
  std::string m_strConvCriterion = "力绝对值收敛准则";

  // Load combination: entry g belongs to load group g.
  std::array<int, c_nLoadTypes> m_nLoadCaseFlag = {};
  std::array<double, c_nLoadTypes> m_dLoadFactor;
  bool m_bLoadComb = false;

  // Modal results, from a modal run or from a mode file.
  std::vector<double> Omega;           ///< rad/s, ascending
  CMatrix ModeShapes = CMatrix(0, 0);  ///< F x modes, column i belongs to Omega[i], Phi^T M Phi = I
  int ModesSolved = 0;
  bool m_bFrequenciesLoaded = false;
  std::vector<double> ModeDamping;  ///< damping ratio of each mode of the spectrum analysis
  int ConstantDamping = 1;          ///< 1: every mode takes m_dDampRatio
  double VerticalReduction = 1.0;

  // Time-history results.
  std::string LoadScript;             ///< impulse load text of the run, kN
  HistorySet m_history;               ///< empty until all steps are done
  double m_dKeptHistoryBytes = 0.0;   ///< memory of earlier histories that stay while this run computes
  std::vector<double> m_staticForce;  ///< axial forces after the static stage of a nonlinear run, N

  // What the run found, for the host; the analysis fills its own.
  StaticFindings m_staticFindings;
  ModalFindings m_modalFindings;
  SpectrumFindings m_spectrumFindings;
  HistoryFindings m_historyFindings;

  /// Set by a successful build (and, for the spectrum analysis, by the mode-file reader).
  bool m_bValid = false;

  /// Model build of the time-history and static drivers.
  void BuildModel();
  /// Model build of the modal and spectrum drivers: refuses inclined supports; forms the node load
  /// masses when bLoadComb is set.
  void BuildModelForModes(bool bLoadComb);

  /// Linear static solution; writes strJobPath + "_StaticLinearSol.txt".
  void SolveStaticLinear(const std::string& strJobPath);
  /// Geometrically nonlinear static solution, modified Newton-Raphson with a fixed stiffness;
  /// writes strJobPath + "_StaticNonlinearSol.txt".
  void SolveStaticNonlinear(const std::string& strJobPath);
  /// Gives the memory of the factorised stiffness back; displacements and forces stay.
  void ReleaseStiffness() { m_stiffness.Release(); }

  /// Lowest m_nModes modes by Lanczos iteration into Omega and ModeShapes; writes strJobPath + ".mode".
  void SolveModes(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass);
  /// Reads the first m_nExpandModes modes, the mode count and the shear flag; sets m_bValid.
  bool ReadModeFile(const std::string& strJobPath);
  /// Reads all frequencies unless the model has some; also the mode count and the shear flag.
  bool ReadModeFrequencies(const std::string& strJobPath);
  /// Response spectrum combination of the modes read before; writes strJobPath + ".spec".
  void SpectrumAnalysis(const std::string& strJobPath, int nAnalysisType, bool bUseLoadMass);

  /// Linear history under the nodal forces of strPrefix + "impulseload.log", Wilson-theta method.
  void WilsonTheta(const std::string& strPrefix);
  /// History under nodal forces (LoadScript, or with m_bLoadFromFile the file) or ground motion, Newmark
  /// method. nAssumption 1: nonlinear. Ground motion also writes the history file.
  void NewmarkIntegration(const std::string& strPrefix, int nAssumption, int bGroundMotion);
  /// Copies strPrefix + "impulseload.log" into LoadScript; without the file a line on the console.
  void ReadLoadLog(const std::string& strPrefix);
  /// Writes m_history to g_FilePathName + "_HisTime.txt"; after a message false when that was not possible.
  bool WriteHistoryFile();
  /// Adds the positive vertical loads of the combination over g to M at their nodes' translations.
  void AddStaticLoadMass(SparseMatrix& M);

  [[nodiscard]] const CNodeTable& GetNodes() const { return m_nodes; }
  [[nodiscard]] int GetTotalDofs() const { return m_nodes.GetTotalDofs(); }
  [[nodiscard]] int GetFreeDofs() const { return m_nodes.GetFreeDofs(); }
  /// Slot k holds host element k; null for an unknown host type.
  [[nodiscard]] std::span<const std::unique_ptr<CElement>> GetElements() const { return m_elements; }
  [[nodiscard]] const MaterialList& GetMaterials() const { return m_materials; }
  [[nodiscard]] const std::vector<CLoadCase>& GetLoadCases() const { return m_loadCases; }
  [[nodiscard]] const std::vector<int>& GetDiagonalAddresses() const { return m_diagonal; }
  /// Load masses by node, kN; empty unless formed.
  [[nodiscard]] const std::vector<double>& GetNodeLoadMass() const { return m_nodeLoadMass; }
  [[nodiscard]] std::span<const double> GetDisplacements() const { return m_displacement; }
  [[nodiscard]] std::span<const double> GetLoadVector() const { return m_load; }
  /// Fint over the N equations: the forces that hold the structure in its present state.
  [[nodiscard]] std::span<const double> GetInternalForce() const { return m_internalForce; }
  /// Entry k belongs to equation F + k: -Fint, the force of the structure on its support.
  [[nodiscard]] std::span<const double> GetReactions() const { return m_reaction; }

  /// u = 0; nodes and elements stay as they are.
  void ClearDisplacements();
  /// Zeroes both load vectors.
  void ClearLoads();
  /// Zeroes both load vectors and adds every record of the case.
  void BuildLoadVector(const CLoadCase& loadCase);
  void BuildLoadVector(int nCase) { BuildLoadVector(m_loadCases[static_cast<std::size_t>(nCase)]); }
  /// m_load = sum of factor_g * 1000 * (records of group g) over the selected groups, N.
  void AssembleCombinedLoad();
  /// K of all elements with the constraints applied. False when K could not be allocated.
  [[nodiscard]] bool AssembleStiffness(SparseMatrix& K, bool bGeometric, bool bShear) const;
  /// Consistent M of all elements.
  [[nodiscard]] bool AssembleMass(SparseMatrix& M, bool bShear) const;
  /// Fint of all elements, and the reactions -Fint[F + k].
  void AssembleInternalForce();
  /// u += du (F or N values), moves the nodes, updates every element and Fint.
  void ApplyIncrement(std::span<const double> increment, bool bShear, bool bFillDiagrams);
  /// False after a message when a value of v (equations 0..) exceeds 1e10 m or rad: the structure runs away.
  /// Deliberate: a signed comparison, large negative values pass.
  [[nodiscard]] bool IsWithinLimit(std::span<const double> v) const;
  /// Node and direction of an equation in the host's own numbering, also while the nodes are renumbered.
  [[nodiscard]] DofPlace FindDofPlace(int nEquation) const;
  /// Digits lost and their place, of a matrix over the model's equations.
  [[nodiscard]] Conditioning DescribeConditioning(const SparseMatrix& A) const;
  /// X Y Z RX RY RZ by node in the host's own order of an N-vector; 0 where there is no DOF.
  [[nodiscard]] std::vector<NodeValues> GatherNodeValues(std::span<const double> u) const;
  /// Values of all nodes in host order at the F free equations.
  [[nodiscard]] std::vector<double> ScatterFreeValues(std::span<const NodeValues> values) const;
  /// Reaction block of the result files.
  void WriteReactions(CTextWriter& out) const;

 private:
  /// Shows the message; false.
  [[nodiscard]] static bool Refuse(std::string_view strMessage);
  [[nodiscard]] bool Build(bool bForModes, bool bLoadComb);
  void ReadNodes();
  [[nodiscard]] std::vector<bool> MarkNodesInUse() const;
  void ReadSupports(const std::vector<bool>& inUse);
  [[nodiscard]] bool HasInclinedSupport(const std::vector<bool>& inUse) const;
  [[nodiscard]] bool CreateElements(int& nMaterialCode);
  void CreateMaterials();
  void SetElementData(int nMaterialCode);
  void ReadLoads();
  void FormNodeLoadMass();
  [[nodiscard]] bool LayOutSkyline();
  void ApplyConstraints(SparseMatrix& K) const;
  /// A = 0 with the profile of the model, in the memory it has where that fits. False when there is none.
  [[nodiscard]] bool ClearMatrix(SparseMatrix& A) const;
  /// Starts the findings of a static run; false when there is no valid model.
  [[nodiscard]] bool BeginStatic(bool bNonlinear);
  /// u = 0, K assembled and factorised, then the combined load; false after its message.
  [[nodiscard]] bool PrepareStatic();
  /// Displacements, internal forces and reactions under the combination; false after a message.
  [[nodiscard]] bool SolveLinear();
  /// Displacements and reactions into the findings.
  void KeepStaticState();
  /// Euler ratios and the largest twist of the beams into the findings.
  void KeepMemberState();
  /// Modified Newton-Raphson with the factorised stiffness; false after its message. increment, length N and
  /// zero before, is the last one afterwards.
  [[nodiscard]] bool IterateToEquilibrium(std::span<double> increment);
  /// Place of the largest |v|, or of the first value that is no number; none when all are 0.
  [[nodiscard]] DofPlace FindLargest(std::span<const double> v) const;

  CNodeTable m_nodes;
  std::vector<std::unique_ptr<CElement>> m_elements;
  MaterialList m_materials;
  std::vector<CLoadCase> m_loadCases;
  std::vector<double> m_nodeLoadMass;
  std::vector<int> m_diagonal;          ///< diagonal addresses of the N equations
  std::vector<double> m_load;           ///< N
  std::vector<double> m_secondLoad;     ///< N
  std::vector<double> m_displacement;   ///< N
  std::vector<double> m_internalForce;  ///< N
  std::vector<double> m_reaction;       ///< N - F
  SparseMatrix m_stiffness;
};

}  // namespace skyframe
