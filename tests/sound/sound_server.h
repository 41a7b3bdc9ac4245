// A sound server for one test, whose one device plays into nothing.
#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace quillbox {

// While it lives it is the sound server of every process that this one starts.
class SoundServer {
 public:
  // Throws std::runtime_error when it doesn't start.
  SoundServer();
  ~SoundServer();
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  // Between them it lives but answers nobody.
  void Freeze();
  void Thaw();

  // Ends without a word to its clients.
  void Kill();

  void StartAgain();

 private:
  const QTemporaryDir folder_;
  QProcess process_;
};

}  // namespace quillbox
