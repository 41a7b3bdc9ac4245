// A desktop for one test: an X server, a window manager, a session bus, and a tray when asked for.
#pragma once

#include <QProcess>
#include <QString>
#include <memory>

namespace quillbox {

struct EndProcess {
  void operator()(QProcess* process) const;
};
// Ends with its owner.
using OwnedProcess = std::unique_ptr<QProcess, EndProcess>;

class PrivateDesktop {
 public:
  // Throws std::runtime_error when a part of it doesn't start.
  PrivateDesktop();
  // By itself it has the size of what it holds, and doesn't say that it is a panel.
  void StartTray(const QStringList& options = {"--edge", "bottom", "--widthtype", "request",
                                               "--SetDockType", "false"});
  // Without a chance to clean up.
  void KillTray() { tray_.reset(); }

  // A program on this desktop.
  OwnedProcess Start(const QString& program, const QStringList& arguments = {});

  // openbox can leave a new window unmapped until the next event that it hears of; this is one.
  void NudgeWindowManager();

  // Runs it to its end and gives its output.
  QString Output(const QString& program, const QStringList& arguments);

  const QString& Display() const { return display_; }
  const QString& BusAddress() const { return busAddress_; }

 private:
  void AwaitWindowManager();

  QString display_, busAddress_;
  OwnedProcess bus_, server_, windowManager_, tray_;
};

}  // namespace quillbox
