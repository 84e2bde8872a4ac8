#pragma once

#include "document/FIFOFixture.h"
#include "document/log/CXMLDataStore.h"
#include "document/log/MemoryLogDisk.h"

#include <memory>
#include <string>
#include <vector>

namespace portico::test {

/// The header as this program writes it, and a log around the given sessions.
inline const std::string LogHeader = "<Header ApplicationName=\"Tolvane Portico\" ApplicationVersion=\"1.0.5\"/>";
inline std::string PlainLogOf(const std::string& sessions) {
  return "<SCPICommLog>" + LogHeader + sessions + "</SCPICommLog>";
}

/// What a reading of a log tells, one thing a line.
class Told final : public ILogVisitor {
public:
  void Header(const LogElement& header) override { Add("header", header); }
  void SessionOpened(const LogElement& session) override { Add("session", session); }
  void Entity(const LogElement& entity) override {
    Add(std::string(entity.Name), entity);
    Lines.back() += " " + std::string(entity.Text);
    Texts.emplace_back(entity.Text);
  }
  void SessionClosed() override { Lines.emplace_back("end"); }

  std::vector<std::string> Lines;
  std::vector<std::string> Texts;

private:
  void Add(const std::string& what, const LogElement& element) {
    Lines.push_back(what);
    for (const LogAttribute& attribute : element.Attributes) {
      Lines.back() += " " + attribute.Name + "=" + attribute.Value;
    }
  }
};

inline std::vector<std::string> Tell(const std::string& bytes, LogReading::End end = LogReading::End::Complete) {
  Told told;
  const LogReading reading = LogReader::Read(bytes, told);
  EXPECT_EQ(reading.Ending, end) << reading.Reason << " in line " << reading.Line << " of\n" << bytes;
  return told.Lines;
}

inline std::vector<std::string> TextsOf(const std::string& bytes) {
  Told told;
  LogReader::Read(bytes, told);
  return told.Texts;
}

/// A store on a disk in memory.
class StoreTest : public DocumentTest {
protected:
  static constexpr char Path[] = "conversation.xml";

  Ref<CXMLDataStore> Store(bool overwrite = false) {
    auto store = New<CXMLDataStore>(Disk);
    store->Initialize(u"conversation.xml", overwrite);
    return store;
  }
  std::string& Bytes() { return Disk->Bytes(Path); }

  static void Append(const Ref<CXMLDataStore>& store, StringView text, const String& type = u"Response") {
    store->AppendDataEntityToStore(Entity(text, {}, type));
  }
  /// The data of all entities that a store reads, as text.
  static std::vector<std::string> Read(const Ref<CXMLDataStore>& store) {
    const auto object = store->FillDataContainerFromStore();
    std::vector<std::string> texts;
    const auto end = object->EndOfObject();
    for (auto at = object->StartOfObject(); object->ComparePositions(at, end) == 1; at = object->NextPosition(at)) {
      texts.push_back(ToUtf8(FromBytes(object->Item(at).ToObject<IDataEntity>()->ReadData())));
    }
    return texts;
  }
  static Ref<IDataEntity> FirstRead(const Ref<CXMLDataStore>& store) {
    return Cast<CDataFIFO>(store->FillDataContainerFromStore())->Peek();
  }

  std::shared_ptr<MemoryLogDisk> Disk = std::make_shared<MemoryLogDisk>();
};

/// A store that logs, and whose failed saves are written down.
class LoggingTest : public StoreTest {
protected:
  /// With an open session that holds "1".
  Ref<CXMLDataStore> Logging() {
    auto store = Store();
    store->SaveFailed.Connect([this](StringView text) { Failures.push_back(ToUtf8(text)); });
    store->OpenSession();
    Append(store, u"1");
    return store;
  }

  std::vector<std::string> Failures;
  static constexpr char16_t Full[] = u"The file, conversation.xml, cannot be written: No space left on device.";
};

} // namespace portico::test
