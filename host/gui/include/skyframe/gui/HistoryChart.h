#pragma once

#include <QPointF>
#include <QWidget>
#include <functional>
#include <optional>

#include "skyframe/plot/Pictures.h"

namespace skyframe::gui {

/// Curves over time. A click tells the time under it; the wheel zooms the time, with Ctrl the values; a frame drawn
/// with the left button is enlarged, the others move, a double click shows all.
class CHistoryChart : public QWidget {
 public:
  using TimeRange = std::optional<host::ChartRange>;

  explicit CHistoryChart(QWidget* pParent = nullptr);

  /// What a person does; a range of time holds for all charts.
  void Connect(std::function<void(double)> onTime, std::function<void(TimeRange)> onTimeRange);
  /// With a curve or more; shows all values, and keeps time and cursor.
  void SetPicture(host::HistoryPicture picture);
  void SetCursor(double t);
  void SetTimeRange(TimeRange range);
  [[nodiscard]] const host::HistoryPicture& GetPicture() const { return m_picture; }

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* pEvent) override;
  void mousePressEvent(QMouseEvent* pEvent) override;
  void mouseMoveEvent(QMouseEvent* pEvent) override;
  void mouseReleaseEvent(QMouseEvent* pEvent) override;
  void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
  void wheelEvent(QWheelEvent* pEvent) override;

 private:
  /// Pixels of the widget by one of the picture, whose texts are made for a font of usual size.
  [[nodiscard]] double GetScale() const;
  [[nodiscard]] host::PictureSize GetSheet() const;
  [[nodiscard]] host::CChartFrame FormFrame() const;
  /// With nothing zoomed.
  [[nodiscard]] host::CChartFrame FormWholeFrame() const;
  /// Time and value under a place of the widget.
  [[nodiscard]] PaintPoint FindData(QPointF at) const;
  [[nodiscard]] bool IsBand() const;
  void ZoomToBand();
  void Pan(QPointF from, QPointF to);
  /// Tells all charts; one that holds all of the time is none.
  void TellTimeRange(double dLow, double dHigh);
  void SetValueRange(double dLow, double dHigh);

  host::HistoryPicture m_picture;
  std::function<void(double)> m_onTime;
  std::function<void(TimeRange)> m_onTimeRange;
  QPointF m_pressed;
  QPointF m_mouse;
  bool m_bDrawsBand = false;
};

}  // namespace skyframe::gui
