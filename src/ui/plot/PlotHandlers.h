#pragma once

#include "ui/base/ShowFailure.h"
#include "ui/plot/PlotWindow.h"

#include <utility>

namespace portico {

template <class... Args, class Handler>
void PlotWindow::On(Event<Args...>& event, StringView label, Handler handler, StringView sentence) {
  event.Connect([weak = weak_from_this(), label, handler, sentence](Args... args) {
    const auto self = weak.lock();
    if (!self) return;
    RunHandler(label, sentence, [&] { handler(*self, std::forward<Args>(args)...); });
  });
}

} // namespace portico
