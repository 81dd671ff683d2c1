#include "BookData.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "ExtractedHistories.h"
#include "skyframe/connect/Histories.h"
#include "skyframe/hostdata/HostData.h"
#include "skyframe/job/DialogFields.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/run/PlatformScope.h"
#include "skyframe/run/Session.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr double c_dJustBelow = 0.9999;  ///< of the highest frequency, past its round-off
constexpr double c_dSameFile = 1.0e-3;   ///< of the largest displacement: the file has six digits

/// Opens the job in the host records; the settings of the dialogs stay.
std::optional<CSession> OpenRecords(const Job& job, const std::string& strJobPath) {
  const tagComDynamic settings = COMDYN;
  const std::string strProgramPath = g_ProgramPath;
  std::optional<CSession> session = CSession::Open(job, strJobPath, strProgramPath);
  COMDYN = settings;
  return session;
}

/// The analyses of the job that the choice accepts, with defaults.
template <class Parameters, class Choice>
std::vector<Parameters> FindAll(const Job& job, Choice choice) {
  std::vector<Parameters> found;
  for (const JobAnalysis& analysis : job.analyses) {
    const auto* pParameters = std::get_if<Parameters>(&analysis);
    if (pParameters != nullptr && choice(*pParameters)) found.push_back(WithDefaults(*pParameters));
  }
  return found;
}

/// Whether all true modes were normalised with the masses of the basis.
bool HaveMasses(const ModalBasis& basis, std::size_t nTrueModes) {
  constexpr double c_dMassNormTolerance = 1.0e-3;
  for (std::size_t i = 0; i < nTrueModes; ++i) {
    if (!(std::abs(FormModalMass(basis, i) - 1.0) <= c_dMassNormTolerance)) return false;
  }
  return true;
}

bool HasPositiveFrequencies(const ModeResultFile& file) {
  return !file.omega.empty() &&
         std::ranges::all_of(file.omega, [](double w) { return w > 0.0 && std::isnormal(w * w); });
}

class CCollector {
 public:
  explicit CCollector(BookData& book) : m_book(book), m_job(book.job), m_strMark(FormModelMark(book.job)) {}

  void Collect() {
    ReadFiles();
    m_book.storeys = FormStoreys(m_job);
    if (const std::optional<CSession> session = OpenRecords(m_job, m_book.strJobPath)) {
      CollectModes();
      CollectSpectra();
    }
    CollectHistory();
    m_book.extracted = CollectExtracts(m_job, m_book.strJobPath, m_book.stamps);
    CollectChecks();
  }

 private:
  template <class Result, class Read, class Choice>
  void ReadFile(Result& result, std::string_view strSuffix, Read read, Choice choice) {
    using Parameters = typename decltype(result.parameters)::value_type;
    const std::string strPath = m_book.strJobPath + std::string(strSuffix);
    result.strFile = FromFilePath(ToFilePath(strPath).filename());
    std::error_code error;
    result.bThere = std::filesystem::is_regular_file(ToFilePath(strPath), error);
    if (result.bThere) result.content = read(strPath);
    result.pStamp = m_book.stamps.Find(strSuffix);
    result.bOutdated = m_book.stamps.IsOutdated(strSuffix, m_strMark);
    std::optional<JobAnalysis> run;
    if (result.pStamp != nullptr) run = ParseAnalysis(result.pStamp->strAnalysis, m_job);
    const auto* pRun = run ? std::get_if<Parameters>(&*run) : nullptr;
    const std::vector<Parameters> asked = FindAll<Parameters>(m_job, choice);
    result.bAsked = !asked.empty();
    if (pRun != nullptr) {
      result.parameters = WithDefaults(*pRun);
      const auto isRun = [&run](const Parameters& parameters) { return MeanTheSame(parameters, *run); };
      result.bOwnParameters = std::ranges::none_of(asked, isRun);
    } else if (result.bAsked) {
      result.parameters = asked.back();
    }
  }

  void ReadFiles() {
    const auto readStatic = [this](const std::string& str) { return ReadStaticResultFile(str, m_job.nodes.size()); };
    const auto isKind = [](bool bNonlinear) {
      return [bNonlinear](const StaticJob& analysis) { return *WithDefaults(analysis).bNonlinear == bNonlinear; };
    };
    const auto any = [](const auto&) { return true; };
    ReadFile(m_book.linear, suffix::c_strStaticLinear, readStatic, isKind(false));
    ReadFile(m_book.nonlinear, suffix::c_strStaticNonlinear, readStatic, isKind(true));
    ReadFile(
        m_book.modal, suffix::c_strModes,
        [this](const std::string& str) { return ReadModeResultFile(str, m_job.nodes); }, any);
    ReadFile(
        m_book.spectrum, suffix::c_strSpectrum,
        [this](const std::string& str) { return ReadSpectrumResultFile(str, m_job.nodes); }, any);
    const HistoryModel model = {static_cast<int>(m_job.nodes.size()), static_cast<int>(m_job.elements.size())};
    ReadFile(
        m_book.history, suffix::c_strHistory, [&](const std::string& str) { return ReadHistoryFile(str, model); },
        [](const NewmarkJob& analysis) { return analysis.HasGroundMotion(); });
    if (m_book.modal.content && !HasPositiveFrequencies(*m_book.modal.content)) {
      m_book.modal.content.reset();
      m_book.modal.content.strError = Say(texts::c_badFrequencies);
    }
  }

  void CollectModes() {
    if (!m_book.modal.content) return;
    const ModeResultFile& file = *m_book.modal.content;
    const ModalJob modal = m_book.modal.parameters.value_or(ModalJob());
    const ModeSettings settings = FormModeSettings(modal.combination, file.bShear);
    m_book.basis = FormBasis(file.omega, file.shapes, m_job.nodes.size(), settings);
    if (!m_book.basis) return;
    if (const auto own = FormBasis({}, {}, m_job.nodes.size(), FormModeSettings({}, file.bShear))) {
      m_book.dOwnMass = GetGravityMass(*own);
    }
    if (m_book.storeys) {
      for (std::size_t i = 0; i < m_book.basis->GetCount(); ++i) {
        m_book.shares.push_back(FormMotionShares(m_job, *m_book.storeys, *m_book.basis, i));
      }
    }
    m_book.first = FindFirstModes(m_book.shares);
    if (!modal.bVerify.value_or(true) || m_book.modal.bOutdated) return;
    m_book.dCountedBelow = c_dJustBelow * file.omega.back();
    m_book.modesBelow = CountModesBelow(m_book.dCountedBelow, settings);
  }

  void CollectSpectra() {
    if (!m_book.spectrum.bThere) return;
    std::vector<SpectrumJob> jobs = FindAll<SpectrumJob>(m_job, [](const auto&) { return true; });
    // what a person changed in the dialogs
    if (m_book.spectrum.parameters && std::ranges::find(jobs, *m_book.spectrum.parameters) == jobs.end()) {
      jobs.push_back(*m_book.spectrum.parameters);
    }
    for (const SpectrumJob& job : jobs) AddSpectrum(job);
    const bool bModesOfFile = std::ranges::any_of(
        m_book.spectra, [](const SpectrumChapter& chapter) { return chapter.deviation.has_value(); });
    for (SpectrumChapter& chapter : m_book.spectra) {
      if (!bModesOfFile || !chapter.IsFormed()) chapter.doubt = Doubt::OtherModes;
      if (m_book.modal.bOutdated || m_book.spectrum.bOutdated) chapter.doubt = Doubt::OldModel;
    }
  }

  void AddSpectrum(const SpectrumJob& job) {
    const double dLength = std::hypot((*job.direction)[0], (*job.direction)[1], (*job.direction)[2]);
    SpectrumChapter chapter;
    chapter.job = job;
    chapter.site = {*job.nLevel, *job.nIntensity + c_nLowestIntensity, *job.nZoneGroup, *job.nSiteClass};
    const auto curve = EvaluateDesignSpectrum(chapter.site, 0.0, *job.dDamping);
    if (!curve || !(dLength > 0.0)) return;
    chapter.curve = *curve;
    for (std::size_t d = 0; d < 3; ++d) chapter.loads.direction[d] = (*job.direction)[d] / dLength;
    chapter.horizontal = FindHorizontal(chapter.loads.direction);
    if (FormModes(chapter)) FormResponse(chapter);
    m_book.spectra.push_back(std::move(chapter));
  }

  /// The modes with the mass of the modal run, and their participation in the spectrum's own; false without them.
  bool FormModes(SpectrumChapter& chapter) const {
    const auto& file = m_book.modal.content;
    const int nModes = *chapter.job.nModes;
    if (!file || nModes > std::ssize(file->omega)) return false;
    std::vector<double> omega(file->omega.begin(), file->omega.begin() + nModes);
    std::vector<NodeField> shapes(file->shapes.begin(), file->shapes.begin() + nModes);
    if (*chapter.job.bVirtualMode) chapter.bVirtual = AddVirtualMode(omega, shapes);
    const auto form = [&](const JobCombination& combination) {
      return FormBasis(omega, shapes, m_job.nodes.size(), FormModeSettings(combination, file->bShear));
    };
    auto basis = form(chapter.job.combination);
    if (!basis) return false;
    chapter.loads.gamma = FormParticipation(*basis, chapter.loads.direction);
    if (!HaveMasses(*basis, static_cast<std::size_t>(nModes))) {
      chapter.doubt = Doubt::OtherMasses;
      basis = form(m_book.modal.parameters.value_or(ModalJob()).combination);
      if (!basis || !HaveMasses(*basis, static_cast<std::size_t>(nModes))) return false;
    }
    chapter.basis = *std::move(basis);
    return true;
  }

  bool AddVirtualMode(std::vector<double>& omega, std::vector<NodeField>& shapes) const {
    const auto file = ReadVirtualModeFile(m_book.strJobPath + std::string(suffix::c_strVirtualMode), m_job.nodes);
    if (!file || !(file->omega > 0.0)) return false;
    omega.push_back(file->omega);
    shapes.push_back(file->shape);
    return true;
  }

  void FormResponse(SpectrumChapter& chapter) {
    ModalLoads& loads = chapter.loads;
    loads.nMethod = *chapter.job.nMethod;
    loads.zeta.assign(chapter.basis.GetCount(), *chapter.job.dDamping);
    for (std::size_t i = 0; i < chapter.basis.GetCount(); ++i) {
      const auto value = EvaluateDesignSpectrum(chapter.site, chapter.basis.GetPeriod(i), loads.zeta[i]);
      loads.alpha.push_back(value ? value->dAlpha : 0.0);
    }
    chapter.baseShear = CombineBaseShear(chapter.basis, loads);
    chapter.deviation = CompareWithFile(CombineDisplacements(chapter.basis, loads));
    if (m_book.storeys && chapter.horizontal) {
      chapter.storeys = FormStoreyResponse(m_job, *m_book.storeys, chapter.basis, loads, *chapter.horizontal);
    }
  }

  [[nodiscard]] std::optional<double> CompareWithFile(const NodeField& displacements) const {
    if (!m_book.spectrum.content) return std::nullopt;
    double dLargest = 0.0, dDifference = 0.0;
    for (std::size_t n = 0; n < displacements.size(); ++n) {
      for (std::size_t d = 0; d < 3; ++d) {
        const double dFile = m_book.spectrum.content->displacements[n][d];
        dLargest = std::max(dLargest, std::abs(dFile));
        dDifference = std::max(dDifference, std::abs(dFile - displacements[n][d]));
      }
    }
    const double dDeviation = dLargest > 0.0 ? dDifference / dLargest : HUGE_VAL;
    return dDeviation <= c_dSameFile ? std::optional(dDeviation) : std::nullopt;
  }

  void CollectHistory() {
    if (!m_book.history.content || !m_book.history.parameters) return;
    const EarthquakeJob quake = WithDefaults(m_book.history.parameters->earthquake.value_or(EarthquakeJob()));
    HistoryChapter chapter;
    if (quake.nMode == 1) {
      chapter.direction = quake.obliqueAxis.value_or(Vector3{1.0, 0.0, 0.0});
      chapter.dPeak = quake.peaks[3].value_or(0.0);
    } else {
      const auto it = std::ranges::find(quake.directions, true);  // only the first is used
      if (it == quake.directions.end()) return;
      const auto d = static_cast<std::size_t>(it - quake.directions.begin());
      chapter.direction[d] = 1.0;
      chapter.dPeak = quake.peaks[d].value_or(0.0);
    }
    chapter.horizontal = FindHorizontal(chapter.direction);
    chapter.doubt = FindHistoryDoubt();
    FormPeaks(chapter);
    m_book.historyChapter = std::move(chapter);
  }

  /// Of both runs the later one stands behind the other.
  [[nodiscard]] Doubt FindHistoryDoubt() const {
    const ResultStamp *const pModal = m_book.modal.pStamp, *const pHistory = m_book.history.pStamp;
    if (m_book.history.bOutdated || m_book.modal.bOutdated) return Doubt::OldModel;
    return pModal != nullptr && pHistory != nullptr && pModal > pHistory ? Doubt::OtherModes : Doubt::None;
  }

  void FormPeaks(HistoryChapter& chapter) const {
    const HistoryResultFile& file = *m_book.history.content;
    if (!chapter.horizontal) return;
    if (m_book.storeys) chapter.storeys = FormStoreyPeaks(*m_book.storeys, file, *chapter.horizontal);
    if (file.nAssumption != 0) return;
    if (auto shear = FindHistoryShear(GetHistories(), file, *chapter.horizontal)) {
      chapter.shear = *std::move(shear);
      chapter.bOwnShear = true;
    } else if (m_book.basis) {
      chapter.shear = FormHistoryShear(*m_book.basis, file, *chapter.horizontal);
    }
  }

  void Add(Check check, const Vector3& direction) {
    check.direction = direction;
    m_book.checks.push_back(check);
  }

  void CollectChecks() {
    for (const SpectrumChapter& chapter : m_book.spectra) CheckSpectrum(chapter);
    if (m_book.basis) {
      const auto check = CheckPeriodRatio(*m_book.basis, m_book.first, CCodeLimits(m_job.report));
      if (check) Add(m_book.modal.bOutdated ? FormUnchecked(check->kind, Doubt::OldModel) : *check, {});
    }
    if (m_book.historyChapter) CheckHistory(*m_book.historyChapter);
    if (!m_book.storeys && m_book.linear.content && !m_book.linear.bOutdated) {
      m_book.checks.push_back(FormMovement(m_job, m_book.linear.content->displacements));
    }
  }

  void CheckSpectrum(const SpectrumChapter& chapter) {
    const Vector3& c = chapter.loads.direction;
    const SpectrumLevel level = {*chapter.job.nIntensity, *chapter.job.nLevel};
    const bool bStoreys = m_book.storeys && chapter.horizontal;
    if (chapter.doubt != Doubt::None) {
      if (!*chapter.job.bVirtualMode) Add(FormUnchecked(CheckKind::MassParticipation, chapter.doubt), c);
      if (!bStoreys) return Add(FormUnchecked(CheckKind::QuakeTopDisplacement, chapter.doubt), c);
      for (const Check& check : ListUncheckedStoreys(level.nLevel, chapter.doubt)) Add(check, c);
      return;
    }
    const CCodeLimits limits(m_job.report);
    if (!chapter.bVirtual) Add(CheckMassParticipation(chapter.basis, c, limits), c);
    if (!bStoreys) return Add(FormQuakeMovement(m_job, CombineDisplacements(chapter.basis, chapter.loads), c), c);
    for (const Check& check : CheckStoreys(chapter.storeys, limits, level, m_book.GetFirstPeriod())) Add(check, c);
  }

  void CheckHistory(const HistoryChapter& history) {
    const HistoryResultFile& file = *m_book.history.content;
    if (const double T1 = m_book.GetFirstPeriod(); T1 > 0.0) {
      const double dPeriods = file.nSteps * file.dTimeStep / T1;
      AddHistory(FormCheck(CheckKind::HistoryDuration, dPeriods, Limit{c_dLeastHistoryPeriods, false}, true), history,
                 history.doubt);
    }
    const double dHistory = FindPeakShear(history);
    const SpectrumChapter* const pSpectrum = FindSpectrumOf(history);
    if (pSpectrum == nullptr || dHistory <= 0.0) return;
    const Vector3& V = pSpectrum->baseShear;
    const double dSpectrum = std::hypot(V[0] * (*history.horizontal)[0], V[1] * (*history.horizontal)[1]);
    const Doubt doubt = history.doubt != Doubt::None ? history.doubt : pSpectrum->doubt;
    if (!(dSpectrum > 0.0) && doubt == Doubt::None) return;
    const double dRatio = dHistory / dSpectrum;
    AddHistory(FormCheck(CheckKind::HistoryShear, dRatio, Limit{c_dLeastHistoryShear, false}, true), history, doubt);
    Check mean = FormCheck(CheckKind::MeanHistoryShear, dRatio, Limit{c_dLeastMeanHistoryShear, false}, true);
    mean.bInformation = true;  // one record
    AddHistory(mean, history, doubt);
  }

  void AddHistory(const Check& check, const HistoryChapter& history, Doubt doubt) {
    Add(doubt == Doubt::None ? check : FormUnchecked(check.kind, doubt), history.direction);
  }

  static double FindPeakShear(const HistoryChapter& history) {
    double dPeak = 0.0;
    for (const double V : history.shear) dPeak = std::max(dPeak, std::abs(V));
    return dPeak;
  }

  /// The first spectrum along the same horizontal line.
  [[nodiscard]] const SpectrumChapter* FindSpectrumOf(const HistoryChapter& history) const {
    constexpr double c_dParallel = 1.0e-6;
    if (!history.horizontal) return nullptr;
    for (const SpectrumChapter& chapter : m_book.spectra) {
      if (!chapter.horizontal) continue;
      const auto& a = *chapter.horizontal;
      const auto& b = *history.horizontal;
      if (std::abs(a[0] * b[1] - a[1] * b[0]) < c_dParallel) return &chapter;
    }
    return nullptr;
  }

  BookData& m_book;
  const Job& m_job;
  std::string m_strMark;
};

}  // namespace

std::string BookData::GetTitle() const {
  if (job.report.strProject && !job.report.strProject->empty()) return *job.report.strProject;
  return job.strTitle.empty() ? FromFilePath(ToFilePath(strJobPath).filename()) : job.strTitle;
}

double BookData::GetFirstPeriod() const {
  return basis && basis->GetCount() > 0 ? basis->GetPeriod(first.translation.value_or(0)) : 0.0;
}

BookData CollectBook(const Job& job, const std::string& strJobPath, std::vector<JobProblem> warnings) {
  BookData book{job, strJobPath, std::move(warnings), CStamps::Read(strJobPath)};
  std::ostringstream messages, console;
  const CPlatformScope platform(messages, console);
  CCollector(book).Collect();
  book.strMessages = messages.str();
  return book;
}

}  // namespace skyframe::host
