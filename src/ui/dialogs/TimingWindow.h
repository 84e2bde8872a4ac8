#pragma once

#include "platform/IEventLoop.h"
#include "timing/QueryTimes.h"
#include "ui/dialogs/DialogForm.h"

#include <memory>

namespace portico {

/// Shows what queries took, as `timing::gTimedDriver` has it, and follows it as long as it is open. While it is shut
/// nothing is computed.
class TimingWindow final : public DialogForm {
public:
  TimingWindow();
  StringView ClassName() const override { return u"TimingWindow"; }

  void Form_Initialize() override;

  /// Opens the one window, or brings it to the front.
  static void Open(IForm& owner);

private:
  struct Rows;

  void Form_Load() override;
  void Follow();
  void Forget();

  std::shared_ptr<Rows> m_rows;
  std::unique_ptr<ITimer> m_timer;
};

} // namespace portico
