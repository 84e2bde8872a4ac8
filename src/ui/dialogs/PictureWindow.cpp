#include "ui/dialogs/PictureWindow.h"

#include "framework/shared/Application.h"
#include "framework/shared/modAppGlobals.h"
#include "platform/ICommonDialog.h"
#include "platform/IDesktop.h"
#include "platform/KeyCodes.h"
#include "system/PendingFile.h"
#include "ui/base/ResourceStrings.h"
#include "ui/base/ShowFailure.h"
#include "ui/base/UserCommands.h"
#include "ui/base/Wired.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

namespace portico {
namespace {

constexpr std::array Menus = {
    MenuDesign{.Name = u"mnuFile", .Caption = u"1000"},
    MenuDesign{.Name = u"mnuSavePicture", .Caption = u"10801", .Parent = u"mnuFile", .Shortcut = u"Ctrl+S"},
    MenuDesign{.Name = u"mnuPrintPicture", .Caption = u"10802", .Parent = u"mnuFile", .Shortcut = u"Ctrl+P"},
    MenuDesign{.Name = u"mnuPictureBar", .Caption = BarCaption, .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuClosePicture", .Caption = u"1060", .Parent = u"mnuFile"},
    MenuDesign{.Name = u"mnuEdit", .Caption = u"2000"},
    MenuDesign{.Name = u"mnuCopyPicture", .Caption = u"2020", .Parent = u"mnuEdit", .Shortcut = u"Ctrl+C"},
    MenuDesign{.Name = u"mnuView", .Caption = u"10000"},
    MenuDesign{.Name = u"mnuFit", .Caption = u"10803", .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuActualSize", .Caption = u"10060", .Parent = u"mnuView", .Shortcut = u"Ctrl+0"},
};

constexpr std::array Controls = {ControlDesign{.Kind = ControlKind::PictureView, .Name = u"picPicture"}};

constexpr FormDesign Design = {
    .Name = u"PictureWindow", .Caption = u"Picture", .Style = FormStyle::Window, .Menus = Menus, .Controls = Controls};

// Of the window, in pixels.
constexpr std::int32_t LeastSide = 320;
constexpr std::int32_t MostSide = 1000;
constexpr std::int32_t Around = 60; // the picture

double Side(std::int32_t pixels) { return std::clamp(pixels + Around, LeastSide, MostSide) * FormUnitsPerPixel; }

} // namespace

bool PictureWindow::Show(PictureFile picture, IForm* Owner) {
  m_picture = std::move(picture);
  m_form = gForms->Load(Design);
  m_form->Keep(Ref<IObject>(shared_from_this()));
  if (!View().Show(m_picture)) {
    m_form->Unload();
    return false;
  }
  modAppGlobals::LoadResStrings(*m_form);
  Connect();
  m_form->Caption(u"Picture - " + ToText(std::int64_t{m_picture.Width}) + u" by " +
                  ToText(std::int64_t{m_picture.Height}));
  m_form->Width(Side(m_picture.Width));
  m_form->Height(Side(m_picture.Height));
  Fit(true);
  PlaceView();
  m_form->Owner(Owner);
  m_form->Show();
  return true;
}

void PictureWindow::Connect() {
  m_form->Events().Resize.Connect([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->PlaceView();
  });
  m_form->Events().KeyDown.Connect([weak = weak_from_this()](std::int32_t code, std::int32_t /*shift*/) {
    const auto self = weak.lock();
    if (!self || code != EscapeKey) return;
    RunHandler(String(self->ClassName()) + u".Form_KeyDown", u"An error occured while closing.",
               [&] { self->m_form->Unload(); });
  });
  OnMenu(u"mnuSavePicture", u"Can't save the picture.", &PictureWindow::mnuSavePicture_Click);
  OnMenu(u"mnuPrintPicture", u"Can't print the picture.", &PictureWindow::mnuPrintPicture_Click);
  OnMenu(u"mnuClosePicture", u"An error occured while closing.", &PictureWindow::mnuClosePicture_Click);
  OnMenu(u"mnuCopyPicture", u"Can't copy the picture.", &PictureWindow::mnuCopyPicture_Click);
  OnMenu(u"mnuFit", u"Can't change the size of the picture.", &PictureWindow::mnuFit_Click);
  OnMenu(u"mnuActualSize", u"Can't change the size of the picture.", &PictureWindow::mnuActualSize_Click);
}

void PictureWindow::OnMenu(StringView name, StringView sentence, void (PictureWindow::*handler)()) {
  Menu(name).Click().Connect([weak = weak_from_this(), name, sentence, handler] {
    const auto self = weak.lock();
    if (!self) return;
    RunHandler(String(self->ClassName()).append(u".").append(name).append(u"_Click"), sentence,
               [&] { (self.get()->*handler)(); });
  });
}

void PictureWindow::PlaceView() { View().Move(0, 0, m_form->ScaleWidth(), m_form->ScaleHeight()); }

void PictureWindow::Fit(bool isFitted) {
  View().FitsField(isFitted);
  Menu(u"mnuFit").Checked(isFitted);
  Menu(u"mnuActualSize").Checked(!isFitted);
}

void PictureWindow::Save() {
  const String suffix = u"." + FromAscii(m_picture.Format);
  FileDialogSettings settings{.DialogTitle = LoadResString(10800),
                              .Filter = u"Picture (*" + suffix + u")|*" + suffix,
                              .DefaultExt = suffix,
                              .Flags = AskBeforeOverwriting};
  gCommonDialog->ShowSave(settings);
  if (settings.FileName.empty()) return;
  system::PendingFile file(ToUtf8(settings.FileName));
  int error = file.Open();
  if (error == 0) error = file.Write(m_picture.Bytes);
  if (error == 0) error = file.Commit();
  if (error == 0) return;
  const String reason = FromUtf8(std::generic_category().message(error)).Text;
  Wired(gMessageBox).Show(settings.FileName + u" cannot be written: " + reason + u".", ApplicationTitle);
}

void PictureWindow::mnuPrintPicture_Click() {
  modAppGlobals::ExecutionEventHandler(Class::Print, gCommonDialog, ShareControl<IPrintable>(m_form, u"picPicture"));
}

} // namespace portico
