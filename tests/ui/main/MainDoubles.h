#pragma once

#include "framework/objects/IObjectFactory.h"
#include "platform/IDesktop.h"
#include "platform/IForm.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace portico::test {

/// Tells that another creator is asked, asks it, and tells what it has made.
class NotingCreator final : public ICreator {
public:
  NotingCreator(Ref<ICreator> inner, std::function<void(const Params&)> note,
                std::function<void(const Ref<IObject>&)> made = {});
  StringView ClassName() const override;
  Value Specification() const override;
  bool IsMatch(const Value& Specification) const override;
  Ref<IObject> Create(const Params& Parameters) override;

private:
  Ref<ICreator> m_inner;
  std::function<void(const Params&)> m_note;
  std::function<void(const Ref<IObject>&)> m_made;
};

class ClipboardDouble final : public IClipboard {
public:
  String Text;
  String GetText() const override;
};

class HelpViewerDouble final : public IHelpViewer {
public:
  std::vector<std::string> Calls;
  std::function<void()> OnHelp;
  void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) override;
};

/// Forms that say of another control that it has the focus.
class FocusDouble final : public IForms {
public:
  explicit FocusDouble(std::shared_ptr<IForms> forms);
  Ref<IForm> Load(const FormDesign& design) override;
  std::vector<Ref<IForm>> Forms() const override;
  IControl* ActiveControl() const override;

  IControl* Active = nullptr;

private:
  std::shared_ptr<IForms> m_forms;
};

} // namespace portico::test
