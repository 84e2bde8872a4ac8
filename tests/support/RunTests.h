#pragma once

namespace portico::test {

/// Runs the chosen tests and answers the exit status. It is a failure as well when there is no test to run, and when a
/// test ends the program, with whatever status: the tests behind it would be passed over without a word.
int RunTests();

} // namespace portico::test
