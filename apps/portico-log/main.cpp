// Shows, exports and counts logs of conversations. Only wires: the work is done in src/.

#include "logtool/LogTool.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) try {
  using namespace portico::logtool;
  std::ios::sync_with_stdio(false);
  const auto request = ParseToolOptions(argc, argv);
  if (const auto* help = std::get_if<HelpText>(&request)) {
    std::cout << help->Text << std::flush;
    return 0;
  }
  if (const auto* error = std::get_if<UsageError>(&request)) {
    std::cerr << Diagnostic(error->Text) << std::endl;
    return static_cast<int>(ExitStatus::Usage);
  }
  return static_cast<int>(Run(std::get<ToolOptions>(request), {std::cin, std::cout, std::cerr}));
} catch (const std::exception& error) {
  std::cerr << "portico-log: internal error\n" << error.what() << std::endl;
  return 1;
}
