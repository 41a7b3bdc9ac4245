#include "sound/sound_server.h"

#include <signal.h>

#include <stdexcept>

namespace quillbox {
namespace {

bool IsAnswering() {
  QProcess question;
  question.start("pactl", {"info"});
  return question.waitForFinished() && question.exitCode() == 0;
}

}  // namespace

SoundServer::SoundServer() {
  qputenv("PULSE_RUNTIME_PATH", folder_.path().toUtf8());
  qputenv("PULSE_SERVER", "unix:" + folder_.filePath("server").toUtf8());
  StartAgain();
}

SoundServer::~SoundServer() {
  Kill();
}

void SoundServer::StartAgain() {
  process_.setStandardErrorFile(QProcess::nullDevice());
  process_.start("pulseaudio", {"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                                "-L", "module-null-sink sink_name=nothing norewinds=1", "-L",
                                "module-native-protocol-unix auth-anonymous=1 socket=" +
                                    folder_.filePath("server")});
  if (!process_.waitForStarted()) throw std::runtime_error("can't start pulseaudio");
  for (int tries = 0; !IsAnswering(); ++tries) {
    if (tries == 100 || process_.waitForFinished(100)) {
      throw std::runtime_error("no answer from pulseaudio");
    }
  }
}

void SoundServer::Freeze() {
  ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void SoundServer::Thaw() {
  ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

void SoundServer::Kill() {
  process_.kill();
  process_.waitForFinished();
}

}  // namespace quillbox
