#include "ui/main/SplitPanel.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "ui/base/Tolerate.h"

#include <algorithm>
#include <cmath>

namespace portico {
namespace {

constexpr StringView HorizontalSplitName = u"HorizontalSplit";
constexpr StringView SplitPercentName = u"SplitPercent";

constexpr bool DefaultHorizontalSplit = false;
constexpr std::uint8_t DefaultSplitPercent = 50;
constexpr std::uint8_t DefaultSplitWidth = 80;

constexpr float LeastDragged = 0.1F;
constexpr float MostDragged = 0.9F;

constexpr float ToFraction(std::uint8_t percent) { return static_cast<float>(percent) / 100; }

} // namespace

std::uint8_t ToPercent(const Value& value) {
  const std::int32_t percent = value.ToLong();
  if (percent < 0 || percent > 255) HuntERR::RaiseStandard(ErrorNumber::Overflow);
  return static_cast<std::uint8_t>(percent);
}

SplitPanel::SplitPanel(ISplitArea& area) : m_area(area), m_splitter(area.Splitter()) {
  InitProperties();
  m_connections = {
      m_area.Resize().Connect([this] { UserControl_Resize(); }),
      m_splitter.MouseDown().Connect([this](const MouseEvent&) { Splitter_MouseDown(); }),
      m_splitter.MouseMove().Connect([this](const MouseEvent& mouse) {
        double x = mouse.X;
        double y = mouse.Y;
        Splitter_MouseMove(mouse.Button, mouse.Shift, x, y);
      }),
      m_splitter.MouseUp().Connect([this](const MouseEvent&) { Splitter_MouseUp(); }),
  };
}

SplitPanel::~SplitPanel() {
  m_area.Resize().Disconnect(m_connections.Resize);
  m_splitter.MouseDown().Disconnect(m_connections.Down);
  m_splitter.MouseMove().Disconnect(m_connections.Move);
  m_splitter.MouseUp().Disconnect(m_connections.Up);
}

void SplitPanel::HorizontalSplit(bool newValue) {
  m_horizontalSplit = newValue;
  ShowPointer();
  MarkChanged();
}

void SplitPanel::Control1(IPlaced* newValue) {
  m_control1 = newValue;
  MarkChanged();
}

void SplitPanel::Control2(IPlaced* newValue) {
  m_control2 = newValue;
  MarkChanged();
}

std::uint8_t SplitPanel::SplitPercent() const {
  return static_cast<std::uint8_t>(std::nearbyint(m_fraction * 100)); // halves to the even one
}

void SplitPanel::SplitPercent(std::uint8_t newValue) {
  m_fraction = ToFraction(newValue);
  MarkChanged();
}

void SplitPanel::SplitWidth(std::uint8_t newValue) {
  const double room = m_area.ScaleWidth();
  const std::int32_t width = newValue > room ? static_cast<std::int32_t>(std::nearbyint(room)) : newValue;
  if (width == m_splitWidth) return;
  m_splitWidth = width;
  LayOut();
}

void SplitPanel::InitProperties() {
  m_horizontalSplit = DefaultHorizontalSplit;
  m_fraction = ToFraction(DefaultSplitPercent);
  m_splitWidth = DefaultSplitWidth;
  ShowPointer();
  m_changed = false;
}

void SplitPanel::ReadProperties(IPropertyBag& PropBag) {
  Tolerate([&] { HorizontalSplit(PropBag.ReadProperty(HorizontalSplitName, DefaultHorizontalSplit).ToBoolean()); });
  Tolerate([&] { SplitPercent(ToPercent(PropBag.ReadProperty(SplitPercentName, DefaultSplitPercent))); });
  m_changed = false;
}

void SplitPanel::WriteProperties(IPropertyBag& PropBag) {
  PropBag.WriteProperty(HorizontalSplitName, m_horizontalSplit, DefaultHorizontalSplit);
  PropBag.WriteProperty(SplitPercentName, SplitPercent(), DefaultSplitPercent);
  m_changed = false;
}

void SplitPanel::UserControl_Resize() { LayOut(); }

void SplitPanel::Splitter_MouseDown() {
  m_splitter.BackColor(SystemWindowText);
  m_splitter.BringToFront();
}

void SplitPanel::Splitter_MouseMove(std::int32_t Button, std::int32_t, double& X, double& Y) {
  if ((Button & LeftButton) == 0) return;
  const double extent = m_horizontalSplit ? m_area.ScaleHeight() : m_area.ScaleWidth();
  if (!(extent > 0)) return; // nothing to be a share of
  double& mouse = m_horizontalSplit ? Y : X;
  mouse += (m_horizontalSplit ? m_splitter.Top() : m_splitter.Left()) - m_splitWidth;
  m_fraction = static_cast<float>(mouse / extent);
  MoveBar(mouse);
  m_fraction = std::clamp(m_fraction, LeastDragged, MostDragged);
}

void SplitPanel::Splitter_MouseUp() {
  m_splitter.BackColor(SystemButtonFace);
  LayOut();
}

void SplitPanel::MarkChanged() {
  m_changed = true;
  LayOut();
}

void SplitPanel::ShowPointer() {
  m_splitter.MousePointer(m_horizontalSplit ? SizeVerticalPointer : SizeHorizontalPointer);
}

void SplitPanel::LayOut() {
  const double width = m_area.ScaleWidth();
  const double height = m_area.ScaleHeight();
  const double room = (m_horizontalSplit ? height : width) - m_splitWidth;
  const double first = room * m_fraction;
  const double second = room * (1 - m_fraction);
  const auto place = [&](IPlaced* placed, double from, double extent) {
    if (placed == nullptr) return;
    Tolerate([&] {
      if (m_horizontalSplit) {
        placed->Move(0, from, width, extent);
      } else {
        placed->Move(from, 0, extent, height);
      }
    });
  };
  place(m_control1, 0, first);
  place(m_control2, first + m_splitWidth, second);
  place(&m_splitter, first, m_splitWidth);
}

void SplitPanel::MoveBar(double position) {
  const double left = m_horizontalSplit ? 0 : position;
  const double top = m_horizontalSplit ? position : m_splitter.Top();
  m_splitter.Move(left, top, m_splitter.Width(), m_splitter.Height());
}

} // namespace portico
