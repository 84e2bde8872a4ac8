#pragma once

#include "platform/IForm.h"

#include <functional>
#include <string>
#include <utility>

namespace portico::test {

/// A form that tells, before it happens, what its window restores while it loads.
class FormSpy final : public IForm {
public:
  FormSpy(Ref<IForm> form, std::function<void(const std::string&)> note)
      : m_form(std::move(form)), m_note(std::move(note)) {}
  StringView ClassName() const override { return u"FormSpy"; }

  StringView Name() const override { return m_form->Name(); }
  /// Asked for by the loading of the strings, and by nothing else.
  String Tag() const override { return m_note("strings"), m_form->Tag(); }
  String Caption() const override { return m_form->Caption(); }
  void Caption(const String& newValue) override { m_form->Caption(newValue); }
  portico::WindowState WindowState() const override { return m_form->WindowState(); }
  void WindowState(portico::WindowState newValue) override { m_note("WindowState"), m_form->WindowState(newValue); }
  std::int32_t MousePointer() const override { return m_form->MousePointer(); }
  void MousePointer(std::int32_t shape) override { m_form->MousePointer(shape); }
  double Left() const override { return m_form->Left(); }
  void Left(double newValue) override { m_note("Left"), m_form->Left(newValue); }
  double Top() const override { return m_form->Top(); }
  void Top(double newValue) override { m_note("Top"), m_form->Top(newValue); }
  double Width() const override { return m_form->Width(); }
  void Width(double newValue) override { m_note("Width"), m_form->Width(newValue); }
  double Height() const override { return m_form->Height(); }
  void Height(double newValue) override { m_note("Height"), m_form->Height(newValue); }
  void Move(double Left, double Top, double Width, double Height) override { m_form->Move(Left, Top, Width, Height); }
  double ScaleLeft() const override { return m_form->ScaleLeft(); }
  double ScaleTop() const override { return m_form->ScaleTop(); }
  double ScaleWidth() const override { return m_form->ScaleWidth(); }
  double ScaleHeight() const override { return m_form->ScaleHeight(); }
  std::vector<IControl*> Controls() override { return m_form->Controls(); }
  FormEvents& Events() override { return m_form->Events(); }
  void PopupMenu(IMenuItem& Menu) override { m_form->PopupMenu(Menu); }
  void Show() override { m_form->Show(); }
  void Owner(IForm* newValue) override { m_form->Owner(newValue); }
  void ShowModal(IForm* Owner) override { m_form->ShowModal(Owner); }
  void Hide() override { m_form->Hide(); }
  void Close() override { m_form->Close(); }
  void Unload() override { m_form->Unload(); }
  void Keep(const Ref<IObject>& object) override { m_form->Keep(object); }

private:
  Ref<IForm> m_form;
  std::function<void(const std::string&)> m_note;
};

/// Makes such forms of those of a screen.
class SpiedForms final : public IForms {
public:
  SpiedForms(std::shared_ptr<IForms> forms, std::function<void(const std::string&)> note)
      : m_forms(std::move(forms)), m_note(std::move(note)) {}
  Ref<IForm> Load(const FormDesign& design) override { return New<FormSpy>(m_forms->Load(design), m_note); }
  std::vector<Ref<IForm>> Forms() const override { return m_forms->Forms(); }
  IControl* ActiveControl() const override { return m_forms->ActiveControl(); }

private:
  std::shared_ptr<IForms> m_forms;
  std::function<void(const std::string&)> m_note;
};

} // namespace portico::test
