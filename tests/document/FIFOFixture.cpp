#include "document/FIFOFixture.h"

namespace portico::test {

StringView DocumentFactory::ClassName() const { return u"DocumentFactory"; }

Ref<IObject> DocumentFactory::CreateObject(const Value& Specification, const Params& Parameters) {
  return GetCreator(Specification)->Create(Parameters);
}

Ref<ICreator> DocumentFactory::GetCreator(const Value& Specification) {
  for (const CreatorRow* row : {&CtorDataEntity, &CtorDataFIFO, &CtorDataPosition, &CtorIterator}) {
    if (Specification.ToString() == row->Specification) return MakeCreator(*row);
  }
  HuntERR::RaiseStandard(5);
}

void DocumentFactory::Add(const Ref<ICreator>&) {}

void DocumentFactory::Remove(const Ref<ICreator>&) {}

void DocumentFactory::Substitue(const Ref<ICreator>&) {}

DocumentTest::DocumentTest() {
  gObjectFactory = New<DocumentFactory>();
  gTimeStamper = New<CMockTimeStampServer>();
}

DocumentTest::~DocumentTest() { gTimeStamper = {}; }

Ref<CDataEntity> DocumentTest::Entity(StringView text, const String& stamp, const String& type) {
  return modDataDocument::CreateADataEntity(ToBytes(text), type, stamp);
}

Ref<CSelectionIterator> DocumentTest::Iterator(const String& specification) {
  auto iterator = New<CSelectionIterator>();
  iterator->Initialize(specification);
  return iterator;
}

Ref<IPosition> DocumentTest::EndMarker() {
  auto position = New<CDataPosition>();
  position->Initialize({}, {});
  return position;
}

FIFOTest::FIFOTest() {
  FIFO->Initialize(0);
  Listen(*FIFO);
}

void FIFOTest::Listen(CDataFIFO& fifo) {
  fifo.OnAdd.Connect([this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("add", entity, index); });
  fifo.OnRemove.Connect([this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("remove", entity, index); });
  fifo.MaximumCountExceded.Connect(
      [this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("exceeded", entity, index); });
}

void FIFOTest::Note(const char* event, const Ref<IDataEntity>& entity, std::int64_t index) {
  Events.push_back(std::string(event) + " " + ToUtf8(FromBytes(entity->ReadData())) + " " + std::to_string(index));
}

std::vector<Ref<IDataEntity>> FIFOTest::Fill(int count) {
  std::vector<Ref<IDataEntity>> entities;
  for (int i = 1; i <= count; ++i) {
    entities.push_back(Entity(ToText(std::int64_t{i})));
    FIFO->Enqueue(entities.back());
  }
  Events.clear();
  return entities;
}

std::string FIFOTest::Content(const CDataFIFO& fifo) {
  std::string texts;
  const auto end = fifo.EndOfObject();
  for (auto at = fifo.StartOfObject(); fifo.ComparePositions(at, end) == 1; at = fifo.NextPosition(at)) {
    texts += ToUtf8(FromBytes(fifo.Item(at).ToObject<IDataEntity>()->ReadData())) + ";";
  }
  return texts;
}

} // namespace portico::test
