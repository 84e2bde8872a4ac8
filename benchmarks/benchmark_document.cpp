// What a long conversation costs: times at a thousand and at a million entities, and the memory of one.

#include "benchmarks/Part.h"
#include "document/entities/CDataEntity.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/CSelectionIterator.h"
#include "document/log/CMockTimeStampServer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <new>
#include <random>
#include <string>
#include <vector>

#include <malloc.h>

namespace {

std::size_t allocated = 0; // bytes that were asked for and not given back
std::size_t blocks = 0;    // as many as they came in

} // namespace

// Every block carries its size in front of it.
void* operator new(std::size_t size) {
  auto* block = static_cast<std::size_t*>(std::malloc(size + 16));
  if (block == nullptr) throw std::bad_alloc();
  *block = size;
  allocated += size;
  ++blocks;
  return block + 2;
}
void operator delete(void* memory) noexcept {
  if (memory == nullptr) return;
  std::size_t* block = static_cast<std::size_t*>(memory) - 2;
  allocated -= *block;
  --blocks;
  std::free(block);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace portico {
namespace {

constexpr std::size_t Small = 1000;
constexpr std::size_t Large = Part<std::size_t>(1'000'000);
constexpr std::size_t Batch = 1000;

Ref<IDataEntity> MakeEntity() {
  static const ByteArray data = ToBytes(u"+1.23456789E+00,+2.34567890E-3\r\n"); // 30 characters and a line end
  auto entity = New<CDataEntity>();
  entity->Initialize(data, u"Response", {});
  return entity;
}

std::vector<Ref<IDataEntity>> MakeEntities(std::size_t count) {
  std::vector<Ref<IDataEntity>> entities;
  for (std::size_t i = 0; i < count; ++i) entities.push_back(MakeEntity());
  return entities;
}

/// A FIFO of so many entities, with a handler for each of its events, as a view has.
struct Document {
  explicit Document(std::size_t count) {
    FIFO->Initialize(0);
    const auto handler = [this](const Ref<IDataEntity>&, std::int64_t index) { Sum += index; };
    FIFO->OnAdd.Connect(handler);
    FIFO->OnRemove.Connect(handler);
    for (std::size_t i = 0; i < count; ++i) FIFO->Enqueue(MakeEntity());
    Collect();
  }
  /// Takes a thousand positions that stand all over the document: as many are in use, however long it is.
  void Collect() {
    Positions.clear();
    const auto stride = static_cast<std::size_t>(FIFO->Count()) / Small;
    std::size_t count = 0;
    const auto end = FIFO->EndOfObject();
    for (auto at = FIFO->StartOfObject(); FIFO->ComparePositions(at, end) == 1; at = FIFO->NextPosition(at)) {
      if (count++ % stride == 0) Positions.push_back(at);
    }
  }
  const Ref<IPosition>& Some() { return Positions[Random() % Positions.size()]; }

  Ref<CDataFIFO> FIFO = New<CDataFIFO>();
  std::vector<Ref<IPosition>> Positions;
  std::mt19937 Random{1};
  std::int64_t Sum = 0;
};

/// Of the processor, which others may use too.
double Nanoseconds(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) * 1e9 / CLOCKS_PER_SEC;
}

using Measure = std::function<double(Document&)>; // nanoseconds for one operation

double Append(Document& document) {
  const auto entities = MakeEntities(Batch);
  const double time = Nanoseconds([&] {
    for (const auto& entity : entities) document.FIFO->Enqueue(entity);
  });
  for (std::size_t i = 0; i < Batch; ++i) document.FIFO->Dequeue();
  return time / Batch;
}

double MakeAndAppend(Document& document) {
  const double time = Nanoseconds([&] {
    for (std::size_t i = 0; i < Batch; ++i) document.FIFO->Enqueue(MakeEntity());
  });
  for (std::size_t i = 0; i < Batch; ++i) document.FIFO->Dequeue();
  return time / Batch;
}

double RemoveFirst(Document& document) {
  const std::size_t count = std::min<std::size_t>(Batch, Small / 2);
  std::vector<Ref<IDataEntity>> removed;
  const double time = Nanoseconds([&] {
    for (std::size_t i = 0; i < count; ++i) removed.push_back(document.FIFO->Dequeue());
  });
  for (std::size_t i = 0; i < count; ++i) document.FIFO->Enqueue(MakeEntity());
  return time / static_cast<double>(count);
}

double Iterate(Document& document) {
  auto iterator = New<CSelectionIterator>();
  iterator->Initialize(u"IterateAll");
  iterator->Attach(document.FIFO);
  std::size_t count = 0;
  const double time = Nanoseconds([&] {
    for (Value item = iterator->FirstItem(); !iterator->IsDone(); item = iterator->NextItem()) ++count;
  });
  return time / static_cast<double>(count);
}

double Compare(Document& document) {
  return Nanoseconds([&] {
           for (std::size_t i = 0; i < Batch; ++i) {
             document.Sum += document.FIFO->ComparePositions(document.Some(), document.Some());
           }
         }) /
         Batch;
}

double Next(Document& document) {
  return Nanoseconds([&] {
           for (std::size_t i = 0; i < Batch; ++i) document.FIFO->NextPosition(document.Some());
         }) /
         Batch;
}

/// One entity goes out of the middle and a copy of it comes in at another place.
double ReplaceInTheMiddle(Document& document) {
  auto iterator = New<CSelectionIterator>();
  iterator->Initialize(u"IterateAll");
  const auto source = New<CDataFIFO>();
  source->Initialize(0);
  source->Enqueue(MakeEntity());
  constexpr std::size_t turns = 200;
  std::vector<Ref<IPosition>> places;
  const std::size_t stride = document.Positions.size() / turns;
  for (std::size_t i = 0; i < turns; ++i) places.push_back(document.Positions[i * stride]);
  std::shuffle(places.begin(), places.end(), document.Random);
  const double time = Nanoseconds([&] {
    for (const auto& place : places) {
      const auto next = document.FIFO->NextPosition(place);
      document.FIFO->SelectData(place, next);
      iterator->Attach(source);
      document.FIFO->MergeData(iterator);
    }
  });
  document.Collect();
  return time / turns;
}

double Median(const Measure& measure, Document& document, int rounds) {
  std::vector<double> times;
  for (int i = 0; i < rounds; ++i) times.push_back(measure(document));
  std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
  return times[static_cast<std::size_t>(rounds / 2)];
}

/// Its product is one entity, without the checks of the real one.
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

/// What an encoder leaves on an entity that it has shown.
void Show(const Ref<IDataEntity>& entity) {
  entity->DataAttribute(String(AttributeName::RTFSelectionLength), ToText(std::int64_t{entity->DataLength() / 2}));
  entity->DataAttribute(String(AttributeName::RTFVisibleTextOffset), u"0");
}

/// Bytes that the allocator has given out and not got back, its own words about them included.
std::size_t InUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

/// Of a response of 64 bytes with its type and stamp, its place in the FIFO and its index, and once it is shown.
void PrintMemory() {
  constexpr auto count = static_cast<double>(Large);
  for (const bool isShown : {false, true}) {
    const std::size_t bytesBefore = allocated;
    const std::size_t blocksBefore = blocks;
    const std::size_t inUseBefore = InUse();
    auto fifo = New<CDataFIFO>();
    fifo->Initialize(0);
    for (std::size_t i = 0; i < Large; ++i) {
      const auto entity = MakeEntity();
      fifo->Enqueue(entity);
      if (isShown) Show(entity);
    }
    const double perBlock = 16; // the size that this program keeps in front of each
    const double made = static_cast<double>(blocks - blocksBefore) / count;
    std::printf("memory of a response of 64 bytes%s: %.0f bytes in %.2f blocks, %.0f with the allocator's own\n",
                isShown ? ", shown" : "", static_cast<double>(allocated - bytesBefore) / count, made,
                static_cast<double>(InUse() - inUseBefore) / count - perBlock * made);
  }
}

void Run() {
  gObjectFactory = New<EntityFactory>();
  gTimeStamper = New<CMockTimeStampServer>();
  PrintMemory();
  struct Row {
    const char* Name;
    double Allowed;
    int LargeRounds;
    Measure Work;
  };
  const Row rows[] = {
      {"append, with its event", 1.5, 101, Append},
      {"make and append", 1.5, 101, MakeAndAppend},
      {"remove at the front, with its event", 1.5, 101, RemoveFirst},
      {"iterate in order", 1.5, 5, Iterate},
      {"compare positions, at random", 4, 101, Compare},
      {"next position, at random", 4, 101, Next},
      {"replace in the middle", 4, 5, ReplaceInTheMiddle},
  };
  std::printf("%-38s %10s %10s %7s %9s\n", "operation, ns", "at 1e3", "at 1e6", "ratio", "allowed");
  for (const Row& row : rows) {
    double small = 0;
    double large = 0;
    {
      Document document(Small);
      small = Median(row.Work, document, Part(301));
    }
    {
      Document document(Large);
      large = Median(row.Work, document, Part(row.LargeRounds));
    }
    std::printf("%-38s %10.0f %10.0f %7.2f %9.1f\n", row.Name, small, large, large / small, row.Allowed);
  }
  gTimeStamper = {};
  gObjectFactory = {};
}

} // namespace
} // namespace portico

int main() {
  portico::Run();
  return 0;
}
