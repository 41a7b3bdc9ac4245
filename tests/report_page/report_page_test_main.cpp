// Runs the tests inside an application without a display.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

#include <QApplication>

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  setenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu --force-renderer-accessibility", 0);
  // The engine's sandbox refuses to run for root, which is who runs tests in containers.
  if (geteuid() == 0) setenv("QTWEBENGINE_DISABLE_SANDBOX", "1", 0);
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
