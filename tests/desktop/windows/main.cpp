#include "desktop/editing/web_editing_surface.h"
#include "desktop/looks/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
  testing::InitGoogleTest(&argc, argv);
  // The build asks for the names of the tests, where there may be no screen.
  if (GTEST_FLAG_GET(list_tests))
    return RUN_ALL_TESTS();
  mrd::desktop::WebEditingSurface::prepareEngine();
  QApplication application(argc, argv);
  mrd::desktop::applyTheme(application, mrd::desktop::Theme::Light);
  return RUN_ALL_TESTS();
}
