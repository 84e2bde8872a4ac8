#include "completion/WordForm.h"

#include <gtest/gtest.h>

namespace portico::completion {
namespace {

std::string Completed(const WordForm& form, std::string_view typed, std::string_view name) {
  return form.Complete(typed, name).value_or("none");
}

TEST(WordForm, IsShortUnlessItIsLonger) {
  const WordForm form;
  EXPECT_EQ(Completed(form, "", "VOLTage"), "VOLT");
  EXPECT_EQ(Completed(form, "VO", "VOLTage"), "VOLT");
  EXPECT_EQ(Completed(form, "VOLT", "VOLTage"), "VOLT");
  EXPECT_EQ(Completed(form, "VOLTA", "VOLTage"), "VOLTAGE");
  EXPECT_EQ(Completed(form, "VOLTAGE", "VOLTage"), "VOLTAGE");
  EXPECT_EQ(Completed(form, "VOLTAGES", "VOLTage"), "none");
  EXPECT_EQ(Completed(form, "VOLX", "VOLTage"), "none");
}

TEST(WordForm, IsLongWhereTheWordBeforeWas) {
  WordForm form;
  form.Learn("SYSTEM", "SYSTem");
  EXPECT_EQ(Completed(form, "ER", "ERRor"), "ERROR");
  EXPECT_EQ(Completed(form, "ERR", "ERRor"), "ERROR");
  form.Learn("DC", "DC"); // which tells nothing
  EXPECT_EQ(Completed(form, "ER", "ERRor"), "ERROR");
  form.Learn("VOLT", "VOLTage");
  EXPECT_EQ(Completed(form, "ER", "ERRor"), "ERR");
}

TEST(WordForm, KeepsTheLettersThatAreTyped) {
  const WordForm form;
  EXPECT_EQ(Completed(form, "vo", "VOLTage"), "volt");
  EXPECT_EQ(Completed(form, "vO", "VOLTage"), "vOLT");
  EXPECT_EQ(Completed(form, "Vo", "VOLTage"), "Volt");
  EXPECT_EQ(Completed(form, "Volta", "VOLTage"), "Voltage");
  EXPECT_EQ(Completed(form, "VOLTa", "VOLTage"), "VOLTage");
}

TEST(WordForm, GoesOnInTheCaseOfTheWordBefore) {
  WordForm form;
  form.LearnCase("syst");
  EXPECT_EQ(Completed(form, "", "ERRor"), "err");
  EXPECT_EQ(Completed(form, "E", "ERRor"), "ERR");
  form.LearnCase("2"); // which tells nothing
  EXPECT_EQ(Completed(form, "", "ERRor"), "err");
  form.LearnCase("SYST");
  EXPECT_EQ(Completed(form, "", "ERRor"), "ERR");
  form.Learn("SYSTem", "SYSTem");
  EXPECT_EQ(Completed(form, "", "ERRor"), "ERRor");
  EXPECT_EQ(Completed(form, "ERR", "ERRor"), "ERRor");
}

} // namespace
} // namespace portico::completion
