#pragma once

#include "framework/objects/IObjectFactory.h"
#include "framework/shared/ICommand.h"
#include "memory/Clock.h"
#include "platform/IDesktop.h"
#include "platform/IForm.h"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace portico::test {

/// A command that does what a test tells it.
class SpyCommand final : public ICommand {
public:
  explicit SpyCommand(std::function<void()> execute) : m_execute(std::move(execute)) {}
  StringView ClassName() const override { return u"SpyCommand"; }
  void Execute() override { m_execute(); }

private:
  std::function<void()> m_execute;
};

/// Makes such commands, and hands their parameters on.
class SpyCreator final : public ICreator {
public:
  SpyCreator(String specification, std::function<void(const Params&)> execute)
      : m_specification(std::move(specification)), m_execute(std::move(execute)) {}
  StringView ClassName() const override { return u"SpyCreator"; }
  Value Specification() const override { return m_specification; }
  bool IsMatch(const Value& Specification) const override { return Specification.ToString() == m_specification; }
  Ref<IObject> Create(const Params& Parameters) override {
    return New<SpyCommand>([execute = m_execute, Parameters] { execute(Parameters); });
  }

private:
  String m_specification;
  std::function<void(const Params&)> m_execute;
};

/// Tells that another creator is asked, asks it, and tells what it has made.
class NotingCreator final : public ICreator {
public:
  NotingCreator(Ref<ICreator> inner, std::function<void(const Params&)> note,
                std::function<void(const Ref<IObject>&)> made = {})
      : m_inner(std::move(inner)), m_note(std::move(note)), m_made(std::move(made)) {}
  StringView ClassName() const override { return u"NotingCreator"; }
  Value Specification() const override { return m_inner->Specification(); }
  bool IsMatch(const Value& Specification) const override { return m_inner->IsMatch(Specification); }
  Ref<IObject> Create(const Params& Parameters) override {
    if (m_note) m_note(Parameters);
    Ref<IObject> product = m_inner->Create(Parameters);
    if (m_made) m_made(product);
    return product;
  }

private:
  Ref<ICreator> m_inner;
  std::function<void(const Params&)> m_note;
  std::function<void(const Ref<IObject>&)> m_made;
};

class ClipboardDouble final : public IClipboard {
public:
  String Text;
  String GetText() const override { return Text; }
};

class HelpViewerDouble final : public IHelpViewer {
public:
  std::vector<std::string> Calls;
  std::function<void()> OnHelp;
  void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) override {
    Calls.push_back(ToUtf8(HelpFile) + " " + std::to_string(Command) + " '" + ToUtf8(Data) + "'");
    if (OnHelp) OnHelp();
  }
};

/// Time that stands still until somebody moves it or waits for it, and a wait in which a test can act.
class TestClock final : public memory::Clock {
public:
  TimePoint Now() const override { return m_now; }
  void Advance(std::chrono::milliseconds duration) { m_now += duration; }
  void WaitUntil(std::optional<TimePoint> deadline) override {
    if (OnWait)
      OnWait(deadline ? std::chrono::duration_cast<std::chrono::milliseconds>(*deadline - m_now)
                      : std::chrono::milliseconds(-1));
    if (std::exchange(m_woken, false)) return;
    if (!deadline) throw std::logic_error("a wait that nothing can end");
    m_now = std::max(m_now, *deadline);
  }
  void Wake() noexcept override { m_woken = true; }

  /// Called with what is to be waited, -1 for ever.
  std::function<void(std::chrono::milliseconds)> OnWait;

private:
  TimePoint m_now{};
  bool m_woken = false;
};

/// Forms that say of another control that it has the focus.
class FocusDouble final : public IForms {
public:
  explicit FocusDouble(std::shared_ptr<IForms> forms) : m_forms(std::move(forms)) {}
  Ref<IForm> Load(const FormDesign& design) override { return m_forms->Load(design); }
  std::vector<Ref<IForm>> Forms() const override { return m_forms->Forms(); }
  IControl* ActiveControl() const override { return Active; }

  IControl* Active = nullptr;

private:
  std::shared_ptr<IForms> m_forms;
};

} // namespace portico::test
