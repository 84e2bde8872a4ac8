#include "ui/dialogs/KnownInstruments.h"

#include "memory/SettingsStore.h"
#include "support/Labels.h"
#include "support/fixtures/FrameworkTest.h"

namespace portico::test {
namespace {

class KnownInstrumentsTest : public FrameworkTest {
protected:
  KnownInstrumentsTest() { gSettingsStore = std::make_shared<memory::SettingsStore>(); }
  ~KnownInstrumentsTest() override { gSettingsStore.reset(); }

  using Names = std::vector<std::string>;

  static Names Listed(std::int32_t kind = InstrumentTreeKind, std::int32_t branch = InstrumentBranch) {
    return Listed(KnownInstruments(), kind, branch);
  }
  static Names Listed(KnownInstruments instruments, std::int32_t kind = InstrumentTreeKind,
                      std::int32_t branch = InstrumentBranch) {
    Names names;
    const auto tree = instruments.OpenTree(kind);
    const auto item = tree->SelectBranch(branch);
    for (item->First(); !item->IsDone(); item->Next()) names.push_back(ToUtf8(item->ItemName()));
    return names;
  }
  /// Those opened before, with what is simulated behind them left out.
  static Names Opened() {
    Names names = Listed();
    names.resize(names.size() - 3);
    return names;
  }
};

TEST_F(KnownInstrumentsTest, OffersTheSimulatedOnesToANewUser) {
  EXPECT_EQ(Listed(), (Names{"VInstr->SIM::dmm::INSTR", "VInstr->SIM::psu::INSTR", "VInstr->SIM::scope::INSTR"}));
}

TEST_F(KnownInstrumentsTest, OffersTheLastOpenedFirst) {
  KnownInstruments::Remember(u"GPIB0::7::INSTR");
  KnownInstruments::Remember(u"TCPIP::192.0.2.7::5025::SOCKET");
  EXPECT_EQ(Listed(), (Names{"Visa->TCPIP::192.0.2.7::5025::SOCKET", "Visa->GPIB0::7::INSTR", "VInstr->SIM::dmm::INSTR",
                             "VInstr->SIM::psu::INSTR", "VInstr->SIM::scope::INSTR"}));
}

TEST_F(KnownInstrumentsTest, OneOpenedAgainMovesToTheFront) {
  for (StringView name : {u"one", u"two", u"ONE"}) KnownInstruments::Remember(String(name));
  EXPECT_EQ(Opened(), (Names{"Visa->ONE", "Visa->two"}));
}

TEST_F(KnownInstrumentsTest, SimulatedOneThatWasOpenedStandsThereOnce) {
  KnownInstruments::Remember(u"sim::psu::instr");
  EXPECT_EQ(Listed(), (Names{"VInstr->sim::psu::instr", "VInstr->SIM::dmm::INSTR", "VInstr->SIM::scope::INSTR"}));
}

TEST_F(KnownInstrumentsTest, WhatIsAttachedStandsBehindTheSimulated) {
  KnownInstruments::Remember(u"one");
  const KnownInstruments instruments([](const auto&) {
    return std::vector<String>{u"ASRL1::INSTR", u"USB0::1::2::SN::0::INSTR"};
  });
  EXPECT_EQ(Listed(instruments),
            (Names{"Visa->one", "VInstr->SIM::dmm::INSTR", "VInstr->SIM::psu::INSTR", "VInstr->SIM::scope::INSTR",
                   "Visa->ASRL1::INSTR", "Visa->USB0::1::2::SN::0::INSTR"}));
  EXPECT_EQ(Listed(instruments, 6), Names{});
  EXPECT_EQ(Listed(instruments, InstrumentTreeKind, 1), Names{});
}

TEST_F(KnownInstrumentsTest, WhatIsAttachedIsAskedForBesideWhatStandsThereAlready) {
  KnownInstruments::Remember(u"sim::psu::instr");
  std::vector<String> known;
  Listed(KnownInstruments([&known](const std::vector<String>& names) {
    known = names;
    return std::vector<String>();
  }));
  EXPECT_EQ(known, (std::vector<String>{u"sim::psu::instr", u"SIM::dmm::INSTR", u"SIM::scope::INSTR"}));
}

TEST_F(KnownInstrumentsTest, WhatIsAttachedIsAskedEachTime) {
  std::vector<String> attached;
  const KnownInstruments instruments([&attached](const auto&) { return attached; });
  EXPECT_EQ(Listed(instruments).size(), 3U);
  attached.emplace_back(u"ASRL1::INSTR");
  EXPECT_EQ(Listed(instruments).size(), 4U);
}

TEST_F(KnownInstrumentsTest, TenAreRemembered) {
  for (int i = 1; i <= 12; ++i) KnownInstruments::Remember(u"name " + ToText(std::int64_t{i}));
  const Names names = Opened();
  ASSERT_EQ(names.size(), 10U);
  EXPECT_EQ(names.front(), "Visa->name 12");
  EXPECT_EQ(names.back(), "Visa->name 3");
}

TEST_F(KnownInstrumentsTest, BlanksAroundANameAreNotRemembered) {
  KnownInstruments::Remember(u" one ");
  KnownInstruments::Remember(u"  ");
  EXPECT_EQ(Opened(), Names{"Visa->one"});
}

TEST_F(KnownInstrumentsTest, StandsInTheSettingsStore) {
  KnownInstruments::Remember(u"one");
  KnownInstruments::Remember(u"two");
  EXPECT_EQ(gSettingsStore->GetSetting(u"Tolvane Portico", u"OpenedInstruments", u"Name1", u""), u"two");
  EXPECT_EQ(gSettingsStore->GetSetting(u"Tolvane Portico", u"OpenedInstruments", u"Name2", u""), u"one");
}

TEST_F(KnownInstrumentsTest, StoreThatSomebodyElseHasWrittenMayHaveGapsAndNamesTwice) {
  const auto write = [](const char16_t* key, const char16_t* name) {
    gSettingsStore->SaveSetting(u"Tolvane Portico", u"OpenedInstruments", key, name);
  };
  write(u"Name1", u"one");
  write(u"Name3", u"ONE");
  write(u"Name4", u"two");
  EXPECT_EQ(Opened(), (Names{"Visa->one", "Visa->two"}));
}

TEST_F(KnownInstrumentsTest, WorksWithoutAStore) {
  gSettingsStore.reset();
  EXPECT_EQ(Listed().size(), 3U);
  EXPECT_EQ(Raised([] { KnownInstruments::Remember(u"one"); }).Number, 91);
}

TEST_F(KnownInstrumentsTest, OtherTreesAndBranchesAreEmpty) {
  EXPECT_EQ(Listed(6), Names{});
  EXPECT_EQ(Listed(InstrumentTreeKind, 1), Names{});
}

TEST_F(KnownInstrumentsTest, IteratorStartsAgainAtFirst) {
  const auto item = KnownInstruments().OpenTree(7)->SelectBranch(0);
  while (!item->IsDone()) item->Next();
  item->First();
  EXPECT_EQ(item->ItemName(), u"VInstr->SIM::dmm::INSTR");
}

} // namespace
} // namespace portico::test
