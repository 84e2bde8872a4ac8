#pragma once

#include "support/ErrorReports.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace portico::test {

/// Whether a call of a report bears the source label: its method to the letter, and exactly its parameters' names, each
/// with a value behind it, or as the label writes them if the values are not known. Behind empty brackets one value may
/// stand without a name.
bool Bears(StringView call, StringView label);

/// That an error has passed exactly these labels, deepest first.
void ExpectTrail(const String& report, std::initializer_list<StringView> labels);
void ExpectTrail(const ErrorRecord& error, std::initializer_list<StringView> labels);

/// The number and text that an error was raised with.
void ExpectError(const ErrorRecord& error, std::int32_t number, StringView text);

} // namespace portico::test
