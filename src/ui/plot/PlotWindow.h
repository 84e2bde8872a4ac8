#pragma once

#include "platform/ICanvas.h"
#include "platform/IDrawingOutput.h"
#include "platform/IEventLoop.h"
#include "platform/IForm.h"
#include "platform/IListView.h"
#include "ui/base/ShowFailure.h"
#include "ui/plot/PlotGestures.h"
#include "ui/plot/PlotSource.h"
#include "ui/plot/PlotTables.h"

#include <memory>
#include <span>
#include <utility>

namespace portico {

template <class Value>
struct ChoiceItem;

/// Draws numbers of a conversation, and follows it while it goes on. Any number can be open; each is kept by its form
/// until that is unloaded.
class PlotWindow final : public IObject, public std::enable_shared_from_this<PlotWindow> {
public:
  explicit PlotWindow(const Ref<PlotSource>& source);
  StringView ClassName() const override { return u"PlotWindow"; }

  /// At the right of the other window, as far as the screen goes, and without blocking; what was answered last is
  /// drawn.
  void Show(const IForm& Beside);

private:
  void Connect();
  void ConnectCanvas();
  void ConnectMenus();
  /// A handler of an event, which keeps the window alive while it runs. A failure is shown.
  template <class... Args, class Handler>
  void On(Event<Args...>& event, StringView label, Handler handler,
          StringView sentence = u"An error occured in the plot.");
  template <class Value>
  void OnChoice(std::span<const ChoiceItem<Value>> items, Value plot::Choice::*member);

  void Place();
  void Unloaded();
  /// Takes over what has come, and draws.
  void Update();
  void Draw();
  void QuerySelected();
  void QueryChosen();
  void Key(std::int32_t code, std::int32_t shift);
  /// Takes the cursors away; without one, closes.
  void Escape();

  plot::Scene Scene() const;
  String PlaceTitle() const;
  void SavePicture(PictureFormat format);
  void SaveValues();
  void Print();

  template <class Control>
  Control& Find(StringView name) const {
    return FindControl<Control>(*m_form, name);
  }
  ICanvas& Canvas() const { return Find<ICanvas>(u"cnvPlot"); }

  Ref<PlotSource> m_source;
  std::shared_ptr<FollowedConversation> m_followed;
  Event<>::Connection m_changed = 0;
  plot::Curves m_curves;
  plot::Choice m_choice;
  plot::PlotView m_view;
  plot::Cursors m_cursors;
  PlotGestures m_gestures{m_view, m_cursors};
  Drawing m_drawing; // as it is shown
  std::shared_ptr<QueryRows> m_queries = std::make_shared<QueryRows>();
  std::shared_ptr<ValueRows> m_values = std::make_shared<ValueRows>();
  bool m_isUpdating = false; // a list's selection is the program's
  Ref<IForm> m_form;
  std::unique_ptr<ITimer> m_timer;
};

template <class... Args, class Handler>
void PlotWindow::On(Event<Args...>& event, StringView label, Handler handler, StringView sentence) {
  event.Connect([weak = weak_from_this(), label, handler, sentence](Args... args) {
    const auto self = weak.lock();
    if (!self) return;
    RunHandler(label, sentence, [&] { handler(*self, std::forward<Args>(args)...); });
  });
}

} // namespace portico
