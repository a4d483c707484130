// The compiled client of the registered varnex.dll: GoogleTest suites that call its objects
// through their vtables. Prints "N passed, N failed" last (tests/com/run reads that line).
#include <cstdio>

#include <gtest/gtest.h>
#include <windows.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  CoInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  CoUninitialize();
  const testing::UnitTest& tests = *testing::UnitTest::GetInstance();
  std::printf("%d passed, %d failed\n", tests.successful_test_count(), tests.failed_test_count());
  return status;
}
