#pragma once

namespace portico::drivers {

/// How a serial line runs, as an instrument's name gives it.
struct SerialLine {
  enum class ParityKind { None, Even, Odd };
  enum class FlowKind { None, XonXoff, RtsCts };

  /// In bits per second, not 0. Which of them a port can run at is the system's business.
  unsigned Speed = 9600;
  /// 5 to 8.
  unsigned DataBits = 8;
  ParityKind Parity = ParityKind::None;
  /// 1 or 2.
  unsigned StopBits = 1;
  FlowKind Flow = FlowKind::None;

  friend bool operator==(const SerialLine&, const SerialLine&) = default;
};

} // namespace portico::drivers
