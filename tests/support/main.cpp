#include "support/RunTests.h"

#include <gmock/gmock.h>

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  return portico::test::RunTests();
}
