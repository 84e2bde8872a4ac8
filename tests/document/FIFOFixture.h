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
  StringView ClassName() const override;
  Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) override;
  Ref<ICreator> GetCreator(const Value& Specification) override;
  void Add(const Ref<ICreator>&) override;
  void Remove(const Ref<ICreator>&) override;
  void Substitue(const Ref<ICreator>&) override;
};

/// The document with its factory and its time stamp server, on a clock that stands still.
class DocumentTest : public FrameworkTest {
protected:
  DocumentTest();
  ~DocumentTest() override;

  static Ref<CDataEntity> Entity(StringView text, const String& stamp = {}, const String& type = u"Response");
  static Ref<CSelectionIterator> Iterator(const String& specification);
  static Ref<IPosition> EndMarker();
};

/// A FIFO whose events are written down.
class FIFOTest : public DocumentTest {
protected:
  FIFOTest();
  void Listen(CDataFIFO& fifo);
  void Note(const char* event, const Ref<IDataEntity>& entity, std::int64_t index);
  /// Entities with the texts "1", "2" … of two bytes each.
  std::vector<Ref<IDataEntity>> Fill(int count);
  /// The texts of all entities.
  static std::string Content(const CDataFIFO& fifo);

  Ref<CDataFIFO> FIFO = New<CDataFIFO>();
  std::vector<std::string> Events;
};

} // namespace portico::test
