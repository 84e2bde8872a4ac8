#include "memory/SettingsStore.h"

#include <gtest/gtest.h>

namespace portico::memory {
namespace {

TEST(SettingsStoreTest, GivesTheDefaultForWhatWasNeverSaved) {
  SettingsStore store;
  EXPECT_EQ(store.GetSetting(u"T", u"S", u"K", u"default"), u"default");
  EXPECT_EQ(store.GetSetting(u"T", u"S", u"K", u"other"), u"other"); // asking saves nothing
}

TEST(SettingsStoreTest, GivesWhatWasSavedLast) {
  SettingsStore store;
  store.SaveSetting(u"T", u"S", u"K", u"1");
  store.SaveSetting(u"T", u"S", u"K", u"2");
  EXPECT_EQ(store.GetSetting(u"T", u"S", u"K", u"default"), u"2");
}

TEST(SettingsStoreTest, SavedEmptyTextIsNoAbsence) {
  SettingsStore store;
  store.SaveSetting(u"T", u"S", u"K", u"");
  EXPECT_EQ(store.GetSetting(u"T", u"S", u"K", u"default"), u"");
}

TEST(SettingsStoreTest, TitlesSectionsAndKeysAreApart) {
  SettingsStore store;
  store.SaveSetting(u"T", u"S", u"K", u"here");
  EXPECT_EQ(store.GetSetting(u"T2", u"S", u"K", u"-"), u"-");
  EXPECT_EQ(store.GetSetting(u"T", u"S2", u"K", u"-"), u"-");
  EXPECT_EQ(store.GetSetting(u"T", u"S", u"K2", u"-"), u"-");
}

} // namespace
} // namespace portico::memory
