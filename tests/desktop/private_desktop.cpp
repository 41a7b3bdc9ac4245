#include "desktop/private_desktop.h"

#include <QProcessEnvironment>
#include <QThread>
#include <stdexcept>

namespace quillbox {
namespace {

// The first line that a program writes when it is ready.
QString FirstLine(QProcess& process) {
  while (!process.canReadLine()) {
    if (!process.waitForReadyRead(10000)) {
      throw std::runtime_error("no answer from " + process.program().toStdString());
    }
  }
  return QString::fromUtf8(process.readLine()).trimmed();
}

}  // namespace

void EndProcess::operator()(QProcess* process) const {
  process->kill();
  process->waitForFinished();
  delete process;
}

PrivateDesktop::PrivateDesktop() {
  bus_ = Start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
  busAddress_ = FirstLine(*bus_);
  // The server looks for a free number itself and tells it. It must not start afresh when whoever
  // looked at it first is gone.
  server_ = Start(
      "Xvfb", {"-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp", "-noreset"});
  display_ = ":" + FirstLine(*server_);
  windowManager_ = Start("openbox");
  AwaitWindowManager();
}

// A window that comes before the manager does may never be given the focus.
void PrivateDesktop::AwaitWindowManager() {
  constexpr int kTries = 500;
  for (int tries = 0; tries < kTries; ++tries) {
    if (Output("xprop", {"-root", "_NET_SUPPORTING_WM_CHECK"}).contains("window id")) return;
    QThread::msleep(20);
  }
  throw std::runtime_error("the window manager did not start");
}

void PrivateDesktop::NudgeWindowManager() {
  Output("xprop", {"-root", "-f", "QUILLBOX_NUDGE", "8s", "-set", "QUILLBOX_NUDGE", "nudge"});
}

void PrivateDesktop::StartTray(const QStringList& options) {
  tray_ = Start("trayer", options);
}

OwnedProcess PrivateDesktop::Start(const QString& program, const QStringList& arguments) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", display_);
  environment.insert("DBUS_SESSION_BUS_ADDRESS", busAddress_);
  environment.insert("QT_QPA_PLATFORM", "xcb");
  environment.remove("WAYLAND_DISPLAY");
  OwnedProcess process(new QProcess);
  process->setProcessEnvironment(environment);
  process->setStandardErrorFile(QProcess::nullDevice());
  process->start(program, arguments);
  if (!process->waitForStarted()) {
    throw std::runtime_error("can't start " + program.toStdString());
  }
  return process;
}

QString PrivateDesktop::Output(const QString& program, const QStringList& arguments) {
  const auto process = Start(program, arguments);
  process->waitForFinished();
  return QString::fromUtf8(process->readAllStandardOutput());
}

}  // namespace quillbox
