#include "sound/player_processes.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>

namespace quillbox {
namespace {

QByteArray SystemFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

// A child bears this process's name until it has become the player, so the others are left out.
int PlayerProcesses() {
  const QString self = QString::number(QCoreApplication::applicationPid());
  const QByteArray children = SystemFile("/proc/self/task/" + self + "/children").simplified();
  int players = 0;
  for (const QByteArray& child : children.split(' ')) {
    const QByteArray name = SystemFile("/proc/" + child + "/comm").trimmed();
    if (!name.isEmpty() && name != "pulseaudio" && name != "parec") ++players;
  }
  return players;
}

bool PlayersEnd() {
  const QDeadlineTimer end(20000);
  while (PlayerProcesses() > 0 && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  }
  return PlayerProcesses() == 0;
}

bool HasLoaded(const char* library) {
  return SystemFile("/proc/self/maps").contains(library);
}

}  // namespace quillbox
