#pragma once

#include "document/entities/CDataEntity.h"
#include "document/entities/CDataFIFO.h"
#include "document/entities/CSelectionIterator.h"
#include "document/log/CMockTimeStampServer.h"
#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"

#include <string>
#include <utility>
#include <vector>

namespace portico::test {

/// A factory of the document's own four creators.
class DocumentFactory final : public IObjectFactory {
public:
  StringView ClassName() const override { return u"DocumentFactory"; }
  Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) override {
    return GetCreator(Specification)->Create(Parameters);
  }
  Ref<ICreator> GetCreator(const Value& Specification) override {
    for (const CreatorRow* row : {&CtorDataEntity, &CtorDataFIFO, &CtorDataPosition, &CtorIterator}) {
      if (Specification.ToString() == row->Specification) return MakeCreator(*row);
    }
    HuntERR::RaiseStandard(5);
  }
  void Add(const Ref<ICreator>&) override {}
  void Remove(const Ref<ICreator>&) override {}
  void Substitue(const Ref<ICreator>&) override {}
};

/// The document with its factory and its time stamp server, on a clock that stands still.
class DocumentTest : public FrameworkTest {
protected:
  DocumentTest() {
    gObjectFactory = New<DocumentFactory>();
    gTimeStamper = New<CMockTimeStampServer>();
  }
  ~DocumentTest() override { gTimeStamper = {}; }

  static Ref<CDataEntity> Entity(StringView text, const String& stamp = {}, const String& type = u"Response") {
    return modDataDocument::CreateADataEntity(ToBytes(text), type, stamp);
  }
  static Ref<CSelectionIterator> Iterator(const String& specification) {
    auto iterator = New<CSelectionIterator>();
    iterator->Initialize(specification);
    return iterator;
  }
  static Ref<IPosition> EndMarker() {
    auto position = New<CDataPosition>();
    position->Initialize({}, {});
    return position;
  }
};

/// A FIFO whose events are written down.
class FIFOTest : public DocumentTest {
protected:
  FIFOTest() {
    FIFO->Initialize(0);
    Listen(*FIFO);
  }
  void Listen(CDataFIFO& fifo) {
    fifo.OnAdd.Connect([this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("add", entity, index); });
    fifo.OnRemove.Connect(
        [this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("remove", entity, index); });
    fifo.MaximumCountExceded.Connect(
        [this](const Ref<IDataEntity>& entity, std::int64_t index) { Note("exceeded", entity, index); });
  }
  void Note(const char* event, const Ref<IDataEntity>& entity, std::int64_t index) {
    Events.push_back(std::string(event) + " " + ToUtf8(FromBytes(entity->ReadData())) + " " + std::to_string(index));
  }
  /// Entities with the texts "1", "2" … of two bytes each.
  std::vector<Ref<IDataEntity>> Fill(int count) {
    std::vector<Ref<IDataEntity>> entities;
    for (int i = 1; i <= count; ++i) {
      entities.push_back(Entity(ToText(std::int64_t{i})));
      FIFO->Enqueue(entities.back());
    }
    Events.clear();
    return entities;
  }
  /// The texts of all entities.
  static std::string Content(const CDataFIFO& fifo) {
    std::string texts;
    const auto end = fifo.EndOfObject();
    for (auto at = fifo.StartOfObject(); fifo.ComparePositions(at, end) == 1; at = fifo.NextPosition(at)) {
      texts += ToUtf8(FromBytes(fifo.Item(at).ToObject<IDataEntity>()->ReadData())) + ";";
    }
    return texts;
  }

  Ref<CDataFIFO> FIFO = New<CDataFIFO>();
  std::vector<std::string> Events;
};

} // namespace portico::test
