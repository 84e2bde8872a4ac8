#include "qt/forms/Form.h"

#include "platform/shared/Owned.h"
#include "qt/controls/PictureBox.h"
#include "qt/forms/MenuItem.h"
#include "qt/forms/StatusBar.h"
#include "qt/forms/ToolBar.h"
#include "qt/forms/WindowPlace.h"
#include "qt/loop/EventLoop.h"
#include "qt/values/Keys.h"
#include "qt/values/QtText.h"

#include <QDialog>
#include <QMainWindow>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace portico::qt {
namespace {

/// Ends controls and window once no event of theirs is being handled any more.
class Remains final : public QObject {
public:
  explicit Remains(FormParts parts) : m_parts(std::move(parts)) {}
  Remains(const Remains&) = delete;
  Remains& operator=(const Remains&) = delete;
  ~Remains() override {
    m_parts.Controls.clear();
    delete m_parts.Window;
  }

private:
  FormParts m_parts;
};

} // namespace

Form::Form(const FormDesign& design, FormParts parts, std::weak_ptr<FormList> list, EventLoop& loop)
    : m_name(design.Name),
      m_tag(design.Tag),
      m_isCentred(design.IsCentred),
      m_parts(std::move(parts)),
      m_list(std::move(list)),
      m_loop(loop),
      m_windowFilter(*m_parts.Window, [this](QObject& /*watched*/, QEvent& event) { return HandleWindow(event); }),
      m_areaFilter(*m_parts.Area, [this](QObject& /*watched*/, QEvent& event) { return HandleArea(event); }) {
  if (m_parts.ToolBar == nullptr) return;
  m_toolBarFilter.emplace(m_parts.ToolBar->Widget(), [this](QObject& /*watched*/, QEvent& event) {
    if (event.type() == QEvent::LayoutRequest) FitPictures();
    return false;
  });
}

Form::~Form() {
  if (const auto list = m_list.lock()) std::erase(list->Shown, this);
  m_parts.Life->Gone = true;
  m_parts.Window->hide();
  std::make_unique<Remains>(std::move(m_parts)).release()->deleteLater();
}

template <class... Args>
void Form::Fire(const Event<Args...>& event, std::type_identity_t<Args>... args) const {
  if (m_parts.Life->Gone) return;
  const std::shared_ptr<const Form> self = shared_from_this();
  const HandlerTurn turn;
  event(args...);
}

String Form::Caption() const { return FromQt(Window().windowTitle()); }
void Form::Caption(const String& newValue) {
  if (!IsSame(Window().windowTitle(), newValue)) Window().setWindowTitle(ToQt(newValue));
}

portico::WindowState Form::WindowState() const {
  if (Window().isMinimized()) return portico::WindowState::Minimized;
  return Window().isMaximized() ? portico::WindowState::Maximized : portico::WindowState::Normal;
}

void Form::WindowState(portico::WindowState newValue) { SetWindowState(Window(), newValue); }

void Form::MousePointer(std::int32_t shape) {
  SetPointer(Window(), shape);
  m_pointer = shape;
}

std::vector<IControl*> Form::Controls() { return PointersTo<IControl>(m_parts.Controls); }

void Form::PopupMenu(IMenuItem& Menu) {
  QMenu* menu = dynamic_cast<MenuItem&>(Menu).Menu();
  if (menu == nullptr) return;
  const std::shared_ptr<Form> self = shared_from_this();
  {
    const ModalTurn turn(m_loop, [menu] { menu->close(); });
    menu->exec(QCursor::pos());
  }
  m_loop.ThrowIfQuitting();
}

void Form::ComeToFront() {
  const auto list = m_list.lock();
  if (!list || m_unloading) return; // a window that is being hidden may still be told that it is active
  std::erase(list->Shown, this);
  list->Shown.push_back(this);
}

void Form::LeaveScreen() {
  if (const auto list = m_list.lock()) std::erase(list->Shown, this);
  if (m_modal != nullptr) m_modal->quit();
  Window().hide();
}

void Form::Show() {
  if (m_parts.Life->Gone) return;
  ComeToFront();
  if (!Window().isVisible()) PrepareToShow(Window(), m_isPlaced, m_isCentred ? nullptr : m_owner.data());
  Window().show();
  Window().raise();
  Window().activateWindow();
}

void Form::Owner(IForm* newValue) {
  Window().winId(); // makes the window that can have an owner
  const auto* owner = dynamic_cast<Form*>(newValue);
  m_owner = owner != nullptr ? &owner->Window() : nullptr;
  Window().windowHandle()->setTransientParent(m_owner != nullptr ? m_owner->windowHandle() : nullptr);
}

void Form::ShowModal(IForm* Owner) {
  const std::shared_ptr<Form> self = shared_from_this();
  const HandlerTurn kept; // what the form keeps may be what shows it
  QEventLoop loop;
  {
    const ModalTurn turn(m_loop, [&loop] { loop.quit(); });
    Window().setWindowModality(Qt::ApplicationModal);
    this->Owner(Owner);
    Show();
    QEventLoop* const outer = std::exchange(m_modal, &loop);
    if (Window().isVisible()) loop.exec();
    m_modal = outer;
  }
  if (m_loop.IsQuitting()) Unload();
  m_loop.ThrowIfQuitting();
}

void Form::Hide() { LeaveScreen(); }

void Form::Close() {
  if (m_events.QueryUnload.IsConnected()) {
    Fire(m_events.QueryUnload);
  } else {
    Unload();
  }
}

void Form::Unload() {
  if (std::exchange(m_unloading, true)) return;
  // Runs whatever the handlers of `Unload` do.
  class Ending {
  public:
    explicit Ending(Form& form) : m_form(form) {}
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;
    ~Ending() {
      m_form.m_parts.Life->Gone = true;
      AtRest([kept = std::exchange(m_form.m_kept, {})]() mutable {
        while (!kept.empty()) kept.pop_back();
      });
      if (const auto list = m_form.m_list.lock()) {
        std::erase_if(list->Loaded, [this](const auto& form) { return form.get() == &m_form; });
      }
    }

  private:
    Form& m_form;
  };
  const std::shared_ptr<Form> self = shared_from_this();
  const HandlerTurn turn;
  const Ending ending(*this);
  LeaveScreen();
  Fire(m_events.Unload);
}

void Form::Keep(const Ref<IObject>& object) {
  if (!m_unloading) m_kept.push_back(object);
}

IControl* Form::ActiveControl() {
  for (const QWidget* widget = Window().focusWidget(); widget != nullptr; widget = widget->parentWidget()) {
    const auto found = std::find_if(m_parts.FocusPlaces.begin(), m_parts.FocusPlaces.end(),
                                    [widget](const FocusPlace& place) { return place.Widget == widget; });
    if (found != m_parts.FocusPlaces.end()) m_active = found->Control;
  }
  return m_active;
}

void Form::Handle(const QKeyEvent& key) {
  if (const std::int32_t code = KeyCode(key.key())) Fire(m_events.KeyDown, code, ShiftState(key.modifiers()));
}

QRect Form::Place() const { return {Window().pos(), Window().size()}; }

void Form::Put(const QRect& place) {
  if (place.topLeft() != Window().pos()) {
    m_isPlaced = true;
    Window().move(place.topLeft());
  }
  if (place.size() != Window().size()) Window().resize(place.size());
  FitArea();
}

void Form::FitArea() const {
  auto* window = qobject_cast<QMainWindow*>(m_parts.Window);
  if (window == nullptr || window->isVisible()) return;
  const int menus = window->menuBar()->isVisibleTo(window) ? window->menuBar()->heightForWidth(window->width()) : 0;
  m_parts.Area->setGeometry(0, menus, window->width(), window->height() - menus);
  FitBars();
}

void Form::FitBars() const {
  const QSize size = m_parts.Area->size();
  if (m_parts.ToolBar != nullptr) {
    QWidget& bar = m_parts.ToolBar->Widget();
    bar.setGeometry(0, 0, size.width(), bar.sizeHint().height());
  }
  if (m_parts.StatusBar != nullptr) {
    QWidget& bar = m_parts.StatusBar->Widget();
    const int height = bar.sizeHint().height();
    bar.setGeometry(0, size.height() - height, size.width(), height);
  }
}

void Form::FitPictures() const {
  if (m_parts.ToolBar == nullptr) return;
  const QWidget& bar = m_parts.ToolBar->Widget();
  for (const PictureBox* picture : m_parts.Pictures) {
    QWidget& widget = picture->Widget();
    const bool isCovered = widget.geometry().intersects(bar.geometry()) && widget.x() < m_parts.ToolBar->ButtonsEnd();
    widget.setVisible(picture->Visible() && !isCovered);
    widget.raise();
  }
}

bool Form::HandleArea(const QEvent& event) {
  if (event.type() != QEvent::Resize) return false;
  const std::shared_ptr<Form> self = shared_from_this();
  FitBars();
  Enter([this] { Fire(m_events.Resize); });
  FitPictures();
  return false;
}

bool Form::HandleWindow(QEvent& event) {
  switch (event.type()) {
  case QEvent::Close:
    event.ignore();
    Enter([self = shared_from_this()] { self->Close(); });
    return true;
  case QEvent::WindowActivate:
    if (Window().isVisible()) ComeToFront();
    Enter([self = shared_from_this()] { self->Fire(self->m_events.Activate); });
    return false;
  case QEvent::KeyPress:
    if (static_cast<QKeyEvent&>(event).key() != Qt::Key_Escape || qobject_cast<QDialog*>(m_parts.Window) == nullptr) {
      return false;
    }
    if (m_parts.CancelButton != nullptr) {
      m_parts.CancelButton->click();
    } else {
      Enter([self = shared_from_this()] { self->Close(); });
    }
    return true;
  default:
    return false;
  }
}

} // namespace portico::qt
