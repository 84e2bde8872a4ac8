#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/ICommonDialog.h"
#include "platform/IDesktop.h"
#include "platform/IRegistry.h"
#include "support/Journal.h"

#include <functional>
#include <map>
#include <optional>

namespace portico::test {

class DeviceContextDouble final : public IDeviceContext {
public:
  StringView ClassName() const override { return u"DeviceContextDouble"; }
};

/// Dialogs that write down how they are shown, and that answer as they are told: without an answer they are cancelled.
class CommonDialogDouble final : public ICommonDialog, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override { return u"CommonDialogDouble"; }

  void ShowOpen(FileDialogSettings& settings) override { ShowFile("ShowOpen", settings); }
  void ShowSave(FileDialogSettings& settings) override { ShowFile("ShowSave", settings); }
  Ref<IDeviceContext> ShowPrinter(const PrinterDialogSettings& settings) override {
    Note("ShowPrinter '" + ToUtf8(settings.DialogTitle) + "' flags " + std::to_string(settings.Flags) +
         (settings.CancelError ? " CancelError" : ""));
    if (!Context && settings.CancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
    return Context;
  }
  void ShowHelp(const HelpSettings& settings) override {
    Note("ShowHelp " + std::to_string(settings.HelpCommand) + " " + ToUtf8(settings.HelpKey) + " " +
         ToUtf8(settings.HelpFile));
  }

  std::optional<String> FileName;
  Ref<IDeviceContext> Context;
  FileDialogSettings Shown;

private:
  void ShowFile(const std::string& which, FileDialogSettings& settings) {
    Shown = settings;
    Note(which + " '" + ToUtf8(settings.DialogTitle) + "'");
    if (FileName) settings.FileName = *FileName;
  }
};

class PrinterDouble final : public IPrinter, public Writer {
public:
  using Writer::Writer;
  void Print(const String& text) override { Note("Print '" + ToUtf8(text) + "'"); }
};

/// A registry of one key.
class RegistryDouble final : public IRegistry, public Writer {
public:
  using Writer::Writer;

  struct Entry {
    std::int32_t Type;
    std::string Bytes;
  };

  std::int32_t RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) override {
    Note("open " + ToUtf8(ToHexText(static_cast<std::uint32_t>(Root))) + " " + ToUtf8(Name) + " " +
         ToUtf8(ToHexText(static_cast<std::uint32_t>(Access))));
    if (Name != KeyName) return 2;
    Key = 77;
    return 0;
  }
  std::int32_t RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                std::int32_t& Size) override {
    Note("query " + std::to_string(Key) + " " + ToUtf8(Name) + " room " + std::to_string(Size));
    const auto found = Values.find(Name);
    if (found == Values.end()) return 2;
    Type = found->second.Type;
    Value.replace(0, found->second.Bytes.size(), found->second.Bytes);
    Size = static_cast<std::int32_t>(found->second.Bytes.size());
    return 0;
  }
  std::int32_t RegCloseKey(std::int32_t Key) override { return Note("close " + std::to_string(Key)), 0; }

  String KeyName;
  std::map<String, Entry> Values;
};

} // namespace portico::test
