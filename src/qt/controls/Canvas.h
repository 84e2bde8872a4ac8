#pragma once

#include "platform/ICanvas.h"
#include "qt/controls/Control.h"

#include <functional>
#include <memory>

namespace portico::qt {

/// The widget of a canvas.
class CanvasWidget final : public QWidget {
public:
  explicit CanvasWidget(QWidget* parent = nullptr);

  /// What is painted, over the whole of the widget.
  std::function<void(QPainter&)> Painting;

protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A canvas, in the colours of its palette.
class Canvas final : public TabStopControl, public Placed, public virtual ICanvas {
public:
  Canvas(const ControlDesign& design, std::shared_ptr<FormLife> life, CanvasWidget& widget);
  ~Canvas() override { m_canvas.Painting = nullptr; }

  void Show(Drawing newValue) override;
  void Describe(const String& name, const String& description) override;
  double ExtentOf(StringView text) const override;
  double LineHeight() const override;
  Event<const MouseEvent&>& MouseDown() override { return m_mouse.Down; }
  Event<const MouseEvent&>& MouseMove() override { return m_mouse.Move; }
  Event<const MouseEvent&>& MouseUp() override { return m_mouse.Up; }
  Event<const MouseEvent&, double>& Wheel() override { return m_wheel; }
  Event<std::int32_t, std::int32_t>& KeyDown() override { return m_keyDown; }

private:
  QRect Place() const override { return m_canvas.geometry(); }
  void Put(const QRect& place) override { m_canvas.setGeometry(place); }
  bool Handle(QEvent& event);
  bool HandleKey(const QKeyEvent& event);
  void HandleWheel(const QWheelEvent& event);
  void Paint(QPainter& painter) const;

  CanvasWidget& m_canvas;
  Drawing m_drawing;
  std::unique_ptr<QObject> m_filter;
  MouseEvents m_mouse;
  Event<const MouseEvent&, double> m_wheel;
  Event<std::int32_t, std::int32_t> m_keyDown;
};

} // namespace portico::qt
