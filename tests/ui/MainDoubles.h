#pragma once

#include "framework/ICommand.h"
#include "framework/IObjectFactory.h"
#include "platform/IDesktop.h"
#include "platform/IForm.h"

#include <functional>
#include <string>
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
