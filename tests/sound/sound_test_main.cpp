// Runs the tests with an event loop and folders of their own.
#include <gtest/gtest.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  const QTemporaryDir home;
  const QByteArray path = home.path().toUtf8();
  qputenv("HOME", path);
  qputenv("XDG_CONFIG_HOME", path + "/config");
  qputenv("XDG_RUNTIME_DIR", path);
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qunsetenv("DISPLAY");
  testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
