#include "ui/base/ResourceStrings.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IDialogControls.h"
#include "platform/IToolBar.h"
#include "ui/base/Tolerate.h"

#include <algorithm>
#include <array>
#include <limits>

namespace portico {
namespace {

constexpr std::array Table = {
    ResourceString{1000, u"&File"},
    ResourceString{1001, u"&Open Instrument..."},
    ResourceString{1002, u"&Close Instrument"},
    ResourceString{1003, u"&New Log..."},
    ResourceString{1004, u"&View Log..."},
    ResourceString{1005, u"Pau&se Logging"},
    ResourceString{1006, u"Close &Log"},
    ResourceString{1007, u"Print Set&up..."},
    ResourceString{1008, u"&Print History Window..."},
    ResourceString{1009, u"E&xit"},
    ResourceString{1050, u"Proper&ties..."},
    ResourceString{1054, u"&Apply"},
    ResourceString{1055, u"&Cancel"},
    ResourceString{1056, u"&OK"},
    ResourceString{1057, u"About Project1"},
    ResourceString{1058, u"&System Info..."},
    ResourceString{1059, u"OK"},
    ResourceString{1060, u"&Close"},
    ResourceString{1061, u"Version"},
    ResourceString{1062, u"Tolvane Portico"},
    ResourceString{1063, u"App Description"},
    ResourceString{1105, u"Re&sume Logging"},
    ResourceString{2000, u"&Edit"},
    ResourceString{2010, u"Cu&t                          Ctrl+X"},
    ResourceString{2020, u"&Copy                       Ctrl+C"},
    ResourceString{2030, u"&Paste                       Ctrl+V"},
    ResourceString{2040, u"Cop&y to..."},
    ResourceString{2050, u"P&aste from..."},
    ResourceString{2060, u"Clear &History Window"},
    ResourceString{2070, u"Clear Command Window"},
    ResourceString{3000, u"Exec&ution"},
    ResourceString{3010, u"St&ep"},
    ResourceString{3020, u"Run to &Cursor"},
    ResourceString{3030, u"&Run"},
    ResourceString{3040, u"&Stop"},
    ResourceString{4000, u"&Command"},
    ResourceString{4010, u"&Read Instrument Data"},
    ResourceString{4020, u"&Wait for OPC"},
    ResourceString{4030, u"&Get Instrument Status"},
    ResourceString{5000, u"&Tools"},
    ResourceString{5010, u"&Communication Protocol"},
    ResourceString{5020, u"&Options..."},
    ResourceString{5030, u"&SCPI"},
    ResourceString{5040, u"&Other"},
    ResourceString{6000, u"PopupCmds"},
    ResourceString{6010, u"Cut"},
    ResourceString{6020, u"Copy"},
    ResourceString{6030, u"Paste"},
    ResourceString{6060, u"Clear Command Window"},
    ResourceString{6070, u"Run"},
    ResourceString{6075, u"Run to Cursor"},
    ResourceString{6080, u"Step"},
    ResourceString{6090, u"Stop"},
    ResourceString{7000, u"PopupHistory"},
    ResourceString{7010, u"Cut"},
    ResourceString{7020, u"Copy"},
    ResourceString{7030, u"Paste"},
    ResourceString{7060, u"Clear History Window"},
    ResourceString{8010, u"Open Instrument"},
    ResourceString{8015, u"Close Instrument"},
    ResourceString{8020, u"New Log File..."},
    ResourceString{8030, u"View Log File..."},
    ResourceString{8040, u"Pause Logging"},
    ResourceString{8041, u"Resume Logging"},
    ResourceString{8050, u"Close Log"},
    ResourceString{8060, u"Print"},
    ResourceString{8070, u"Cut"},
    ResourceString{8080, u"Copy"},
    ResourceString{8090, u"Paste"},
    ResourceString{8100, u"Copy to File"},
    ResourceString{8110, u"Paste from File"},
    ResourceString{8120, u"Step"},
    ResourceString{8130, u"Run"},
    ResourceString{8140, u"Run to Cursor"},
    ResourceString{8150, u"Stop"},
    ResourceString{8160, u"Read Data"},
    ResourceString{9000, u"&Help"},
    ResourceString{9010, u"Help &Topics"},
    ResourceString{9020, u"&Index..."},
    ResourceString{9030, u"&Search..."},
    ResourceString{9040, u"&About Tolvane Portico..."},
    // The menus beside those of the contract.
    ResourceString{10000, u"&View"},
    ResourceString{10010, u"&Find..."},
    ResourceString{10020, u"Find &Next"},
    ResourceString{10030, u"Find Pre&vious"},
    ResourceString{10040, u"Zoom &In"},
    ResourceString{10050, u"Zoom &Out"},
    ResourceString{10060, u"&Actual Size"},
    ResourceString{10070, u"Next &Error"},
    ResourceString{10071, u"&Previous Error"},
    ResourceString{10072, u"Error&s..."},
    ResourceString{10080, u"&Timing..."},
    ResourceString{10090, u"P&lot..."},
    ResourceString{10095, u"Show Pictu&re"},
    ResourceString{10110, u"Session Mar&ks"},
    ResourceString{10111, u"Time Sta&mps"},
    ResourceString{10200, u"&Data"},
    ResourceString{10210, u"Stop at &Errors"},
    ResourceString{10220, u"&Complete"},
    ResourceString{10221, u"&Ask the Instrument for Its Commands"},
    ResourceString{10230, u"Earlier &Line"},
    ResourceString{10231, u"Later L&ine"},
    ResourceString{10232, u"&Search Sent Lines..."},
    ResourceString{10233, u"&Put Back Last Run"},
    ResourceString{10234, u"&Keep Sent Lines"},
    ResourceString{10235, u"F&orget Sent Lines"},
    ResourceString{10240, u"&Repeat..."},
    ResourceString{10250, u"Sa&ve Answer..."},
    ResourceString{10251, u"&Fetch Answer to File..."},
    ResourceString{10260, u"&Time-out..."},
    ResourceString{10261, u"Clear &Device"},
    ResourceString{10262, u"&Go to Local"},
    ResourceString{10700, u"Type a query."},
    ResourceString{10701, u"The query holds a character that the instrument's code page lacks."},
    ResourceString{10702, u"Save Answer"},
    ResourceString{10703, u"Fetch Answer to File"},
    ResourceString{10800, u"Save Picture"},
    ResourceString{10801, u"&Save As..."},
    ResourceString{10802, u"&Print..."},
    ResourceString{10803, u"&Fit to Window"},
};

constexpr bool Precedes(const ResourceString& a, const ResourceString& b) { return a.Id < b.Id; }
static_assert(std::is_sorted(Table.begin(), Table.end(), Precedes));

/// The font of a form. The table has neither string, so every form keeps the platform's font.
constexpr std::int32_t FontNameId = 20;
constexpr std::int32_t FontSizeId = 21;

std::int16_t ToId(double number) {
  using Limits = std::numeric_limits<std::int16_t>;
  HuntERR::Check(number >= Limits::min() && number <= Limits::max(), ErrorNumber::Overflow, u"Overflow.");
  return static_cast<std::int16_t>(number);
}

/// The string whose id a text is as a whole.
String StringOf(const String& text) {
  const auto id = ReadNumber(text);
  if (!id) HuntERR::RaiseStandard(ErrorNumber::TypeMismatch);
  return LoadResString(ToId(*id));
}

/// The number that a text begins with; 0 if there is none.
double NumericValue(StringView text) {
  text = TrimLeft(text);
  const auto digits = text.find_first_not_of(u"0123456789");
  return ReadNumber(text.substr(0, digits)).value_or(0);
}

void LoadTabs(ITabStrip& strip) {
  for (ITab* tab : strip.Tabs()) {
    Tolerate([&] { tab->Caption(StringOf(tab->Tag())); });
    Tolerate([&] { tab->ToolTipText(StringOf(tab->ToolTipText())); });
  }
}

void LoadButtons(IToolBar& bar) {
  for (IToolButton* button : bar.Buttons()) {
    Tolerate([&] { button->ToolTipText(StringOf(button->ToolTipText())); });
  }
}

void LoadControl(IControl& control) {
  switch (control.Kind()) {
  case ControlKind::Label:
    Tolerate([&] { control.Caption(StringOf(control.Tag())); });
    break;
  case ControlKind::Menu:
    Tolerate([&] { control.Caption(StringOf(control.Caption())); });
    break;
  case ControlKind::TabStrip:
    if (auto* strip = dynamic_cast<ITabStrip*>(&control)) LoadTabs(*strip);
    break;
  case ControlKind::Toolbar:
    if (auto* bar = dynamic_cast<IToolBar*>(&control)) LoadButtons(*bar);
    break;
  default:
    Tolerate([&] {
      if (const double id = NumericValue(control.Tag()); id > 0) control.Caption(LoadResString(ToId(id)));
    });
    Tolerate([&] {
      if (const double id = NumericValue(control.ToolTipText()); id >= 1) control.ToolTipText(LoadResString(ToId(id)));
    });
  }
}

} // namespace

std::span<const ResourceString> ResourceStrings() { return Table; }

String LoadResString(std::int32_t Id) {
  const auto found = std::lower_bound(Table.begin(), Table.end(), Id,
                                      [](const ResourceString& row, std::int32_t id) { return row.Id < id; });
  HuntERR::Check(found != Table.end() && found->Id == Id, ResourceNotFound,
                 [Id] { return u"There is no resource string with the id " + ToText(std::int64_t{Id}) + u"."; });
  return String(found->Text);
}

namespace modAppGlobals {

void LoadResStrings(IForm& Form) {
  Tolerate([&] { Form.Caption(StringOf(Form.Tag())); });
  for (const std::int32_t id : {FontNameId, FontSizeId}) {
    Tolerate([id] { LoadResString(id); });
  }
  for (IControl* control : Form.Controls()) LoadControl(*control);
}

} // namespace modAppGlobals
} // namespace portico
