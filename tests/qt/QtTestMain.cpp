#include <QApplication>

#include <gtest/gtest.h>

// The Qt tests need an application object and no display: Qt's offscreen
// platform draws into memory, unless the caller chose a platform.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
