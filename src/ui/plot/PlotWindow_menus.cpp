#include "ui/plot/PlotWindow.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/ICommonDialog.h"
#include "platform/KeyCodes.h"
#include "plot/CurveFile.h"
#include "system/PendingFile.h"
#include "ui/plot/PlotDesign.h"

#include <array>
#include <functional>
#include <string_view>
#include <system_error>
#include <utility>

namespace portico {
namespace {

struct FileKind {
  StringView Extension;
  StringView Filter;
};
constexpr std::array PictureKinds = {
    FileKind{u".png", u"PNG pictures (*.png)|*.png"},
    FileKind{u".svg", u"SVG pictures (*.svg)|*.svg"},
    FileKind{u".pdf", u"PDF documents (*.pdf)|*.pdf"},
};
constexpr FileKind ValueKind{u".csv", u"Comma-separated values (*.csv)|*.csv"};

/// False if the user has cancelled the dialog.
bool IsAccepted(const std::function<void()>& dialog) {
  try {
    dialog();
    return true;
  } catch (const Error& error) {
    if (error.Record().Number != ErrorNumber::DialogCancelled) throw;
    return false;
  }
}

/// Empty if the user has cancelled.
String AskForFile(const FileKind& kind) {
  FileDialogSettings settings{.FileName = u"plot" + String(kind.Extension),
                              .DialogTitle = u"Save the Plot",
                              .Filter = String(kind.Filter),
                              .DefaultExt = String(kind.Extension),
                              .Flags = AskBeforeOverwriting,
                              .CancelError = true};
  return IsAccepted([&] { gCommonDialog->ShowSave(settings); }) ? settings.FileName : String();
}

using Write = std::function<void(std::string_view)>;

/// All that is written, or nothing. A disk that refuses is told in a sentence.
void SaveTo(const String& name, const std::function<void(const Write&)>& writeAll) {
  const auto check = [&name](int error) {
    if (error == 0) return;
    const String reason = FromUtf8(std::generic_category().message(error)).Text;
    HuntERR::Raise(ErrorNumber::CannotCarryOut, u"PlotWindow", name + u" was not saved: " + reason + u".");
  };
  system::PendingFile file(ToUtf8(name));
  check(file.Open());
  writeAll([&](std::string_view piece) { check(file.Write(piece)); });
  check(file.Commit());
}

} // namespace

template <class Value>
void PlotWindow::OnChoice(std::span<const ChoiceItem<Value>> items, Value plot::Choice::*member) {
  for (const auto& item : items) {
    On(Find<IMenuItem>(item.Name).Click(), u"PlotWindow.Choice_Click", [items, &item, member](PlotWindow& window) {
      for (const auto& each : items) window.Find<IMenuItem>(each.Name).Checked(&each == &item);
      window.m_choice.*member = item.Chosen;
      window.m_view.ShowAll(); // what was seen is nothing to the curves to come
      window.m_cursors = {};
      window.Draw();
    });
  }
}

void PlotWindow::ConnectMenus() {
  const auto on = [this](StringView name, StringView label, auto handler, StringView sentence) {
    On(Find<IMenuItem>(name).Click(), label, handler, sentence);
  };
  constexpr StringView saving = u"Can't save the plot.";
  on(
      u"mnuSavePng", u"PlotWindow.mnuSavePng_Click", [](PlotWindow& w) { w.SavePicture(PictureFormat::Png); }, saving);
  on(
      u"mnuSaveSvg", u"PlotWindow.mnuSaveSvg_Click", [](PlotWindow& w) { w.SavePicture(PictureFormat::Svg); }, saving);
  on(
      u"mnuSavePdf", u"PlotWindow.mnuSavePdf_Click", [](PlotWindow& w) { w.SavePicture(PictureFormat::Pdf); }, saving);
  on(
      u"mnuSaveCsv", u"PlotWindow.mnuSaveCsv_Click", [](PlotWindow& w) { w.SaveValues(); }, saving);
  on(
      u"mnuPrint", u"PlotWindow.mnuPrint_Click", [](PlotWindow& w) { w.Print(); }, u"Can't print the plot.");
  on(
      u"mnuClose", u"PlotWindow.mnuClose_Click", [](PlotWindow& w) { w.m_form->Unload(); }, u"Can't close the plot.");
  constexpr std::array keys = {std::pair(u"mnuZoomIn", PlusKey),
                               std::pair(u"mnuZoomOut", MinusKey),
                               std::pair(u"mnuShowAll", HomeKey),
                               std::pair(u"mnuCursor1", std::int32_t{u'1'}),
                               std::pair(u"mnuCursor2", std::int32_t{u'2'}),
                               std::pair(u"mnuNoCursors", DeleteKey)};
  for (const auto& [name, key] : keys) {
    on(
        name, u"PlotWindow.View_Click", [code = key](PlotWindow& w) { w.Key(code, 0); },
        u"Can't change what is seen of the plot.");
  }
  OnChoice(KindItems(), &plot::Choice::Kind);
  OnChoice(TypeItems(), &plot::Choice::Type);
  OnChoice(OrderItems(), &plot::Choice::Order);
}

void PlotWindow::SavePicture(PictureFormat format) {
  const Drawing drawing = m_drawing; // as it was when the user wanted it
  const String name = AskForFile(PictureKinds.at(static_cast<std::size_t>(format)));
  if (name.empty()) return;
  SaveTo(name, [&](const Write& write) { write(gDrawingOutput->Encode(drawing, format)); });
}

void PlotWindow::SaveValues() {
  const String name = AskForFile(ValueKind);
  if (name.empty()) return;
  m_curves.Update(); // answers may have come while the dialog was up
  SaveTo(name, [this](const Write& write) {
    plot::WriteCurves(m_curves.All(), m_curves.IsTime() ? u"Seconds" : u"Index", write);
  });
}

void PlotWindow::Print() {
  const Drawing drawing = m_drawing;
  const PrinterDialogSettings settings{.DialogTitle = u"Print the Plot",
                                       .Flags = PrintNoSelection + PrintReturnsContext + PrintNoPageNumbers,
                                       .CancelError = true};
  Ref<IDeviceContext> context;
  if (!IsAccepted([&] { context = gCommonDialog->ShowPrinter(settings); })) return;
  gDrawingOutput->Print(drawing, *context);
}

} // namespace portico
