#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <chrono>

#include "skyframe/gui/Document.h"

namespace skyframe::gui {

/// The present step of a history, which runs through time when it is played.
class CHistoryPlayer : public QWidget {
 public:
  /// The document must outlive the player.
  explicit CHistoryPlayer(CDocument& document, QWidget* pParent = nullptr);

  /// At the step, or the last one, and at rest; 0: nothing to play.
  void SetHistory(int nSteps, double dTimeStep, int nStep = 0);
  [[nodiscard]] int GetStep() const { return m_slider.value(); }
  /// To the step, from 0, or the nearest there is; it rests there.
  void GoTo(int nStep);
  [[nodiscard]] double GetTime() const { return (GetStep() + 1) * m_dTimeStep; }
  void Stop();
  [[nodiscard]] bool IsPlaying() const { return m_timer.isActive(); }
  /// Whether the drawing shows the step.
  [[nodiscard]] bool Moves() const { return m_move.isChecked(); }
  void SetMoves(bool bMoves) { m_move.setChecked(bMoves); }

  CNotice changed;  ///< the step, or whether the drawing shows it

 private:
  using Clock = std::chrono::steady_clock;

  void MakeWidgets();
  void Speak();
  void TogglePlay();
  /// From the present step, by the clock.
  void Start();
  void Advance();
  void ShowTime();

  QToolButton m_play;
  QToolButton m_toStart;
  QToolButton m_back;
  QToolButton m_on;
  QSlider m_slider;
  QLabel m_time;
  QComboBox m_speed;
  QCheckBox m_loop;
  QCheckBox m_move;
  QTimer m_timer;
  Clock::time_point m_started;
  int m_nStartStep = 0;
  double m_dTimeStep = 0.0;
};

}  // namespace skyframe::gui
