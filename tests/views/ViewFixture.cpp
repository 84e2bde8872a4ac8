#include "views/ViewFixture.h"

namespace portico::test {

void TurningLoop::DoEvents() {
  ++Turns;
  if (OnTurn) OnTurn();
}

void TurningLoop::WaitForEvent() { DoEvents(); }

void TurningLoop::RequestQuit() noexcept {}

std::unique_ptr<ITimer> TurningLoop::MakeTimer() { return {}; }

ViewFixture::ViewFixture() { gEventLoop = Loop; }

ViewFixture::~ViewFixture() { gEventLoop.reset(); }

SelectionFormat ViewFixture::Looks(bool italic, bool bold, std::int32_t color) {
  SelectionFormat format;
  format.SelItalic = italic;
  format.SelBold = bold;
  format.SelColor = color;
  return format;
}

SelectionFormat ViewFixture::LikeInstruction() { return Looks(false, true, 0); }

SelectionFormat ViewFixture::LikeAutomatic() { return Looks(false, true, 0xFF0000); }

SelectionFormat ViewFixture::LikeResponse() { return Looks(true, false, 0); }

SelectionFormat ViewFixture::LikeConfiguration() { return Looks(false, false, 0x00FF00); }

std::string ViewFixture::Shown() const { return Escaped(Box->Contents()); }

std::string Fragment(const std::string& escapedText) {
  return "SelRTF {\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " + escapedText + "\\par }\\r\\n";
}

} // namespace portico::test
