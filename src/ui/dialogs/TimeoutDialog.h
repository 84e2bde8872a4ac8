#pragma once

#include "ui/dialogs/DialogForm.h"

#include <cstdint>
#include <optional>

namespace portico {

/// Asks how long the driver may take for each call, and begins with what is kept. What is no time-out is refused in a
/// message box, and the dialog stays.
class TimeoutDialog final : public DialogForm {
public:
  TimeoutDialog();
  StringView ClassName() const override { return u"TimeoutDialog"; }

  void Form_Initialize() override;
  /// None if the user has cancelled, by whatever road.
  std::optional<std::int32_t> Milliseconds() const { return m_milliseconds; }

private:
  void Form_Load() override;
  void Accept();

  std::optional<std::int32_t> m_milliseconds;
};

} // namespace portico
