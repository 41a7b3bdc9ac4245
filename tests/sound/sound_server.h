// A sound server for one test, whose one device plays into nothing.
#pragma once

#include <signal.h>

#include <QProcess>
#include <QTemporaryDir>
#include <stdexcept>

namespace quillbox {

// While it lives it is the sound server of every process that this one starts.
class SoundServer {
 public:
  // Throws std::runtime_error when it doesn't start.
  SoundServer() {
    qputenv("PULSE_RUNTIME_PATH", folder_.path().toUtf8());
    qputenv("PULSE_SERVER", "unix:" + folder_.filePath("server").toUtf8());
    StartAgain();
  }
  ~SoundServer() { Kill(); }
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  // Between them it lives but answers nobody.
  void Freeze() { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }
  void Thaw() { ::kill(static_cast<pid_t>(process_.processId()), SIGCONT); }

  // Ends without a word to its clients.
  void Kill() {
    process_.kill();
    process_.waitForFinished();
  }

  void StartAgain() {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(
        "pulseaudio",
        {"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "-L",
         "module-null-sink sink_name=nothing norewinds=1", "-L",
         "module-native-protocol-unix auth-anonymous=1 socket=" + folder_.filePath("server")});
    if (!process_.waitForStarted()) throw std::runtime_error("can't start pulseaudio");
    for (int tries = 0; !IsAnswering(); ++tries) {
      if (tries == 100 || process_.waitForFinished(100)) {
        throw std::runtime_error("no answer from pulseaudio");
      }
    }
  }

 private:
  static bool IsAnswering() {
    QProcess question;
    question.start("pactl", {"info"});
    return question.waitForFinished() && question.exitCode() == 0;
  }

  const QTemporaryDir folder_;
  QProcess process_;
};

}  // namespace quillbox
