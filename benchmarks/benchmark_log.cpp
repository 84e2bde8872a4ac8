// What a long log costs: an append at the thousandth and at the millionth entity, and reading a million of them against
// a bare parse of the same file.

#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "document/entities/CDataEntity.h"
#include "document/log/CMockTimeStampServer.h"
#include "document/log/CXMLDataStore.h"
#include "framework/objects/IObjectFactory.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace portico {
namespace {

constexpr std::size_t Small = 1000;
constexpr std::size_t Large = Part<std::size_t>(1'000'000);
constexpr std::size_t Batch = 1000;
constexpr int Rounds = Part(5);

/// Makes entities; nothing else is asked for here.
class EntityFactory final : public IObjectFactory {
public:
  StringView ClassName() const override { return u"EntityFactory"; }
  Ref<IObject> CreateObject(const Value&, const Params& Parameters) override { return m_creator->Create(Parameters); }
  Ref<ICreator> GetCreator(const Value&) override { return m_creator; }
  void Add(const Ref<ICreator>&) override {}
  void Remove(const Ref<ICreator>&) override {}
  void Substitue(const Ref<ICreator>&) override {}

private:
  Ref<ICreator> m_creator = MakeCreator(CtorDataEntity);
};

/// Of the processor, which others may use too.
/// Resident memory in KiB.
long Resident() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
  }
  return 0;
}

void Append(CXMLDataStore& store, std::size_t count) {
  static const ByteArray data = ToBytes(u"+1.23456789E+00,+2.34567890E-3\r\n");
  for (std::size_t i = 0; i < count; ++i) {
    store.AppendDataEntityToStore(modDataDocument::CreateADataEntity(data, u"Response", u""));
  }
}

/// Microseconds for an append, and what is resident then.
void MeasureAppend(CXMLDataStore& store, const char* where) {
  std::vector<double> times;
  for (int round = 0; round < 2 * Rounds; ++round) times.push_back(Milliseconds([&] { Append(store, Batch / 10); }));
  std::printf("append at %s: %.2f us, %ld KiB resident\n", where, Median(times) * 1000 / (Batch / 10.0), Resident());
}

void MeasureReading(const std::string& path) {
  std::vector<double> bare;
  std::vector<double> open;
  std::vector<double> fill;
  for (int round = 0; round < Rounds; ++round) {
    bare.push_back(Milliseconds([&] {
      pugi::xml_document document;
      document.load_file(path.c_str());
    }));
    const auto store = New<CXMLDataStore>();
    open.push_back(Milliseconds([&] { store->Initialize(FromUtf8(path).Text, false); }));
    Ref<IIteratableObject> fifo;
    fill.push_back(Milliseconds([&] { fifo = store->FillDataContainerFromStore(); }));
    std::printf("round %d: %d entities read\n", round + 1, fifo->Count());
  }
  std::printf("bare parse %.0f ms, opening the store %.0f ms (%.2f), log into a FIFO %.0f ms (%.2f)\n", Median(bare),
              Median(open), Median(open) / Median(bare), Median(fill), Median(fill) / Median(bare));
}

void Measure(const std::string& path) {
  gObjectFactory = New<EntityFactory>();
  gTimeStamper = New<CMockTimeStampServer>();
  {
    const auto store = New<CXMLDataStore>();
    store->Initialize(FromUtf8(path).Text, true);
    store->OpenSession();
    Append(*store, Small);
    MeasureAppend(*store, "1,000");
    Append(*store, Large - 2 * Small - Batch);
    MeasureAppend(*store, "1,000,000");
  }
  std::printf("%.1f MB on disk\n", static_cast<double>(std::filesystem::file_size(path)) / 1e6);
  MeasureReading(path);
  std::filesystem::remove(path);
  gTimeStamper = {};
  gObjectFactory = {};
}

} // namespace
} // namespace portico

int main(int argc, char** argv) {
  portico::Measure(argc > 1 ? argv[1] : (std::filesystem::temp_directory_path() / "benchmark-log.xml").string());
}
