#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
  testing::InitGoogleTest(&argc, argv);
  // The build asks for the names of the tests, where there may be no screen.
  if (GTEST_FLAG_GET(list_tests))
    return RUN_ALL_TESTS();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
