#include "skyframe/gui/HistoryPanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

#include "HistoryTexts.h"
#include "SaveFile.h"
#include "ShapeTitle.h"
#include "skyframe/job/Text.h"
#include "skyframe/qt/Font.h"
#include "skyframe/results/Histories.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::gui {

namespace {

constexpr std::size_t c_nMostCurves = 24;
constexpr int c_nSwatch = 12;    // pixels
constexpr double c_dFlat = 1.8;  // width by height from which charts stand side by side

QIcon MakeSwatch(Colour colour) {
  QPixmap pixmap(c_nSwatch, c_nSwatch);
  pixmap.fill(QColor(colour.nRed, colour.nGreen, colour.nBlue));
  return QIcon(pixmap);
}

template <std::size_t n>
void FillUnits(QComboBox& box, const std::array<host::HistoryUnit, n>& units) {
  for (const host::HistoryUnit& unit : units) box.addItem(ToQt(unit.strName));
}

}  // namespace

CHistoryPanel::CHistoryPanel(CDocument& document, CShapeBar& shapes, QWidget* pParent)
    : QWidget(pParent), m_document(document), m_shapes(shapes), m_player(document) {
  auto* const pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(4, 2, 4, 2);
  MakeControls();
  MakeCharts();
  pLayout->addWidget(&m_head);
  pLayout->addWidget(&m_splitter, 1);
  pLayout->addWidget(&m_player);
  ConnectAll();
  m_document.OnLanguage([this] { Speak(); });
}

void CHistoryPanel::MakeControls() {
  auto* const pLine = new QHBoxLayout(&m_head);
  pLine->setContentsMargins(0, 0, 0, 0);
  m_state.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  pLine->addWidget(&m_state, 1);
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_showOld, &m_lengthUnit, &m_forceUnit, &m_save})
    pLine->addWidget(pWidget);
  auto* const pChoice = new QGridLayout(&m_choice);
  pChoice->setContentsMargins(0, 0, 0, 0);
  pChoice->addWidget(&m_list, 0, 0, 1, 2);
  pChoice->addWidget(&m_kind, 1, 0, 1, 2);
  pChoice->addWidget(&m_number, 2, 0);
  pChoice->addWidget(&m_add, 2, 1);
  pChoice->addWidget(&m_addSelected, 3, 0);
  pChoice->addWidget(&m_remove, 3, 1);
  pChoice->setRowStretch(0, 1);
  FillUnits(m_lengthUnit, host::c_displacementUnits);
  FillUnits(m_forceUnit, host::c_forceUnits);
  NameWidgets();
}

void CHistoryPanel::NameWidgets() {
  const std::pair<QWidget&, const char*> names[] = {
      {m_state, "history_state"},
      {m_showOld, "history_show_old"},
      {m_kind, "history_kind"},
      {m_number, "history_number"},
      {m_add, "history_add"},
      {m_addSelected, "history_add_selected"},
      {m_remove, "history_remove"},
      {m_lengthUnit, "history_length_unit"},
      {m_forceUnit, "history_force_unit"},
      {m_save, "history_save"},
      {m_list, "history_curves"},
      {m_splitter, "history_splitter"},
      {m_player, "history_player"},
  };
  for (const auto& [widget, pszName] : names) widget.setObjectName(QString::fromLatin1(pszName));
}

void CHistoryPanel::MakeCharts() {
  auto* const pCharts = new QWidget;
  m_pChartLayout = new QBoxLayout(QBoxLayout::LeftToRight, pCharts);
  m_pChartLayout->setContentsMargins(0, 0, 0, 0);
  for (CHistoryChart& chart : m_charts) {
    chart.setVisible(false);
    m_pChartLayout->addWidget(&chart);
  }
  m_splitter.addWidget(&m_choice);
  m_splitter.addWidget(pCharts);
  m_splitter.setStretchFactor(1, 1);
}

void CHistoryPanel::ConnectAll() {
  const auto onClick = [this](QPushButton& button, void (CHistoryPanel::*pAction)()) {
    connect(&button, &QPushButton::clicked, this, [this, pAction] { (this->*pAction)(); });
  };
  onClick(m_add, &CHistoryPanel::AddChosen);
  onClick(m_addSelected, &CHistoryPanel::AddSelected);
  onClick(m_remove, &CHistoryPanel::RemoveCurrent);
  onClick(m_save, &CHistoryPanel::OnSaveCurves);
  connect(&m_showOld, &QPushButton::clicked, this, [this] {
    m_bShowOld = true;
    Refresh();
  });
  connect(&m_kind, &QComboBox::currentIndexChanged, this, [this] { LimitNumber(); });
  connect(&m_lengthUnit, &QComboBox::currentIndexChanged, this, [this] { ShowCurves(); });
  connect(&m_forceUnit, &QComboBox::currentIndexChanged, this, [this] { ShowCurves(); });
  connect(&m_list, &QListWidget::itemClicked, this, [this] { SelectCurrent(); });
  auto* const pDelete = new QShortcut(QKeySequence::Delete, &m_list, this, [this] { RemoveCurrent(); });
  pDelete->setContext(Qt::WidgetShortcut);
  for (CHistoryChart& chart : m_charts) {
    chart.Connect(
        [this](double t) {
          if (const HistorySet* const pShown = GetShown())
            m_player.GoTo(static_cast<int>(std::clamp(t / pShown->dTimeStep - 0.5, 0.0, 1.0 * pShown->nSteps)));
        },
        [this](CHistoryChart::TimeRange range) {
          for (CHistoryChart& other : m_charts) other.SetTimeRange(range);
        });
  }
  m_player.changed.Connect([this] { ShowTime(); });
  m_document.stepChanged.Connect([this] {
    if (m_document.GetStep() != m_player.GetStep()) m_player.GoTo(m_document.GetStep());
  });
  m_shapes.momentLeft.Connect([this] {
    m_player.Stop();
    m_player.SetMoves(false);
  });
  m_document.resultsChanged.Connect([this] {
    m_bStale = true;
    m_player.SetMoves(false);
    RefreshSoon();
  });
  m_document.selectionChanged.Connect([this] { m_addSelected.setEnabled(!m_document.GetSelection().IsEmpty()); });
  m_soon.setSingleShot(true);
  connect(&m_soon, &QTimer::timeout, this, [this] {
    // A panel behind others counts as visible; a region is seen only of the one before.
    if (m_bStale && !visibleRegion().isEmpty()) Refresh();
  });
}

void CHistoryPanel::Speak() {
  const auto say = [](QPushButton& button, const host::Words& text, const host::Words& tip) {
    button.setText(ToQt(Say(text)));
    button.setToolTip(ToQt(Say(tip)));
  };
  say(m_showOld, texts::c_showAnyway, texts::c_showAnywayTip);
  say(m_add, texts::c_addCurve, texts::c_addCurveTip);
  say(m_addSelected, texts::c_addSelected, texts::c_addSelectedTip);
  say(m_remove, texts::c_removeCurve, texts::c_removeCurveTip);
  say(m_save, texts::c_saveCurves, texts::c_saveCurvesTip);
  m_kind.setToolTip(ToQt(Say(texts::c_curveKindTip)));
  m_number.setToolTip(ToQt(Say(texts::c_curveNumberTip)));
  m_lengthUnit.setToolTip(ToQt(Say(texts::c_lengthUnitTip)));
  m_forceUnit.setToolTip(ToQt(Say(texts::c_forceUnitTip)));
  m_list.setToolTip(ToQt(Say(texts::c_curveListTip)));
  FillKinds();
  if (!m_bStale) Refresh();
}

void CHistoryPanel::FillKinds() {
  const QSignalBlocker blocker(m_kind);
  const int nChosen = std::max(m_kind.currentIndex(), 0);
  m_kind.clear();
  for (const host::Words& name : texts::c_curveKindNames) m_kind.addItem(ToQt(Say(name)));
  m_kind.setCurrentIndex(nChosen);
}

void CHistoryPanel::paintEvent(QPaintEvent* /*pEvent*/) {
  if (m_bStale) RefreshSoon();
}

void CHistoryPanel::RefreshSoon() { m_soon.start(); }

void CHistoryPanel::resizeEvent(QResizeEvent* /*pEvent*/) {
  m_pChartLayout->setDirection(width() > c_dFlat * height() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void CHistoryPanel::hideEvent(QHideEvent* /*pEvent*/) { m_player.Stop(); }

bool CHistoryPanel::IsOutdated() {
  const bool bFromFile = m_document.IsOpen() && m_document.GetSession().GetHistories().nSteps == 0;
  return bFromFile && m_document.IsOutdated(suffix::c_strHistory);
}

const HistorySet* CHistoryPanel::GetShown() {
  if (m_bStale || (IsOutdated() && !m_bShowOld)) return nullptr;
  const HistorySet* const pHistory = m_document.GetHistories();
  return pHistory != nullptr && CanDraw(*pHistory) ? pHistory : nullptr;
}

void CHistoryPanel::Refresh() {
  m_bStale = false;
  m_list.clear();
  const bool bOtherJob = std::exchange(m_strFile, m_document.GetFile()) != m_document.GetFile();
  if (bOtherJob) {
    m_curves.clear();
    m_bShowOld = false;
  }
  const HistorySet* const pShown = GetShown();
  const double dEnd = pShown != nullptr ? pShown->nSteps * pShown->dTimeStep : 0.0;
  if (std::exchange(m_dEnd, dEnd) != dEnd || bOtherJob) {
    for (CHistoryChart& chart : m_charts) chart.SetTimeRange(std::nullopt);  // it might lie beyond the end
  }
  m_player.SetHistory(pShown != nullptr ? pShown->nSteps : 0, pShown != nullptr ? pShown->dTimeStep : 0.0,
                      m_document.GetStep());
  m_dLargest = pShown != nullptr ? host::MeasureMotion(*pShown) : 0.0;
  if (pShown != nullptr && m_curves.empty()) m_curves = {FindLargestCurve(*pShown)};
  ShowState();
  LimitNumber();
  ShowCurves();
}

void CHistoryPanel::ShowState() {
  const HistorySet* const pShown = GetShown();
  const bool bOld = IsOutdated();
  m_showOld.setVisible(bOld && !m_bShowOld);
  std::string strState(Say(bOld ? texts::c_oldHistories : texts::c_noHistories));
  if (pShown != nullptr) {
    strState = host::DescribeHistory(*pShown);
    if (pShown->baseShear.GetRows() == 0) strState += "   " + std::string(Say(texts::c_noShear));
    if (bOld) strState += FormOutdatedMark();
  }
  m_state.setText(ToQt(strState));
  m_state.setToolTip(ToQt(strState));
  for (QWidget* const pWidget :
       std::initializer_list<QWidget*>{&m_kind, &m_number, &m_add, &m_remove, &m_lengthUnit, &m_forceUnit, &m_save}) {
    pWidget->setEnabled(pShown != nullptr);
  }
  m_addSelected.setEnabled(pShown != nullptr && !m_document.GetSelection().IsEmpty());
}

CurveKind CHistoryPanel::GetKind() const { return c_curveKinds[static_cast<std::size_t>(m_kind.currentIndex())]; }

CurveUnits CHistoryPanel::GetUnits() const {
  return {host::c_displacementUnits[static_cast<std::size_t>(m_lengthUnit.currentIndex())],
          host::c_forceUnits[static_cast<std::size_t>(m_forceUnit.currentIndex())]};
}

void CHistoryPanel::LimitNumber() {
  if (!m_document.IsOpen()) return;
  const host::Job& job = m_document.GetJob();
  const CurveGroup group = CurveId{GetKind()}.GetGroup();
  const HistorySet* const pShown = GetShown();
  m_number.setVisible(group != CurveGroup::BaseShear);
  m_add.setEnabled(pShown != nullptr && HasCurve(*pShown, {GetKind()}));
  if (group == CurveGroup::AxialForce) {
    m_number.setRange(1, std::max(static_cast<int>(job.elements.size()), 1));
  } else if (group == CurveGroup::Displacement && !job.nodes.empty()) {
    const auto [least, most] = std::ranges::minmax_element(job.nodes, {}, &host::JobNode::nId);
    m_number.setRange(least->nId, most->nId);
  }
}

std::vector<CurveId> CHistoryPanel::FindCurves(CurveGroup group) const {
  std::vector<CurveId> found;
  std::ranges::copy_if(m_curves, std::back_inserter(found),
                       [group](const CurveId& curve) { return curve.GetGroup() == group; });
  return found;
}

void CHistoryPanel::ShowCurves() {
  const HistorySet* const pShown = GetShown();
  std::erase_if(m_curves, [pShown](const CurveId& curve) { return pShown != nullptr && !HasCurve(*pShown, curve); });
  const int nChosen = m_list.currentRow();
  m_list.clear();
  for (const CurveGroup group : c_curveGroups) {
    CHistoryChart& chart = m_charts[static_cast<std::size_t>(group)];
    const std::vector<CurveId> curves = pShown != nullptr ? FindCurves(group) : std::vector<CurveId>();
    chart.setVisible(!curves.empty());
    if (curves.empty()) continue;
    chart.SetPicture(FormPicture(m_document.GetJob(), *pShown, group, curves, GetUnits()));
    for (std::size_t c = 0; c < curves.size(); ++c) {
      m_list.addItem(new QListWidgetItem(MakeSwatch(host::GetCurveColour(c)), QString()));
    }
  }
  m_list.setCurrentRow(std::min(nChosen, m_list.count() - 1));
  ShowTime();
}

void CHistoryPanel::ShowTime() {
  for (CHistoryChart& chart : m_charts) chart.SetCursor(m_player.GetTime());
  const HistorySet* const pShown = GetShown();
  const int nStep = pShown != nullptr ? std::min(m_player.GetStep(), pShown->nSteps - 1) : 0;
  if (pShown != nullptr) {
    ShowValues(*pShown, nStep);
    m_document.SetStep(nStep);
  }
  if (pShown == nullptr || !m_player.Moves()) return m_shapes.ShowMoment(std::nullopt);
  host::DeformedShape moment = host::FormMoment(*pShown, nStep, m_dLargest);
  if (moment.FindUndrawableNode()) return m_shapes.ShowMoment(std::nullopt);
  m_shapes.ShowMoment(std::move(moment), IsOutdated());
}

void CHistoryPanel::ShowValues(const HistorySet& shown, int nStep) {
  const CurveUnits units = GetUnits();
  for (int nRow = 0; nRow < m_list.count(); ++nRow) {
    const CurveId& curve = m_curves[static_cast<std::size_t>(nRow)];
    const host::HistoryUnit& unit = units.Get(curve.GetGroup());
    const std::string strValue = host::Format("%.4g ", unit.dFactor * ReadValue(shown, curve, nStep));
    m_list.item(nRow)->setText(ToQt(NameCurve(m_document.GetJob(), curve) + "   " + strValue) + ToQt(unit.strName));
  }
}

void CHistoryPanel::AddCurve(const CurveId& curve) {
  const HistorySet* const pShown = GetShown();
  if (pShown == nullptr || !HasCurve(*pShown, curve) || std::ranges::find(m_curves, curve) != m_curves.end()) return;
  if (m_curves.size() == c_nMostCurves)
    return m_state.setText(ToQt(Say(texts::c_tooMany, {std::to_string(c_nMostCurves)})));
  m_curves.push_back(curve);
  std::ranges::stable_sort(m_curves, {}, &CurveId::GetGroup);
}

void CHistoryPanel::AddChosen() {
  CurveId curve{GetKind()};
  if (curve.GetGroup() == CurveGroup::AxialForce) curve.nIndex = m_number.value() - 1;
  if (curve.GetGroup() == CurveGroup::Displacement) {
    const auto& nodes = m_document.GetJob().nodes;
    const auto it = std::ranges::find(nodes, m_number.value(), &host::JobNode::nId);
    if (it == nodes.end()) return m_number.selectAll();
    curve.nIndex = static_cast<int>(it - nodes.begin());
  }
  AddCurve(curve);
  ShowCurves();
}

void CHistoryPanel::AddSelected() {
  const CurveKind kind = CurveId{GetKind()}.GetGroup() == CurveGroup::Displacement ? GetKind() : CurveKind::X;
  for (const int nNode : m_document.GetSelection().nodes) AddCurve({kind, nNode});
  for (const int nElement : m_document.GetSelection().elements) AddCurve({CurveKind::AxialForce, nElement});
  ShowCurves();
}

void CHistoryPanel::RemoveCurrent() {
  if (m_list.currentRow() < 0) return;
  m_curves.erase(m_curves.begin() + m_list.currentRow());
  ShowCurves();
}

void CHistoryPanel::SelectCurrent() {
  if (m_list.currentRow() < 0) return;
  const CurveId& curve = m_curves[static_cast<std::size_t>(m_list.currentRow())];
  Selection selection;
  if (curve.GetGroup() == CurveGroup::Displacement) selection.nodes = {curve.nIndex};
  if (curve.GetGroup() == CurveGroup::AxialForce) selection.elements = {curve.nIndex};
  if (!selection.IsEmpty()) m_document.Select(std::move(selection));
}

void CHistoryPanel::OnSaveCurves() {
  constexpr FileKind c_kind = {texts::c_csvTitle, texts::c_csvFilter, "csv"};
  const QString strFile = AskForFile(this, c_kind, ToQt(m_document.GetJobPath() + "_curves.csv"));
  const HistorySet* const pShown = GetShown();
  if (strFile.isEmpty() || pShown == nullptr) return;
  WriteText(strFile, FormCsv(m_document.GetJob(), *pShown, m_curves, GetUnits()), texts::c_csvFailed);
}

}  // namespace skyframe::gui
