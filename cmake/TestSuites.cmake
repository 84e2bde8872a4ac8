# Read by ctest before it runs.

# add_suites(NAME PROGRAM): each suite of a GoogleTest program is one test of ctest's, "NAME.Suite", run in one process.
# A program that cannot tell its suites is a test of its own, "NAME", and fails.
function(add_suites name program)
  execute_process(COMMAND "${program}" --gtest_list_tests TIMEOUT 60
                  OUTPUT_VARIABLE listing ERROR_QUIET RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    add_test("${name}" "${program}" --gtest_list_tests)
    return()
  endif()
  # A suite stands at the beginning of a line and ends with a dot; what follows there is a remark. Its tests are indented.
  string(REGEX MATCHALL "\n[A-Za-z0-9_/]+\\." suites "\n${listing}")
  foreach(suite ${suites})
    string(REGEX REPLACE "^\n|\\.$" "" suite "${suite}")
    add_test("${name}.${suite}" "${program}" "--gtest_filter=${suite}.*")
    set_tests_properties("${name}.${suite}" PROPERTIES TIMEOUT 300)
  endforeach()
endfunction()
