#pragma once

#include "framework/shared/IConfiguration.h"
#include "support/Journal.h"

#include <cstdint>
#include <functional>
#include <map>

namespace portico::test {

/// A table of items that writes down what is written to it, as "NAME=VALUE", and, where a test wants to know, what is
/// read from it, as "get NAME".
class ConfigurationDouble final : public IConfiguration, public IConfigurationServer {
public:
  /// The journal must outlive it. If there is another configuration behind it, that one holds the items.
  explicit ConfigurationDouble(Journal& journal, Ref<IConfiguration> behind = {});
  StringView ClassName() const override;

  String ItemValue(StringView Name) override;
  void ItemValue(StringView Name, StringView Value) override;
  /// Written down as "Update(TEXT)" and "Retrieve(TEXT)", and answered with `Answer`.
  Ref<IResponse> Update(const String& Configuration) override;
  Ref<IResponse> Retrieve(const String& Configuration) override;

  std::map<String, String> Items;
  String Answer;
  bool NotesReads = false;
  int Reads = 0;
  /// Called with each call; may raise.
  std::function<void()> OnCall;

private:
  void Note(const std::string& line);
  Ref<IResponse> Respond() const;

  Journal& m_journal;
  Ref<IConfiguration> m_behind;
};

} // namespace portico::test
