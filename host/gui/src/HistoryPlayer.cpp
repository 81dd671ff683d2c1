#include "skyframe/gui/HistoryPlayer.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <array>

#include "HistoryTexts.h"
#include "skyframe/job/Text.h"
#include "skyframe/qt/Font.h"

namespace skyframe::gui {

namespace {

constexpr int c_nFramePeriod = 33;  // ms
constexpr std::array<double, 7> c_dSpeeds = {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0};
constexpr int c_nRealTime = 3;  // its place

}  // namespace

CHistoryPlayer::CHistoryPlayer(CDocument& document, QWidget* pParent)
    : QWidget(pParent), m_slider(Qt::Horizontal), m_timer(this) {
  MakeWidgets();
  m_timer.setInterval(c_nFramePeriod);
  m_timer.setTimerType(Qt::PreciseTimer);
  connect(&m_timer, &QTimer::timeout, this, [this] { Advance(); });
  connect(&m_play, &QToolButton::clicked, this, [this] { TogglePlay(); });
  connect(&m_toStart, &QToolButton::clicked, this, [this] { GoTo(0); });
  connect(&m_back, &QToolButton::clicked, this, [this] { GoTo(GetStep() - 1); });
  connect(&m_on, &QToolButton::clicked, this, [this] { GoTo(GetStep() + 1); });
  connect(&m_slider, &QSlider::actionTriggered, this, [this] {
    Stop();
    SetMoves(true);
  });
  connect(&m_slider, &QSlider::valueChanged, this, [this] {
    ShowTime();
    changed.Send();
  });
  connect(&m_speed, &QComboBox::currentIndexChanged, this, [this] {
    if (IsPlaying()) Start();
  });
  connect(&m_move, &QCheckBox::toggled, this, [this] { changed.Send(); });
  document.OnLanguage([this] { Speak(); });
  SetHistory(0, 0.0);
}

void CHistoryPlayer::MakeWidgets() {
  auto* const pLayout = new QHBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  const auto add = [pLayout](QWidget& widget, const char* pszName, int nStretch = 0) {
    widget.setObjectName(QString::fromLatin1(pszName));
    pLayout->addWidget(&widget, nStretch);
  };
  m_toStart.setIcon(style()->standardIcon(QStyle::SP_MediaSkipBackward));
  m_back.setIcon(style()->standardIcon(QStyle::SP_MediaSeekBackward));
  m_on.setIcon(style()->standardIcon(QStyle::SP_MediaSeekForward));
  m_back.setAutoRepeat(true);
  m_on.setAutoRepeat(true);
  for (const double dSpeed : c_dSpeeds) m_speed.addItem(ToQt("× " + host::Format("%g", dSpeed)));
  m_speed.setCurrentIndex(c_nRealTime);
  add(m_play, "history_play");
  add(m_toStart, "history_to_start");
  add(m_back, "history_back");
  add(m_on, "history_on");
  add(m_slider, "history_slider", 1);
  add(m_time, "history_time");
  add(m_speed, "history_speed");
  add(m_loop, "history_loop");
  add(m_move, "history_move");
}

void CHistoryPlayer::Speak() {
  m_play.setToolTip(ToQt(Say(IsPlaying() ? texts::c_pauseTip : texts::c_playTip)));
  m_play.setIcon(style()->standardIcon(IsPlaying() ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
  m_toStart.setToolTip(ToQt(Say(texts::c_toStartTip)));
  m_back.setToolTip(ToQt(Say(texts::c_stepBackTip)));
  m_on.setToolTip(ToQt(Say(texts::c_stepOnTip)));
  m_slider.setToolTip(ToQt(Say(texts::c_timeTip)));
  m_time.setToolTip(ToQt(Say(texts::c_timeTip)));
  m_speed.setToolTip(ToQt(Say(texts::c_speedTip)));
  m_loop.setText(ToQt(Say(texts::c_loop)));
  m_loop.setToolTip(ToQt(Say(texts::c_loopTip)));
  m_move.setText(ToQt(Say(texts::c_move)));
  m_move.setToolTip(ToQt(Say(texts::c_moveTip)));
  ShowTime();
}

void CHistoryPlayer::SetHistory(int nSteps, double dTimeStep, int nStep) {
  Stop();
  m_dTimeStep = dTimeStep;
  const QSignalBlocker blocker(m_slider);  // who sets a history looks at its step
  m_slider.setRange(0, std::max(nSteps - 1, 0));
  m_slider.setValue(nStep);
  setEnabled(nSteps > 0);
  ShowTime();
}

void CHistoryPlayer::ShowTime() {
  if (!isEnabled()) return m_time.clear();
  const auto format = [this](int nStep) { return host::Format("%.6g", (nStep + 1) * m_dTimeStep); };
  m_time.setText(ToQt(Say(texts::c_now, {format(GetStep()), format(m_slider.maximum())})));
}

void CHistoryPlayer::GoTo(int nStep) {
  Stop();
  m_slider.setValue(nStep);
}

void CHistoryPlayer::TogglePlay() {
  if (IsPlaying()) return Stop();
  if (GetStep() == m_slider.maximum()) m_slider.setValue(0);
  SetMoves(true);
  Start();
}

void CHistoryPlayer::Start() {
  m_started = Clock::now();
  m_nStartStep = GetStep();
  m_timer.start();
  Speak();
}

void CHistoryPlayer::Stop() {
  m_timer.stop();
  Speak();
}

void CHistoryPlayer::Advance() {
  const double dSeconds = std::chrono::duration<double>(Clock::now() - m_started).count();
  const double dSpeed = c_dSpeeds[static_cast<std::size_t>(m_speed.currentIndex())];
  const double dStep = m_nStartStep + dSpeed * dSeconds / m_dTimeStep;
  if (dStep <= m_slider.maximum()) return m_slider.setValue(static_cast<int>(dStep));
  m_slider.setValue(m_loop.isChecked() ? 0 : m_slider.maximum());
  m_loop.isChecked() ? Start() : Stop();
}

}  // namespace skyframe::gui
