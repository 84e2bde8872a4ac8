#pragma once

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
  StringView ClassName() const override;
};

/// Dialogs that write down how they are shown, and that answer as they are told: without an answer they are cancelled.
class CommonDialogDouble final : public ICommonDialog, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override;

  void ShowOpen(FileDialogSettings& settings) override;
  void ShowSave(FileDialogSettings& settings) override;
  Ref<IDeviceContext> ShowPrinter(const PrinterDialogSettings& settings) override;
  void ShowHelp(const HelpSettings& settings) override;

  std::optional<String> FileName;
  Ref<IDeviceContext> Context;
  FileDialogSettings Shown;

private:
  void ShowFile(const std::string& which, FileDialogSettings& settings);
};

class PrinterDouble final : public IPrinter, public Writer {
public:
  using Writer::Writer;
  void Print(const String& text) override;
};

/// A registry of one key.
class RegistryDouble final : public IRegistry, public Writer {
public:
  using Writer::Writer;

  struct Entry {
    std::int32_t Type;
    std::string Bytes;
  };

  std::int32_t RegOpenKeyExA(std::int32_t Root, const String& Name, std::int32_t Access, std::int32_t& Key) override;
  std::int32_t RegQueryValueExA(std::int32_t Key, const String& Name, std::int32_t& Type, std::string& Value,
                                std::int32_t& Size) override;
  std::int32_t RegCloseKey(std::int32_t Key) override;

  String KeyName;
  std::map<String, Entry> Values;
};

} // namespace portico::test
