#pragma once

#include "platform/IForm.h"
#include "qt/forms/FormParts.h"
#include "qt/loop/EventFilter.h"
#include "qt/values/Placed.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>

#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace portico::qt {

class EventLoop;
class Form;

/// The forms of the program.
struct FormList {
  std::vector<std::shared_ptr<Form>> Loaded; ///< in the order of their loading
  std::vector<Form*> Shown;                  ///< the one in front comes last
};

/// A window of the toolkit's. Position and size are those of the frame's corner and of what it encloses, so that what
/// was read and is set again puts the window where it was.
class Form final : public IForm, public Placed, public std::enable_shared_from_this<Form> {
public:
  /// The loop must outlive the form.
  Form(const FormDesign& design, FormParts parts, std::weak_ptr<FormList> list, EventLoop& loop);
  ~Form() override;

  StringView ClassName() const override { return m_name; }
  StringView Name() const override { return m_name; }
  String Tag() const override { return String(m_tag); }
  String Caption() const override;
  void Caption(const String& newValue) override;
  portico::WindowState WindowState() const override;
  void WindowState(portico::WindowState newValue) override;
  std::int32_t MousePointer() const override { return m_pointer; }
  void MousePointer(std::int32_t shape) override;

  double ScaleLeft() const override { return 0; }
  double ScaleTop() const override { return 0; }
  double ScaleWidth() const override { return Units(m_parts.Area->width()); }
  double ScaleHeight() const override { return Units(m_parts.Area->height()); }

  std::vector<IControl*> Controls() override;
  FormEvents& Events() override { return m_events; }
  void PopupMenu(IMenuItem& Menu) override;

  void Show() override;
  void Owner(IForm* newValue) override;
  void ShowModal(IForm* Owner) override;
  void Hide() override;
  void Close() override;
  void Unload() override;
  void Keep(const Ref<IObject>& object) override;

  QWidget& Window() const { return *m_parts.Window; }
  /// The control that had the focus last; null if none has had it.
  IControl* ActiveControl();
  /// Fires `KeyDown` for a key that has a code.
  void Handle(const QKeyEvent& key);

protected:
  QRect Place() const override;
  void Put(const QRect& place) override;

private:
  template <class... Args>
  void Fire(const Event<Args...>& event, std::type_identity_t<Args>... args) const;
  bool HandleWindow(QEvent& event);
  bool HandleArea(const QEvent& event);
  /// While the window is hidden, the toolkit lets the area as it is.
  void FitArea() const;
  void FitBars() const;
  /// A picture on the toolbar gives way to the buttons.
  void FitPictures() const;
  void ComeToFront();
  void LeaveScreen();

  StringView m_name;
  StringView m_tag;
  bool m_isCentred;
  FormParts m_parts;
  std::weak_ptr<FormList> m_list;
  EventLoop& m_loop;
  FormEvents m_events;
  std::vector<Ref<IObject>> m_kept;
  QEventLoop* m_modal = nullptr;
  QPointer<QWidget> m_owner;
  IControl* m_active = nullptr;
  std::int32_t m_pointer = 0;
  bool m_isPlaced = false;
  bool m_unloading = false;
  EventFilter m_windowFilter;
  EventFilter m_areaFilter;
  std::optional<EventFilter> m_toolBarFilter;
};

} // namespace portico::qt
