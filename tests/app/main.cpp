// Runs the tests of the window: offscreen unless told otherwise, under the desk's own theme.
#include <gtest/gtest.h>

#include <QApplication>

#include "app/theme.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  karvel::ApplyTheme(application);
  return RUN_ALL_TESTS();
}
