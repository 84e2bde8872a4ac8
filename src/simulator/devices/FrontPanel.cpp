#include "simulator/devices/FrontPanel.h"

#include "scpi/ScpiError.h"
#include "simulator/language/ResponseFormat.h"

#include <utility>

namespace portico::simulator {
namespace {

constexpr std::size_t LongestText = 40;

} // namespace

void FrontPanel::AddTo(CommandTree& tree) {
  static constexpr Command<FrontPanel> table[] = {
      {"DISPlay[:STATe]", &FrontPanel::SetDisplay, 1, 1},  {"DISPlay[:STATe]?", &FrontPanel::Display},
      {"DISPlay:TEXT[:DATA]", &FrontPanel::SetText, 1, 1}, {"DISPlay:TEXT[:DATA]?", &FrontPanel::Text},
      {"DISPlay:TEXT:CLEar", &FrontPanel::ClearText},
  };
  tree.Add(table, *this);
}

void FrontPanel::Reset() {
  m_on = true;
  m_text.clear();
}

void FrontPanel::SetDisplay(const Call& call) { m_on = call.Boolean(0); }

void FrontPanel::Display(const Call& /*call*/) { m_executor.Respond(FormatBoolean(m_on)); }

void FrontPanel::SetText(const Call& call) {
  std::string text = call.String(0);
  if (text.size() > LongestText) throw scpi::ScpiError(scpi::ErrorCode::TooMuchData);
  m_text = std::move(text);
}

void FrontPanel::Text(const Call& /*call*/) { m_executor.Respond(FormatString(m_text)); }

void FrontPanel::ClearText(const Call& /*call*/) { m_text.clear(); }

} // namespace portico::simulator
