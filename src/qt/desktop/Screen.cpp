#include "qt/desktop/Screen.h"

#include "qt/loop/HandlerTurn.h"

#include <QApplication>
#include <QMenuBar>

#include <algorithm>
#include <utility>
#include <vector>

namespace portico::qt {

Screen::Screen(EventLoop& loop, RichTextFactory makeRichText)
    : m_loop(loop), m_makeRichText(std::move(makeRichText)), m_filter(*qApp, [this](QObject& watched, QEvent& event) {
        if (event.type() == QEvent::KeyPress) HandleKey(watched, static_cast<QKeyEvent&>(event));
        return false;
      }) {
  // So that the control that had the focus is known although a menu has it now.
  QObject::connect(qApp, &QApplication::focusChanged, &m_filter, [this](QWidget* /*old*/, const QWidget* now) {
    if (now == nullptr) return;
    if (Form* form = FormOf(*now)) form->ActiveControl();
  });
}

Screen::~Screen() {
  m_list->Loaded.clear();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Ref<IForm> Screen::Load(const FormDesign& design) {
  auto form = std::make_shared<Form>(design, BuildForm(design, m_makeRichText), m_list, m_loop);
  m_list->Loaded.push_back(form);
  return Ref<IForm>(form);
}

std::vector<Ref<IForm>> Screen::Forms() const {
  std::vector<Ref<IForm>> forms;
  for (const auto& form : m_list->Loaded) forms.emplace_back(std::shared_ptr<IForm>(form));
  return forms;
}

IControl* Screen::ActiveControl() const {
  return m_list->Shown.empty() ? nullptr : m_list->Shown.back()->ActiveControl();
}

QWidget* Screen::FrontWindow() const { return m_list->Shown.empty() ? nullptr : &m_list->Shown.back()->Window(); }

Form* Screen::FormOf(const QWidget& widget) const {
  const auto found = std::find_if(m_list->Loaded.begin(), m_list->Loaded.end(),
                                  [&](const auto& form) { return &form->Window() == widget.window(); });
  return found == m_list->Loaded.end() ? nullptr : found->get();
}

void Screen::HandleKey(QObject& watched, const QKeyEvent& event) const {
  const auto* widget = qobject_cast<QWidget*>(&watched);
  if (widget == nullptr || qobject_cast<const QMenuBar*>(widget) != nullptr) return; // which takes its keys itself
  // A key goes from the widget with the focus to those that hold it, until one takes it; it counts once.
  const QWidget* focus = widget->window()->focusWidget();
  if (widget != (focus != nullptr ? focus : widget->window())) return;
  if (Form* form = FormOf(*widget)) {
    Enter([&] { form->Handle(event); });
  }
}

} // namespace portico::qt
