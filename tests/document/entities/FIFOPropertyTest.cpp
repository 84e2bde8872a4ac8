#include "document/FIFOFixture.h"
#include "document/entities/ForeignEntity.h"
#include "document/entities/NaiveFIFO.h"

#include <array>
#include <random>

namespace portico {
namespace {

using test::ForeignEntity;
using test::NaiveFIFO;

/// Gives up after some items: a walk over a FIFO in which one entity stands twice comes back to it for ever.
class ShortIterator final : public IIterator {
public:
  explicit ShortIterator(const String& specification) { m_inner->Initialize(specification); }
  StringView ClassName() const override { return u"ShortIterator"; }
  void Attach(const Ref<IIteratableObject>& Object) override { m_inner->Attach(Object); }
  Value FirstItem() override { return m_inner->FirstItem(); }
  Value CurrentItem() const override { return m_inner->CurrentItem(); }
  bool IsDone() const override { return m_inner->IsDone(); }
  Value NextItem() override {
    if (++m_items > 20) HuntERR::RaiseStandard(17);
    return m_inner->NextItem();
  }
  Value SkipTo(const String& Name, const String& Value) override { return m_inner->SkipTo(Name, Value); }

private:
  Ref<CSelectionIterator> m_inner = New<CSelectionIterator>();
  int m_items = 0;
};

class ForeignPosition final : public IPosition {
public:
  StringView ClassName() const override { return u"ForeignPosition"; }
  String ID() const override { return {}; }
};

/// Entities, their attributes and positions, and two FIFOs that share them. A step draws one operation from a seed, so
/// that two worlds go the same way.
template <class FIFO>
class World {
public:
  World() {
    for (auto& fifo : m_fifos) Renew(fifo, 0);
  }

  /// All that came of the step: calls of foreign entities, events, results, errors.
  const std::vector<std::string>& Step(std::uint32_t seed) {
    Lines.clear();
    m_random.seed(seed);
    m_edits = 2;
    const Ref<ITimeStamp> other = std::exchange(gTimeStamper, m_stamper);
    Operate();
    if (seed % 16 == 0) Walk();
    gTimeStamper = other;
    return Lines;
  }

  std::vector<std::string> Lines;

private:
  std::size_t Below(std::size_t bound) { return m_random() % bound; }
  void Say(std::string line) { Lines.push_back(std::move(line)); }

  static std::string Describe(const Ref<IDataEntity>& entity) {
    if (!entity) return "nothing";
    if (const auto* foreign = dynamic_cast<const ForeignEntity*>(entity.Get())) return ToUtf8(foreign->Stamp);
    const auto* known = CDataEntity::From(entity);
    const PackedText* stamp = known->Stamp();
    return stamp == nullptr ? "no stamp" : ToUtf8(stamp->ToString());
  }
  static std::string Describe(const Ref<IPosition>& position) {
    return Describe(Cast<CDataPosition>(position)->DataEntity()) + "@" +
           std::to_string(Cast<CDataPosition>(position)->DataOffset());
  }

  void Renew(Ref<FIFO>& fifo, std::int32_t maximum) {
    fifo = New<FIFO>();
    fifo->Initialize(maximum);
    Listen(fifo);
  }
  void Listen(const Ref<FIFO>& fifo) {
    const auto on = [this](auto& event, const char* name) {
      event.Connect([this, name](const Ref<IDataEntity>& entity, std::int64_t index) {
        Say(std::string(name) + " " + Describe(entity) + " " + std::to_string(index));
        if (m_edits == 0 || Below(4) != 0) return;
        --m_edits;
        Operate();
      });
    };
    on(fifo->OnAdd, "add");
    on(fifo->OnRemove, "remove");
    on(fifo->MaximumCountExceded, "exceeded");
  }

  Ref<FIFO> SomeFIFO() { return m_fifos[Below(2)]; }
  Ref<IDataEntity> SomeEntity() { return m_entities.empty() ? NewEntity() : m_entities[Below(m_entities.size())]; }
  Ref<CDataEntity> SomeKnown() {
    const auto entity = SomeEntity();
    if (auto* known = CDataEntity::From(entity)) return Ref<CDataEntity>(known->shared_from_this());
    return KeepNew(SomeStamp());
  }
  String SomeStamp() {
    static const std::array<const char16_t*, 6> few = {u"a1", u"A1", u"b000000001", u"B000000001", u"c", u"\u0416"};
    return Below(3) == 0 ? String() : few[Below(few.size())];
  }
  ByteArray SomeData() { return ByteArray(Below(4), static_cast<std::uint8_t>(Below(2))); }
  String SomeName() {
    static const std::array<const char16_t*, 4> names = {u"Timestamp", u"timestamp", u"DataType", u"Extra"};
    return names[Below(names.size())];
  }
  Ref<IPosition> SomePosition() {
    if (m_positions.empty() || Below(8) == 0) return m_fifos[Below(2)]->EndOfObject();
    if (Below(50) == 0) return New<CDataPosition>();
    if (Below(50) == 0) return New<ForeignPosition>();
    return m_positions[Below(m_positions.size())];
  }
  Ref<IIterator> SomeIterator() { return New<ShortIterator>(Below(2) == 0 ? u"IterateAll" : u"IterateSelection"); }

  Ref<IDataEntity> Keep(const Ref<IDataEntity>& entity) {
    if (m_entities.size() < 24) {
      m_entities.push_back(entity);
    } else {
      m_entities[Below(m_entities.size())] = entity;
    }
    return entity;
  }
  Ref<CDataEntity> KeepNew(const String& stamp) {
    const auto entity = modDataDocument::CreateADataEntity(SomeData(), u"Response", stamp);
    Keep(entity);
    return entity;
  }
  Ref<IDataEntity> NewEntity() {
    if (Below(60) == 0) return Keep(New<ForeignEntity>(SomeStamp(), SomeData(), Lines));
    return KeepNew(SomeStamp());
  }
  template <class T>
  void KeepIn(std::vector<T>& kept, const T& one) {
    if (kept.size() < 8) {
      kept.push_back(one);
    } else {
      kept[Below(kept.size())] = one;
    }
  }

  void Operate() {
    try {
      Draw();
    } catch (const Error& error) {
      Say("error " + std::to_string(error.Record().Number));
    }
  }
  void Draw() {
    const std::size_t what = Below(100);
    if (what < 36) {
      Queue(what);
    } else if (what < 66) {
      ChangeEntity(what - 36);
    } else if (what < 82) {
      Ask(what - 66);
    } else {
      ChangeSelection(what - 82);
    }
  }

  void Queue(std::size_t what) {
    const auto fifo = SomeFIFO();
    switch (what) {
    case 0:
      return fifo->Enqueue(nullptr);
    case 1:
      return fifo->Clear();
    case 2:
      return fifo->MaximumCount(static_cast<std::int32_t>(Below(8)) - 1);
    case 3:
      return fifo->MaximumCount(0);
    case 4:
      Renew(m_fifos[Below(2)], static_cast<std::int32_t>(Below(3) * 4));
      return;
    case 5:
      return fifo->Initialize(static_cast<std::int32_t>(Below(4)) - 1);
    case 6:
    case 7:
    case 8:
    case 9:
      return Say("dequeued " + Describe(fifo->Dequeue()));
    case 10:
      return Say("peeked " + Describe(fifo->Peek()));
    case 11:
    case 12: // the same object once more, under another stamp
      if (fifo->Count() > 0) {
        const auto entity = fifo->Peek();
        if (auto* known = CDataEntity::From(entity)) known->TimeStamp(SomeStamp());
        fifo->Enqueue(entity);
      }
      return;
    default:
      return fifo->Enqueue(what % 2 == 0 ? SomeEntity() : NewEntity());
    }
  }

  void ChangeEntity(std::size_t what) {
    const auto entity = SomeKnown();
    switch (what) {
    case 0:
    case 1:
      return entity->TimeStamp(SomeStamp());
    case 2:
      return entity->DataAttribute(SomeName(), SomeStamp());
    case 3:
      return entity->DataAttributeValue(SomeName(), SomeStamp());
    case 4:
      return entity->DataType(SomeStamp());
    case 5:
      return entity->DataAttributes()->ItemValue(SomeName(), SomeStamp());
    case 6:
      return entity->DataAttributes()->Remove(SomeName());
    case 7: {
      const auto added = entity->DataAttributes()->Add(SomeName(), SomeStamp());
      return KeepIn(m_settings, added);
    }
    case 8:
    case 9:
      if (const auto setting = entity->DataAttributes()->Item(SomeName())) KeepIn(m_settings, setting);
      return;
    case 10:
      for (const auto& setting : entity->DataAttributes()->NewEnum()) KeepIn(m_settings, setting);
      return;
    case 11:
      if (Below(4) == 0) Cast<CSettings>(entity->DataAttributes())->Clear();
      return;
    case 12:
      return entity->DataAttributes()->Wash();
    case 13:
      if (Below(4) == 0) entity->Initialize(SomeData(), u"Response", SomeStamp());
      return;
    case 14:
      return KeepIn(m_attributes, entity->DataAttributes());
    case 15:
      if (!m_attributes.empty()) m_attributes[Below(m_attributes.size())]->ItemValue(u"Timestamp", SomeStamp());
      return;
    case 16:
    case 17:
    case 18:
    case 19:
    case 20:
      return ChangeSetting(what);
    case 21:
      if (auto* foreign = dynamic_cast<ForeignEntity*>(SomeEntity().Get())) foreign->Fails = Below(4) == 0;
      return;
    case 22:
      if (auto* foreign = dynamic_cast<ForeignEntity*>(SomeEntity().Get())) foreign->Stamp = SomeStamp();
      return;
    case 23:
      m_entities.erase(m_entities.begin() + static_cast<std::ptrdiff_t>(Below(m_entities.size())));
      return;
    default:
      return SomeEntity()->UpdateData(SomeData());
    }
  }
  void ChangeSetting(std::size_t what) {
    if (m_settings.empty()) return;
    const auto setting = m_settings[Below(m_settings.size())];
    switch (what) {
    case 16:
      return setting->Wash();
    case 17:
      if (Below(4) == 0) Cast<CSetting>(setting)->Name(SomeName());
      return;
    case 18:
      if (Below(4) == 0) Cast<CSetting>(setting)->Initialize(SomeName(), SomeStamp());
      return;
    default:
      return setting->Value(SomeStamp());
    }
  }

  void Ask(std::size_t what) {
    const auto fifo = SomeFIFO();
    switch (what) {
    case 0:
    case 1:
    case 2:
      return Say("compared " + std::to_string(fifo->ComparePositions(SomePosition(), SomePosition())));
    case 3:
      return KeepIn(m_positions, fifo->NextPosition(SomePosition()));
    case 4:
      return Say("item " + Describe(fifo->Item(SomePosition()).template ToObject<IDataEntity>()));
    case 5:
    case 6: {
      const auto index = static_cast<std::int64_t>(Below(12)) - 1;
      return Say("at index " + Describe(fifo->EntityAtDataIndex(index)));
    }
    case 7:
      return KeepIn(m_positions, fifo->StartOfObject());
    case 8:
      return KeepIn(m_positions, Below(2) == 0 ? fifo->StartOfSelection() : fifo->EndOfSelection());
    case 9:
      return Say(fifo->IsSelectionEmpty() ? "empty" : "not empty");
    case 10: {
      auto position = New<CDataPosition>(); // of an entity without content
      position->Initialize(New<CDataEntity>(), NoDataOffset);
      return KeepIn(m_positions, Ref<IPosition>(position));
    }
    case 11:
      return Say("error of nothing " + std::to_string(fifo->ComparePositions(nullptr, SomePosition())));
    default:
      return KeepIn(m_positions, SomeEntity()->Position());
    }
  }

  void ChangeSelection(std::size_t what) {
    const auto fifo = SomeFIFO();
    switch (what) {
    case 0:
    case 1:
      return fifo->SelectAllData();
    case 2:
    case 3:
    case 4:
    case 5:
    case 6: {
      const auto start = SomePosition();
      return fifo->SelectData(start, SomePosition());
    }
    case 7:
    case 8:
    case 9:
      return fifo->DeleteData();
    case 10: {
      const auto copy = fifo->CopyData(SomeIterator());
      if (copy->Count() > 12) return;
      Listen(copy);
      m_fifos[Below(2)] = copy;
      return;
    }
    case 11:
      return fifo->MergeData(SomeIterator());
    default: {
      const auto iterator = SomeIterator();
      const auto source = SomeFIFO();
      if (source->Count() + fifo->Count() > 16) return fifo->Clear();
      iterator->Attach(source);
      return fifo->MergeData(iterator);
    }
    }
  }

  /// The content in order, as the walk from position to position shows it.
  void Walk() {
    for (const auto& fifo : m_fifos) {
      try {
        Say("count " + std::to_string(fifo->Count()));
        auto position = fifo->StartOfObject();
        for (std::int32_t i = 0; i < fifo->Count(); ++i) {
          Say(Describe(position));
          position = fifo->NextPosition(position);
        }
      } catch (const Error& error) {
        Say("error " + std::to_string(error.Record().Number));
      }
    }
  }

  Ref<ITimeStamp> m_stamper = New<CMockTimeStampServer>();
  std::mt19937 m_random;
  int m_edits = 0; // that handlers may still do in this step
  std::array<Ref<FIFO>, 2> m_fifos;
  std::vector<Ref<IDataEntity>> m_entities;
  std::vector<Ref<IAttributes>> m_attributes;
  std::vector<Ref<IAttribute>> m_settings;
  std::vector<Ref<IPosition>> m_positions;
};

class FIFOPropertyTest : public test::DocumentTest {};

TEST_F(FIFOPropertyTest, BehavesAsWalksOverAPlainListUnderRandomOperations) {
  constexpr std::uint32_t rounds = 100; // each from new worlds, because a stuck one shows little
  constexpr std::uint32_t steps = 1000;
  for (std::uint32_t round = 0; round < rounds; ++round) {
    World<CDataFIFO> real;
    World<NaiveFIFO> naive;
    for (std::uint32_t step = 0; step < steps; ++step) {
      const std::uint32_t seed = round * steps + step;
      ASSERT_EQ(real.Step(seed), naive.Step(seed)) << "round " << round << ", step " << step;
    }
  }
}

} // namespace
} // namespace portico
