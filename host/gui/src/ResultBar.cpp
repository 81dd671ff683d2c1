#include "skyframe/gui/ResultBar.h"

#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <set>

#include "ShapeTitle.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/qt/Font.h"
#include "skyframe/run/AnalysisRun.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr std::array<host::ResultKind, 4> c_kinds = {host::ResultKind::Linear, host::ResultKind::Nonlinear,
                                                     host::ResultKind::Spectrum, host::ResultKind::History};
constexpr int c_nUsualSize = 20;  // slider steps of the usual size
constexpr int c_nLargestSize = 100;
constexpr int c_nSliderWidth = 90;

constexpr int c_nNoLoads = 0;  // first entry of the list of loads

/// Nothing for the first entry of a list, "none".
std::optional<host::MemberQuantity> GetQuantity(const QComboBox& list, int nFirst) {
  if (list.currentIndex() < nFirst) return std::nullopt;
  return static_cast<host::MemberQuantity>(list.currentIndex() - nFirst);
}

void FillAgain(QComboBox& list, const QStringList& texts) {
  const QSignalBlocker blocker(list);
  const int nRow = list.currentIndex();
  list.clear();
  list.addItems(texts);
  list.setCurrentIndex(nRow >= 0 && nRow < list.count() ? nRow : 0);
}

/// Cases, in order, that have loads.
std::set<int> ListCases(const host::Job& job) {
  std::set<int> cases;
  for (const host::JobLoad& load : job.loads) {
    if (load.dValue != 0.0) cases.insert(load.nCase);
  }
  return cases;
}

const host::JobCombination& GetCombination(const host::JobAnalysis& analysis) {
  return std::visit([](const auto& a) -> const host::JobCombination& { return a.combination; }, analysis);
}

/// Equal for combinations that make the same loads for the same analysis.
std::string NameCombination(const host::JobAnalysis& analysis, const host::JobCombination& combination) {
  const host::CLanguageScope english(host::Language::English);
  std::string strName(host::GetName(analysis));
  for (const auto& [nCase, dFactor] : combination) {
    strName += " " + std::to_string(nCase) + "*" + FormatShortest(dFactor);
  }
  return strName;
}

}  // namespace

CResultBar::CResultBar(CDocument& document, CStructureView& view, QWidget* pParent)
    : QToolBar(pParent), m_document(document), m_view(view) {
  setObjectName(QStringLiteral("result_bar"));
  MakeWidgets();
  m_document.jobOpened.Connect([this] { FillLoads(); });
  m_document.analysesChanged.Connect([this] { FillLoads(); });
  m_document.resultsChanged.Connect([this] { FillSources(); });
  m_document.stepChanged.Connect([this] {
    if (GetSource() == host::ResultKind::History) ShowForces();
  });
  m_document.OnLanguage([this] { Speak(); });
}

void CResultBar::MakeWidgets() {
  m_sources.setObjectName(QStringLiteral("force_source"));
  m_diagram.setObjectName(QStringLiteral("diagram"));
  m_size.setObjectName(QStringLiteral("diagram_size"));
  m_colours.setObjectName(QStringLiteral("colours"));
  m_reactions.setObjectName(QStringLiteral("reactions"));
  m_loads.setObjectName(QStringLiteral("load_choice"));
  m_size.setOrientation(Qt::Horizontal);
  m_size.setRange(1, c_nLargestSize);
  m_size.setValue(c_nUsualSize);
  m_size.setFixedWidth(c_nSliderWidth);
  for (QComboBox* const pList : {&m_sources, &m_diagram, &m_colours, &m_loads}) {
    pList->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  }
  for (QWidget* const pWidget :
       std::initializer_list<QWidget*>{&m_sourceLabel, &m_sources, &m_diagramLabel, &m_diagram, &m_size, &m_colourLabel,
                                       &m_colours, &m_reactions, &m_loadLabel, &m_loads}) {
    addWidget(pWidget);
  }
  connect(&m_sources, &QComboBox::activated, this, [this](int nRow) {
    m_source = static_cast<host::ResultKind>(m_sources.itemData(nRow).toInt());
    ShowForces();
  });
  for (QComboBox* const pList : {&m_diagram, &m_colours}) {
    connect(pList, &QComboBox::currentIndexChanged, this, [this] { ShowForces(); });
  }
  connect(&m_size, &QSlider::valueChanged, this, [this] { ShowForces(); });
  connect(&m_reactions, &QCheckBox::toggled, this, [this] { ShowForces(); });
  connect(&m_loads, &QComboBox::currentIndexChanged, this, [this] { ShowLoads(); });
}

void CResultBar::Speak() {
  setWindowTitle(ToQt(Say(texts::c_resultBar)));
  const auto label = [](QLabel& words, const host::Words& text) {
    words.setText(QStringLiteral(" ") + ToQt(Say(text)) + QLatin1Char(' '));
  };
  label(m_sourceLabel, texts::c_forceSource);
  label(m_diagramLabel, texts::c_diagram);
  label(m_colourLabel, texts::c_colours);
  label(m_loadLabel, texts::c_loadChoice);
  m_sources.setToolTip(ToQt(Say(texts::c_forceSourceTip)));
  m_diagram.setToolTip(ToQt(Say(texts::c_diagramTip)));
  m_size.setToolTip(ToQt(Say(texts::c_diagramSizeTip)));
  m_colours.setToolTip(ToQt(Say(texts::c_coloursTip)));
  m_reactions.setText(ToQt(Say(texts::c_reactions)));
  m_reactions.setToolTip(ToQt(Say(texts::c_reactionsTip)));
  m_loads.setToolTip(ToQt(Say(texts::c_loadChoiceTip)));
  QStringList quantities;
  for (const std::string_view strQuantity : host::c_strMemberQuantities) quantities << ToQt(strQuantity);
  const QString strNone = ToQt(Say(texts::c_none));
  FillAgain(m_diagram, QStringList{strNone} + quantities.mid(0, host::c_nForceComponents));
  FillAgain(m_colours, QStringList{strNone, ToQt(Say(texts::c_displacement))} + quantities);
  FillSources();
  FillLoads();
}

void CResultBar::FillSources() {
  {
    const QSignalBlocker blocker(m_sources);
    m_sources.clear();
    for (const host::ResultKind kind : c_kinds) {
      if (!m_document.HasResult(kind)) continue;
      const bool bOutdated = m_document.IsOutdated(GetSuffix(kind));
      m_sources.addItem(ToQt(FormResultTitle(kind) + FormResultMark(m_document, GetSuffix(kind))),
                        static_cast<int>(kind));
      if (m_source == kind && bOutdated) m_source.reset();  // until it is asked for
    }
    if (m_source) m_sources.setCurrentIndex(m_sources.findData(static_cast<int>(*m_source)));
  }
  ShowForces();
}

void CResultBar::ChooseSource(host::ResultKind kind) {
  m_source = kind;
  FillSources();
}

std::optional<host::ResultKind> CResultBar::GetSource() const {
  if (m_source && m_document.HasResult(*m_source)) return m_source;
  for (const host::ResultKind kind : c_kinds) {
    if (m_document.HasResult(kind) && !m_document.IsOutdated(GetSuffix(kind))) return kind;
  }
  return std::nullopt;
}

void CResultBar::ShowForces() {
  constexpr int c_nDisplacement = 1;
  m_view.SetShapeColours(m_colours.currentIndex() == c_nDisplacement);
  DrawnForces drawn;
  drawn.diagram = GetQuantity(m_diagram, 1);
  drawn.colours = GetQuantity(m_colours, c_nDisplacement + 1);
  drawn.bReactions = m_reactions.isChecked();
  drawn.dDiagramFactor = static_cast<double>(m_size.value()) / c_nUsualSize;
  m_size.setEnabled(drawn.diagram.has_value());
  const std::optional<host::ResultKind> kind = GetSource();
  if (!kind || (!drawn.diagram && !drawn.colours && !drawn.bReactions)) return m_view.SetForces(std::nullopt);
  const host::StructureForces* const pForces = m_document.GetForces(*kind);
  if (pForces == nullptr) return m_view.SetForces(std::nullopt);
  drawn.forces = *pForces;
  drawn.kind = *kind;
  drawn.strTitle = FormResultTitle(*kind);
  if (*kind == host::ResultKind::History) {
    const double t = (m_document.GetStep() + 1) * m_document.GetHistories()->dTimeStep;
    drawn.strTitle += host::Format("   t = %.6g s", t);
  }
  drawn.bOutdated = m_document.IsOutdated(GetSuffix(*kind));
  m_view.SetForces(std::move(drawn));
}

void CResultBar::FillLoads() {
  {
    const QSignalBlocker blocker(m_loads);
    const QString strChosen = m_loads.currentData().toString();
    m_loads.clear();
    for (LoadChoice& choice : ListLoads()) m_loads.addItem(choice.strText, choice.strId);
    const bool bSameFile = m_strFile == m_document.GetFile();
    m_loads.setCurrentIndex(bSameFile ? std::max(m_loads.findData(strChosen), 0) : 0);
    m_strFile = m_document.GetFile();
  }
  ShowLoads();
}

std::vector<CResultBar::LoadChoice> CResultBar::ListLoads() const {
  std::vector<LoadChoice> choices = {{ToQt(Say(texts::c_none)), QStringLiteral("none"), std::nullopt, {}},
                                     {ToQt(Say(texts::c_allCases)), QStringLiteral("all"), std::nullopt, {}}};
  if (!m_document.IsOpen()) return choices;
  for (const int nCase : ListCases(m_document.GetJob())) {
    const std::string strCase = std::to_string(nCase);
    choices.push_back({ToQt(Say(texts::c_loadCase, {strCase})), ToQt("case " + strCase), nCase, {}});
  }
  for (const host::JobAnalysis& analysis : m_document.GetJob().analyses) {
    const host::JobCombination& combination = GetCombination(analysis);
    choices.push_back({ToQt(Say(texts::c_combinationOf, {host::GetName(analysis)})),
                       ToQt(NameCombination(analysis, combination)), std::nullopt, combination});
  }
  return choices;
}

void CResultBar::ShowLoads() {
  const std::vector<host::SceneLoad>& loads = m_view.GetScene().GetLoads();
  const int nRow = m_loads.currentIndex();
  if (!m_document.IsOpen() || nRow <= c_nNoLoads) return m_view.SetLoads({});
  const LoadChoice choice = ListLoads()[static_cast<std::size_t>(nRow)];
  m_view.SetLoads(choice.combination ? host::CombineLoads(loads, *choice.combination)
                                     : host::SelectLoads(loads, choice.nCase));
}

std::string CResultBar::FormFileName() const {
  const auto& forces = m_view.GetForces();
  if (!forces) return "";
  std::string strName(host::c_strResultKinds[static_cast<std::size_t>(forces->kind)]);
  for (const auto& quantity : {forces->diagram, forces->colours}) {
    if (quantity) strName += "_" + std::string(host::c_strMemberQuantities[static_cast<std::size_t>(*quantity)]);
  }
  return strName + (forces->bReactions ? "_reactions" : "");
}

}  // namespace skyframe::gui
