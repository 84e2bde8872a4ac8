#include "ui/dialogs/frmAbout.h"

#include "framework/shared/Application.h"
#include "platform/IDialogControls.h"
#include "platform/IRegistry.h"
#include "ui/dialogs/DialogDesigns.h"

#include <algorithm>

namespace portico {
namespace {

constexpr StringView DriverKey = u"SOFTWARE\\Tolvane Instruments Inc.\\TolvaneIOLayer\\InstalledDrivers\\TVSCPI";
constexpr StringView VersionValue = u"Version";
constexpr StringView Notice = u"Provided as is, without warranty of any kind. See the file LICENSE.";

constexpr std::int32_t Success = 0;
constexpr std::int32_t AllAccess = 0x2003F;
constexpr std::int32_t BufferSize = 1024;

/// The bytes of a number, the lowest first, as the number in decimal.
String NumberText(const std::string& bytes) {
  std::uint32_t number = 0;
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
    number = (number << 8U) | static_cast<unsigned char>(*byte);
  }
  return ToText(std::int64_t{number});
}

} // namespace

frmAbout::frmAbout() : DialogForm(AboutDesign) {}

void frmAbout::Form_Initialize() {
  On(Control<ICommandButton>(u"cmdOK").Click(), u"frmAbout.cmdOk_Click", [this] { Unload(); });
}

void frmAbout::Form_Load() {
  Filed(u"frmAbout.Form_Load", [this] {
    const String title = ApplicationTitle;
    Form().Caption(u"About " + title);
    String version;
    if (!GetKeyValue(HKEY_LOCAL_MACHINE, String(DriverKey), String(VersionValue), version)) {
      version = ApplicationVersion();
    }
    Control<IControl>(u"lblVersion").Caption(u"Version " + version);
    Control<IControl>(u"lblTitle").Caption(title);
    Control<IControl>(u"lblDisclaimer").Caption(String(Notice));
  });
}

bool frmAbout::GetKeyValue(std::int32_t KeyRoot, const String& KeyName, const String& SubKeyRef, String& KeyVal) try {
  KeyVal.clear();
  if (!gRegistry) return false;
  std::int32_t key = 0;
  std::int32_t type = 0;
  std::int32_t size = BufferSize;
  std::string value(static_cast<std::size_t>(BufferSize), '\0');
  const bool found = gRegistry->RegOpenKeyExA(KeyRoot, KeyName, AllAccess, key) == Success &&
                     gRegistry->RegQueryValueExA(key, SubKeyRef, type, value, size) == Success;
  if (found) {
    value.resize(std::min(value.size(), static_cast<std::size_t>(std::max(size, 0))));
    if (!value.empty() && value.back() == '\0') value.pop_back();
    if (type == RegistryText) KeyVal = FromCodePage(value);
    if (type == RegistryNumber) KeyVal = NumberText(value);
  }
  gRegistry->RegCloseKey(key);
  return found;
} catch (...) {
  PassOn(u"frmAbout.GetKeyValue(KeyRoot,KeyName,SubKeyRef,KeyVal)", {KeyRoot, KeyName, SubKeyRef, KeyVal});
}

void ShowAbout(IForm* Owner) { MakeDialog<frmAbout>()->ShowModal(Owner); }

} // namespace portico
