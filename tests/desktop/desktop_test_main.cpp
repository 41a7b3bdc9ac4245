// Runs the tests without a display, with folders and a session bus of their own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  const QTemporaryDir home;
  const QByteArray path = home.path().toUtf8();
  qputenv("HOME", path);
  qputenv("XDG_CONFIG_HOME", path + "/config");
  qputenv("XDG_DATA_HOME", path + "/data");
  qputenv("XDG_RUNTIME_DIR", path);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);

  QProcess bus;
  bus.setStandardErrorFile(QProcess::nullDevice());
  bus.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
  bus.waitForReadyRead();
  qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());

  int failures = 0;
  {
    const QApplication application(argc, argv);
    failures = RUN_ALL_TESTS();
  }
  bus.kill();
  bus.waitForFinished();
  return failures;
}
