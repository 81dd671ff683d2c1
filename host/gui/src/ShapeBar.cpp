#include "skyframe/gui/ShapeBar.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "ShapeTitle.h"
#include "skyframe/qt/Font.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr int c_nAmplitudeSteps = 100;
constexpr double c_dLargestAmplitude = 0.5;  // parts of the structure's radius
constexpr int c_nUsualAmplitude = 25;
constexpr int c_nSliderWidth = 140;
constexpr double c_dLargestMagnification = 1.0e9;

host::ResultKind GetResult(host::ShapeKind kind) {
  switch (kind) {
    case host::ShapeKind::LinearState:
      return host::ResultKind::Linear;
    case host::ShapeKind::NonlinearState:
      return host::ResultKind::Nonlinear;
    default:
      return host::ResultKind::Modes;
  }
}

}  // namespace

CShapeBar::CShapeBar(CDocument& document, CStructureView& view, QWidget* pParent)
    : QToolBar(pParent), m_document(document), m_view(view) {
  setObjectName(QStringLiteral("shape_bar"));
  MakeWidgets();
  document.jobOpened.Connect([this] {
    if (m_document.GetFile() != m_strFile) m_chosen.reset();
    m_strFile = m_document.GetFile();
    m_moment.reset();
  });
  document.resultsChanged.Connect([this] { Refresh(); });
  document.OnLanguage([this] {
    setWindowTitle(ToQt(Say(texts::c_shapeBar)));
    m_label.setText(ToQt(Say(texts::c_shapeBar)) + QLatin1Char(' '));
    m_list.setToolTip(ToQt(Say(texts::c_shapeTip)));
    m_amplitudeLabel.setText(QStringLiteral("  ") + ToQt(Say(texts::c_amplitude)) + QLatin1Char(' '));
    m_amplitude.setToolTip(ToQt(Say(texts::c_amplitudeTip)));
    m_magnification.setToolTip(ToQt(Say(texts::c_magnificationTip)));
    m_animate.setText(ToQt(Say(texts::c_animate)));
    m_animate.setToolTip(ToQt(Say(texts::c_animateTip)));
    FillList();
    m_view.update();
  });
  ShowShape();
}

void CShapeBar::MakeWidgets() {
  m_list.setObjectName(QStringLiteral("shapes"));
  m_list.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  m_amplitude.setObjectName(QStringLiteral("amplitude"));
  m_amplitude.setOrientation(Qt::Horizontal);
  m_amplitude.setRange(0, c_nAmplitudeSteps);
  m_amplitude.setFixedWidth(c_nSliderWidth);
  m_magnification.setObjectName(QStringLiteral("magnification"));
  m_magnification.setPrefix(QStringLiteral("× "));
  m_magnification.setRange(0.0, c_dLargestMagnification);
  m_magnification.setDecimals(2);
  m_magnification.setKeyboardTracking(false);
  m_magnification.setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
  m_animate.setObjectName(QStringLiteral("animate"));
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_label, &m_list, &m_amplitudeLabel, &m_amplitude,
                                                                &m_magnification, &m_animate}) {
    addWidget(pWidget);
  }
  connect(&m_list, &QComboBox::currentIndexChanged, this, [this] { OnChosen(); });
  connect(&m_amplitude, &QSlider::valueChanged, this, [this](int nValue) {
    m_view.SetAmplitude(c_dLargestAmplitude * nValue / c_nAmplitudeSteps);
    ShowMagnification();
  });
  connect(&m_magnification, &QDoubleSpinBox::valueChanged, this,
          [this](double dValue) { m_view.SetMagnification(dValue); });
  connect(&m_animate, &QCheckBox::toggled, this, [this](bool bOn) { m_view.SetAnimated(bOn); });
  m_amplitude.setValue(c_nUsualAmplitude);
}

bool CShapeBar::IsOutdated(const host::DeformedShape& shape) const {
  return m_document.IsOutdated(GetSuffix(GetResult(shape.kind)));
}

int CShapeBar::FindRow(const Id& id) const {
  const auto it = std::ranges::find(m_shapes, id, [](const auto& shape) { return Id{shape.kind, shape.nMode}; });
  return it == m_shapes.end() ? 0 : static_cast<int>(it - m_shapes.begin()) + 1;
}

void CShapeBar::Refresh() {
  m_shapes.clear();
  if (m_document.IsOpen()) m_shapes = host::ReadShapes(m_document.GetJobPath(), m_document.GetJob().nodes);
  if (m_chosen) {
    const int nRow = FindRow(*m_chosen);
    const bool bStays = nRow > 0 && !IsOutdated(m_shapes[static_cast<std::size_t>(nRow) - 1]);
    if (!bStays) m_chosen.reset();
  }
  FillList();
  ShowShape();
}

void CShapeBar::FillList() {
  const QSignalBlocker blocker(m_list);
  m_list.clear();
  m_list.addItem(ToQt(Say(texts::c_noShape)));
  for (const host::DeformedShape& shape : m_shapes) {
    m_list.addItem(ToQt(FormShapeTitle(shape) + FormResultMark(m_document, GetSuffix(GetResult(shape.kind)))));
  }
  if (m_moment) m_list.addItem(ToQt(Say(texts::c_motion)));
  m_list.setCurrentIndex(m_moment ? m_list.count() - 1 : m_chosen ? FindRow(*m_chosen) : 0);
}

void CShapeBar::ShowMoment(std::optional<host::DeformedShape> moment, bool bOutdated) {
  const bool bListChanges = m_moment.has_value() != moment.has_value();
  m_moment = std::move(moment);
  m_bMomentOutdated = bOutdated;
  if (bListChanges) FillList();
  ShowShape();
}

void CShapeBar::OnChosen() {
  const int nRow = m_list.currentIndex();
  if (m_moment && nRow == m_list.count() - 1) return;
  m_chosen.reset();
  if (nRow > 0) {
    const host::DeformedShape& shape = m_shapes[static_cast<std::size_t>(nRow) - 1];
    m_chosen = Id{shape.kind, shape.nMode};
  }
  if (m_moment) {
    ShowMoment(std::nullopt);
    momentLeft.Send();
  }
  ShowShape();
}

void CShapeBar::Choose(host::ShapeKind kind) {
  if (!m_moment && m_chosen && m_chosen->kind == kind) return;
  const auto it = std::ranges::find(m_shapes, kind, &host::DeformedShape::kind);
  if (it == m_shapes.end()) return;
  m_list.setCurrentIndex(FindRow({it->kind, it->nMode}));
}

void CShapeBar::Step(int nStep) {
  const int nRow = m_list.currentIndex() + nStep;
  if (nRow >= 0 && nRow < m_list.count()) m_list.setCurrentIndex(nRow);
}

std::string CShapeBar::FormFileName() const {
  if (m_moment) return "history";
  if (!m_chosen) return "structure";
  switch (m_chosen->kind) {
    case host::ShapeKind::LinearState:
      return "linear";
    case host::ShapeKind::NonlinearState:
      return "nonlinear";
    default:
      return "mode" + std::to_string(m_chosen->nMode);
  }
}

void CShapeBar::ShowShape() {
  const int nRow = m_chosen ? FindRow(*m_chosen) : 0;
  const bool bShape = nRow > 0 || m_moment;
  std::optional<host::DeformedShape> shape = m_moment;
  if (!m_moment && bShape) shape = m_shapes[static_cast<std::size_t>(nRow) - 1];
  const bool bOutdated = m_moment ? m_bMomentOutdated : bShape && IsOutdated(*shape);
  m_view.SetShape(std::move(shape), bOutdated);
  for (QWidget* const pWidget : std::initializer_list<QWidget*>{&m_amplitude, &m_magnification, &m_animate}) {
    pWidget->setEnabled(bShape);
  }
  ShowMagnification();
}

void CShapeBar::ShowMagnification() {
  const QSignalBlocker blocker(m_magnification);
  m_magnification.setValue(m_view.GetMagnification());
}

}  // namespace skyframe::gui
