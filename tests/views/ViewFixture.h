#pragma once

#include "platform/IEventLoop.h"
#include "support/fixtures/DocumentFixture.h"

namespace portico::test {

/// An event loop that calls out at each turn.
class TurningLoop final : public IEventLoop {
public:
  void DoEvents() override {
    ++Turns;
    if (OnTurn) OnTurn();
  }
  void WaitForEvent() override { DoEvents(); }
  void RequestQuit() noexcept override {}
  std::unique_ptr<ITimer> MakeTimer() override { return {}; }

  int Turns = 0;
  std::function<void()> OnTurn;
};

/// Adds a box to show, and a loop.
class ViewFixture : public DocumentFixture {
protected:
  ViewFixture() { gEventLoop = Loop; }
  ~ViewFixture() override { gEventLoop.reset(); }

  /// A look by which text is known again.
  static SelectionFormat Looks(bool italic, bool bold, std::int32_t color) {
    SelectionFormat format;
    format.SelItalic = italic;
    format.SelBold = bold;
    format.SelColor = color;
    return format;
  }
  static SelectionFormat LikeInstruction() { return Looks(false, true, 0); }
  static SelectionFormat LikeAutomatic() { return Looks(false, true, 0xFF0000); }
  static SelectionFormat LikeResponse() { return Looks(true, false, 0); }
  static SelectionFormat LikeConfiguration() { return Looks(false, false, 0x00FF00); }

  std::string Shown() const { return Escaped(Box->Contents()); }
  /// The calls that `act` makes of the display, without those that read.
  template <class Act>
  List WritesOf(Act&& act) {
    Calls.clear();
    act();
    return TakeWrites();
  }

  std::shared_ptr<TurningLoop> Loop = std::make_shared<TurningLoop>();
  Ref<RecordingTextBox> Box = New<RecordingTextBox>(Calls);
};

/// What is written when an encoder shows an entity: all thirteen values, then the fragment.
inline std::string Fragment(const std::string& escapedText) {
  return "SelRTF {\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " + escapedText + "\\par }\\r\\n";
}

} // namespace portico::test
