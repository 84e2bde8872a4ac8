#pragma once

#include "document/entities/CDataEntity.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/CSelectionIterator.h"
#include "document/entities/ITimeStamp.h"
#include "framework/objects/CObjectFactory.h"
#include "framework/objects/CSubscriptionAgent.h"
#include "framework/shared/IConfiguration.h"
#include "support/CreatorOfOne.h"
#include "support/FrameworkTest.h"
#include "support/Labels.h"
#include "support/WindowDouble.h"

#include <map>

namespace portico::test {

/// Stamps in a row: "stamp 1", "stamp 2", …
class CountingStamper final : public ITimeStamp {
public:
  StringView ClassName() const override { return u"CountingStamper"; }
  String TimeStamp() override { return u"stamp " + ToText(static_cast<std::int64_t>(++Drawn)); }
  int Drawn = 0;
};

/// A table that writes down what is written to it.
class ConfigurationDouble final : public IConfiguration {
public:
  explicit ConfigurationDouble(std::vector<std::string>& journal) : m_journal(journal) {}
  StringView ClassName() const override { return u"ConfigurationDouble"; }
  String ItemValue(StringView Name) override {
    ++Reads;
    const auto item = Items.find(String(Name));
    HuntERR::Check(item != Items.end(), ErrorNumber::NoSuchItem, u"no such item");
    return item->second;
  }
  void ItemValue(StringView Name, StringView Value) override {
    m_journal.push_back(ToUtf8(Name) + "=" + ToUtf8(Value));
    Items[String(Name)] = Value;
  }
  std::map<String, String> Items;
  int Reads = 0;

private:
  std::vector<std::string>& m_journal;
};

/// The document's classes in a factory, a window with a scratch area, stamps and configuration, each a double that
/// writes to one journal where order counts.
class DocumentFixture : public FrameworkTest {
protected:
  DocumentFixture() {
    gTimeStamper = Stamper;
    gConfiguration = Configuration;
    gMainForm = Window;
    gScratchArea = Window;
    const auto factory = New<CObjectFactory>();
    for (const CreatorRow* row : {&CtorDataEntity, &CtorDataFIFO, &CtorIterator, &CtorSubscriptionAgent}) {
      factory->Add(MakeCreator(*row));
    }
    gObjectFactory = factory;
  }
  ~DocumentFixture() override {
    gScratchArea = {};
    gTimeStamper = {};
  }

  /// An entity of its own stamp.
  static Ref<IDataEntity> Entity(StringView text, StringView type) {
    return Create<IDataEntity>(u"DataEntity", modGlobals::VarArray(ToBytes(text), String(type), String()));
  }
  static std::string TextOf(const Ref<IDataEntity>& entity) { return Escaped(FromBytes(entity->ReadData())); }
  /// "Type: text" of each entity of a container, in order.
  static std::vector<std::string> Lines(const Ref<CDataFIFO>& container) {
    std::vector<std::string> lines;
    CSelectionIterator iterator;
    iterator.Initialize(u"IterateAll");
    iterator.Attach(container);
    for (Value item = iterator.FirstItem(); !iterator.IsDone(); item = iterator.NextItem()) {
      const auto entity = item.ToObject<IDataEntity>();
      lines.push_back(ToUtf8(entity->DataType()) + ": " + TextOf(entity));
    }
    return lines;
  }
  static void Offer(const String& specification, const Ref<IObject>& product) {
    gObjectFactory->Add(New<CreatorOfOne>(specification, product));
  }
  /// What follows in the journal from now on.
  std::vector<std::string> TakeWrites() {
    auto lines = Writes(Calls);
    Calls.clear();
    return lines;
  }

  using List = std::vector<std::string>;

  std::vector<std::string> Calls;
  std::vector<std::string> ScratchCalls;
  Ref<CountingStamper> Stamper = New<CountingStamper>();
  Ref<ConfigurationDouble> Configuration = New<ConfigurationDouble>(Calls);
  Ref<RecordingTextBox> Scratch = New<RecordingTextBox>(ScratchCalls);
  Ref<WindowDouble> Window = New<WindowDouble>(Calls, Scratch);
};

} // namespace portico::test
