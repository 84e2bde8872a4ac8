#pragma once

#include "support/doubles/WindowDouble.h"
#include "ui/base/IMainFormParts.h"

namespace portico::test {

/// A main window of nothing but its two text boxes and a button, on a form of the platform. It subscribes a logger as
/// the real one does.
class MainFormDouble final : public WindowDouble, public IMainFormParts {
public:
  /// The journal must outlive the window.
  explicit MainFormDouble(Journal& journal);
  StringView ClassName() const override;

  std::int32_t MousePointer() const override;
  void MousePointer(std::int32_t shape) override;

  IForm& Form() override;
  Ref<IRichTextControl> txtFuture() const override;
  Ref<IRichTextControl> txtPast() const override;
  Ref<ISubscriber> Logger() const override;
  void Logger(const Ref<ISubscriber>& newValue) override;

  /// Before the logger is set; may raise.
  std::function<void()> OnLogger;

private:
  Ref<IRichTextControl> Box(StringView name) const;

  Ref<IForm> m_form;
  Ref<ISubscriber> m_logger;
};

} // namespace portico::test
