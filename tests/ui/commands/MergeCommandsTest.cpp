#include "ui/commands/MergeCommands.h"

#include "document/log/CXMLDataStore.h"
#include "support/Files.h"
#include "support/fixtures/DocumentFixture.h"

#include <fstream>

namespace portico::test {
namespace {

class MergeTest : public DocumentFixture {
protected:
  MergeTest() {
    gXMLParserAvailable = true;
    for (const CreatorRow* row : {&CtorMerge, &CtorMergeFrom, &CtorXMLDataStore})
      gObjectFactory->Add(MakeCreator(*row));
  }

  static Ref<CDataFIFO> Container(std::initializer_list<StringView> texts) {
    const auto container = Create<CDataFIFO>(u"DataContainer", modGlobals::VarArray(0));
    for (StringView text : texts) container->Enqueue(Entity(text, u"Instruction"));
    return container;
  }
  static Ref<IIterator> Iterator() {
    return Create<IIterator>(u"SelectionIterator", modGlobals::VarArray(u"IterateAll"));
  }
  void MakeLog(std::initializer_list<StringView> texts) const {
    const auto store = Create<IDataStore>(u"DataStore", modGlobals::VarArray(Path.u16string(), true));
    store->OpenSession();
    for (StringView text : texts) store->AppendDataEntityToStore(Entity(text, u"Response"));
    store->CloseSession();
  }
  Ref<ICommand> MakeMergeFrom(const Ref<CDataFIFO>& target, const Ref<IIterator>& iterator) const {
    return Create<ICommand>(u"MergeDataContainerFromFile", modGlobals::VarArray(target, Path.u16string(), iterator));
  }

  const TemporaryFolder Folder;
  const std::filesystem::path Path = Folder.Path() / "a.log";
};

TEST_F(MergeTest, ReplacesTheTargetsSelectionByTheIteratorsEntities) {
  const auto target = Container({u"a", u"b"});
  target->SelectAllData();
  const auto iterator = Iterator();
  iterator->Attach(Container({u"c", u"d"}));
  const auto merge = Create<ICommand>(u"MergeDataContainer", modGlobals::VarArray(target, iterator));
  EXPECT_EQ(Lines(target), (List{"Instruction: a", "Instruction: b"}));
  merge->Execute();
  EXPECT_EQ(Lines(target), (List{"Instruction: c", "Instruction: d"}));
}

TEST_F(MergeTest, NeedsTargetAndIterator) {
  CMerge merge;
  auto error = Raised([&] { merge.Initialize({}, Iterator()); });
  ExpectError(error, 5, u"Target cannot be nothing.");
  ExpectTrail(error, {u"CPaste.Initialize()"});
  error = Raised([&] { merge.Initialize(Container({}), {}); });
  ExpectError(error, 5, u"SourceIterator cannot be nothing.");
  ExpectTrail(error, {u"CPaste.Initialize()"});
  ExpectError(Raised([&] { merge.Initialize({}, {}); }), 5, u"Target cannot be nothing.");
}

TEST_F(MergeTest, TargetMustBeAContainer) {
  class Foreign final : public IIteratableObject {
  public:
    StringView ClassName() const override { return u"Foreign"; }
    Ref<IPosition> NextPosition(const Ref<IPosition>&) const override { return {}; }
    Value Item(const Ref<IPosition>&) const override { return {}; }
    Ref<IPosition> StartOfObject() const override { return {}; }
    Ref<IPosition> EndOfObject() const override { return {}; }

  private:
    std::int32_t IIteratableObject_ComparePositions(const Ref<IPosition>&, const Ref<IPosition>&) const override {
      return 0;
    }
    std::int32_t IIteratableObject_Count() const override { return 0; }
  };
  CMerge merge;
  const auto error = Raised([&] { merge.Initialize(New<Foreign>(), Iterator()); });
  EXPECT_EQ(error.Number, 13);
  ExpectTrail(error, {u"CPaste.Initialize()"});
}

TEST_F(MergeTest, CannotBeExecutedBeforeInitialize) {
  auto error = Raised([] { CMerge().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CPaste.ICommand_Execute"});
  error = Raised([] { CMergeFrom().Execute(); });
  ExpectError(error, Hex(0x80041460), u"Method cannot be called before Initialize().");
  ExpectTrail(error, {u"CMergeFrom.ICommand_Execute"});
}

TEST_F(MergeTest, FailedMergeIsToldOnItsWay) {
  const auto target = New<CDataFIFO>(); // not initialised
  CMerge merge;
  merge.Initialize(target, Iterator());
  const auto error = Raised([&] { merge.Execute(); });
  EXPECT_EQ(error.Number, Hex(0x80041460));
  EXPECT_EQ(CallStack(error).back(), u"CPaste.ICommand_Execute()");
}

TEST_F(MergeTest, CreationReadsTheFileAndExecuteMerges) {
  MakeLog({u"1.5", u"2.5"});
  const auto target = Container({});
  const auto command = MakeMergeFrom(target, Iterator());
  EXPECT_EQ(target->Count(), 0);
  std::filesystem::remove(Path); // it has been read
  command->Execute();
  EXPECT_EQ(Lines(target), (List{"Response: 1.5", "Response: 2.5"}));
}

TEST_F(MergeTest, FileThatIsNotALogFailsAtCreationNotAtExecute) {
  std::ofstream(Path) << "*IDN?\n";
  const auto error = Raised([&] { MakeMergeFrom(Container({}), Iterator()); });
  ExpectError(error, 31037, u"The file, " + Path.u16string() + u", is not a valid data store.");
  const auto calls = CallStack(error);
  ASSERT_GE(calls.size(), 3U);
  EXPECT_TRUE(Bears(calls[calls.size() - 3], u"CMergeFrom.Initialize()"));
  EXPECT_TRUE(Bears(calls[calls.size() - 2], u"CtorMergeFrom.ICreator_Create(Params)"));
}

TEST_F(MergeTest, MissingFactoryIsToldBeforeAnythingIsRead) {
  const auto iterator = Iterator();
  const auto target = Container({});
  gObjectFactory = {};
  CMergeFrom merge;
  const auto error = Raised([&] { merge.Initialize(target, Path.u16string(), iterator); });
  ExpectError(error, 424, u"This operation requires an object factory.");
  ExpectTrail(error, {u"CMergeFrom.Initialize()"});
  EXPECT_FALSE(std::filesystem::exists(Path));
}

TEST_F(MergeTest, FileIsReadBeforeTheTargetIsLookedAt) {
  MakeLog({u"1.5"});
  const auto error = Raised([&] { MakeMergeFrom({}, Iterator()); });
  ExpectError(error, 5, u"Target cannot be nothing.");
}

TEST_F(MergeTest, FailureOfTheInnerCommandPassesByTheOuter) {
  class Failing final : public ICommand {
  public:
    StringView ClassName() const override { return u"Failing"; }
    void Execute() override { HuntERR::Check(false, 17, u"merge"); }
  };
  gObjectFactory->Substitue(New<CreatorOfOne>(u"MergeDataContainer", New<Failing>()));
  MakeLog({});
  const auto command = MakeMergeFrom(Container({}), Iterator());
  const auto error = Raised([&] { command->Execute(); });
  ExpectError(error, 17, u"merge");
  ExpectTrail(error, {u"CMergeFrom.ICommand_Execute"});
}

} // namespace
} // namespace portico::test
