#include "ui/DesktopDoubles.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico::test {

StringView DeviceContextDouble::ClassName() const { return u"DeviceContextDouble"; }

StringView CommonDialogDouble::ClassName() const { return u"CommonDialogDouble"; }

void CommonDialogDouble::ShowOpen(FileDialogSettings& settings) { ShowFile("ShowOpen", settings); }

void CommonDialogDouble::ShowSave(FileDialogSettings& settings) { ShowFile("ShowSave", settings); }

Ref<IDeviceContext> CommonDialogDouble::ShowPrinter(const PrinterDialogSettings& settings) {
  Note("ShowPrinter '" + ToUtf8(settings.DialogTitle) + "' flags " + std::to_string(settings.Flags) +
       (settings.CancelError ? " CancelError" : ""));
  if (!Context && settings.CancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
  return Context;
}

void CommonDialogDouble::ShowHelp(const HelpSettings& settings) {
  Note("ShowHelp " + std::to_string(settings.HelpCommand) + " " + ToUtf8(settings.HelpKey) + " " +
       ToUtf8(settings.HelpFile));
}

void CommonDialogDouble::ShowFile(const std::string& which, FileDialogSettings& settings) {
  Shown = settings;
  Note(which + " '" + ToUtf8(settings.DialogTitle) + "'");
  if (!FileName && settings.CancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
  if (FileName) settings.FileName = *FileName;
}

void PrinterDouble::Print(const String& text) { Note("Print '" + ToUtf8(text) + "'"); }

std::int32_t RegistryDouble::RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access,
                                           std::int32_t& Key) {
  Note("open " + ToUtf8(ToHexText(static_cast<std::uint32_t>(Root))) + " " + ToUtf8(Name) + " " +
       ToUtf8(ToHexText(static_cast<std::uint32_t>(Access))));
  if (Name != KeyName) return 2;
  Key = 77;
  return 0;
}

std::int32_t RegistryDouble::RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type,
                                              std::string& Value, std::int32_t& Size) {
  Note("query " + std::to_string(Key) + " " + ToUtf8(Name) + " room " + std::to_string(Size));
  const auto found = Values.find(Name);
  if (found == Values.end()) return 2;
  Type = found->second.Type;
  Value.replace(0, found->second.Bytes.size(), found->second.Bytes);
  Size = static_cast<std::int32_t>(found->second.Bytes.size());
  return 0;
}

std::int32_t RegistryDouble::RegCloseKey(std::int32_t Key) { return Note("close " + std::to_string(Key)), 0; }

} // namespace portico::test
