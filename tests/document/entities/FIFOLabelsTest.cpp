#include "document/FIFOFixture.h"

#include "document/entities/CDataSelection.h"

namespace portico {
namespace {

using test::ExpectError;
using test::ExpectTrail;
using test::Hex;
using test::Raised;

class FIFOLabelsTest : public test::FIFOTest {};

TEST_F(FIFOLabelsTest, OddLabelsStay) {
  const CDataFIFO fresh;
  constexpr char16_t tooEarly[] = u"Property cannot be accessed before Initialize().";
  const ErrorRecord all = Raised([] { New<CDataFIFO>()->SelectAllData(); });
  ExpectError(all, Hex(0x80041460), tooEarly);
  ExpectTrail(all, {u"CDataFIFO.SelectData()"});
  ExpectTrail(Raised([&] { fresh.Count(); }), {u"CDataFIFO.Count(DataEntity)"});
  ExpectTrail(Raised([&] { fresh.IsSelectionEmpty(); }), {u"CDataFIFO.IIteratableObject_Item()"});
  ExpectTrail(Raised([&] { fresh.EndOfSelection(); }), {u"Get CDataFIFO.ISelectableObject_EndOfSelection()"});
}

TEST_F(FIFOLabelsTest, EveryOtherMemberBearsItsOwnLabel) {
  const auto fresh = New<CDataFIFO>();
  ExpectTrail(Raised([&] { fresh->Clear(); }), {u"CDataFIFO.Clear()"});
  ExpectTrail(Raised([&] { fresh->DeleteData(); }), {u"CDataFIFO.DeleteData()"});
  ExpectTrail(Raised([&] { fresh->EntityAtDataIndex(1); }), {u"CDataFIFO.EntityAtDataIndex(Index)"});
  ExpectTrail(Raised([&] { fresh->NextPosition(EndMarker()); }), {u"CDataFIFO.IIteratableObject_NextPosition(Index)"});
  ExpectTrail(Raised([&] { fresh->StartOfSelection(); }), {u"CDataFIFO.ISelectableObject_StartOfSelection()"});
  const auto position = New<CDataPosition>();
  ExpectTrail(Raised([&] { position->DataOffset(); }), {u"CDataPosition.DataOffset()"});
  ExpectTrail(Raised([&] { position->DataEntity(); }), {u"CDataPosition.DataEntity()"});
  ExpectTrail(Raised([&] { position->IsLast(); }), {u"CDataPosition.IsLast()"});
  CDataSelection selection;
  ExpectTrail(Raised([&] { selection.Initialize({}, {}); }), {u"CDataSelection.Initialize(Start,End)"});
  ExpectTrail(Raised([&] { selection.StartingPosition(); }), {u"CDataSelection.StartingPosition()"});
  ExpectTrail(Raised([&] { selection.EndingPosition(); }), {u"CDataSelection.EndingPosition()"});
  ExpectTrail(Raised([&] { selection.IsEmpty(); }), {u"CDataSelection.IsEmpty()"});
  const auto iterator = New<CSelectionIterator>();
  ExpectTrail(Raised([&] { iterator->Attach(FIFO); }), {u"CSelectionIterator.IIterator_Attach(Object)"});
  ExpectTrail(Raised([&] { iterator->IsDone(); }), {u"CSelectionIterator.IIterator_IsDone()"});
  ExpectTrail(Raised([] { Iterator(u"IterateAll")->FirstItem(); }), {u"CSelectionIterator.IIterator_FirstItem()"});
  ExpectTrail(Raised([] { Iterator(u"IterateAll")->NextItem(); }), {u"CSelectionIterator.IIterator_NextItem()"});
}

TEST_F(FIFOLabelsTest, CallThroughTheInterfaceAddsItsOwnLine) {
  const auto fresh = New<CDataFIFO>();
  const IIteratableObject& object = *fresh;
  ExpectTrail(Raised([&] { object.Count(); }),
              {u"CDataFIFO.Count(DataEntity)", u"CDataFIFO.IIteratableObject_Count()"});
  ExpectTrail(Raised([&] { object.ComparePositions({}, {}); }),
              {u"CDataFIFO.ComparePositions(Position1,Position2)",
               u"CDataFIFO.IIteratableObject_ComparePositions(Position1,Position2)"});
  const auto iterator = Iterator(u"IterateAll");
  iterator->Attach(fresh);
  ExpectTrail(Raised([&] { iterator->FirstItem(); }),
              {u"CDataFIFO.ComparePositions(Position1,Position2)",
               u"CDataFIFO.IIteratableObject_ComparePositions(Position1,Position2)",
               u"CSelectionIterator.IIterator_FirstItem()"});
}

TEST_F(FIFOLabelsTest, UninitialisedPositionIsRefusedAlikeEverywhere) {
  const auto fresh = New<CDataPosition>();
  constexpr char16_t tooEarly[] = u"Method cannot be called before Initialize().";
  Fill(1);
  ExpectError(Raised([&] { FIFO->ComparePositions(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->NextPosition(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->Item(fresh); }), Hex(0x80041460), tooEarly);
  ExpectError(Raised([&] { FIFO->SelectData(fresh, EndMarker()); }), Hex(0x80041460), tooEarly);
}

} // namespace
} // namespace portico
