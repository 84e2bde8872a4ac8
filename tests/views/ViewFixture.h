#pragma once

#include "platform/IEventLoop.h"
#include "support/fixtures/DocumentFixture.h"

namespace portico::test {

/// An event loop that calls out at each turn.
class TurningLoop final : public IEventLoop {
public:
  void DoEvents() override;
  void WaitForEvent() override;
  void RequestQuit() noexcept override;
  std::unique_ptr<ITimer> MakeTimer() override;

  int Turns = 0;
  std::function<void()> OnTurn;
};

/// Adds a box to show, and a loop.
class ViewFixture : public DocumentFixture {
protected:
  ViewFixture();
  ~ViewFixture() override;

  /// A look by which text is known again.
  static SelectionFormat Looks(bool italic, bool bold, std::int32_t color);
  static SelectionFormat LikeInstruction();
  static SelectionFormat LikeAutomatic();
  static SelectionFormat LikeResponse();
  static SelectionFormat LikeConfiguration();

  std::string Shown() const;
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
std::string Fragment(const std::string& escapedText);

} // namespace portico::test
