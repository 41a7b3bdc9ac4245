#include "desktop/hand_over.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>

namespace quillbox {
namespace {

// It is for the case that the program can't be started, or doesn't read.
constexpr int kLongestMs = 2000;

// To outlive this program: out of the reach of what ends the others of its terminal or session.
void SetUp(QProcess& process, const HandOver& handOver) {
  process.setProgram(handOver.Program);
  process.setArguments({handOver.Command});
  process.setProcessEnvironment(handOver.Environment);
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.setChildProcessModifier([fileMask = handOver.FileMask] {
    ::umask(fileMask);
    ::setsid();
  });
}

}  // namespace

// Nobody owns the process: destroying it would end what runs.
void HandToFetchProgram(const HandOver& handOver) {
  auto* const process = new QProcess;
  SetUp(*process, handOver);
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  process->start();
  process->write((handOver.Line + "\n").c_str());
  process->closeWriteChannel();
  process->waitForBytesWritten(kLongestMs);
  if (process->state() == QProcess::NotRunning) process->deleteLater();
}

}  // namespace quillbox
