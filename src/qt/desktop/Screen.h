#pragma once

#include "platform/IForm.h"
#include "qt/forms/Form.h"
#include "qt/forms/FormBuilder.h"
#include "qt/loop/EventFilter.h"

#include <memory>
#include <vector>

namespace portico::qt {

/// The forms of the program, as windows. Needs the application object, which outlives it and every form.
class Screen final : public IForms {
public:
  /// The loop must outlive the forms.
  Screen(EventLoop& loop, RichTextFactory makeRichText);
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  /// Ends what is left of forms that were unloaded.
  ~Screen() override;

  Ref<IForm> Load(const FormDesign& design) override;
  std::vector<Ref<IForm>> Forms() const override;
  IControl* ActiveControl() const override;

  /// The window in front of all; null if none is shown.
  QWidget* FrontWindow() const;

private:
  Form* FormOf(const QWidget& widget) const;
  void HandleKey(QObject& watched, const QKeyEvent& event) const;

  EventLoop& m_loop;
  RichTextFactory m_makeRichText;
  std::shared_ptr<FormList> m_list = std::make_shared<FormList>();
  EventFilter m_filter;
};

} // namespace portico::qt
