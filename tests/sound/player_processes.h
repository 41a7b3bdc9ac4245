// The players that this process has started.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>

namespace quillbox {

inline QByteArray SystemFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// How many are in the system's list, also one that has ended and that nobody asked for yet.
inline int PlayerProcesses() {
  const QString self = QString::number(QCoreApplication::applicationPid());
  const QByteArray children = SystemFile("/proc/self/task/" + self + "/children").simplified();
  int players = 0;
  // A child bears this process's name until it has become the player, so the others are left out.
  for (const QByteArray& child : children.split(' ')) {
    const QByteArray name = SystemFile("/proc/" + child + "/comm").trimmed();
    if (!name.isEmpty() && name != "pulseaudio" && name != "parec") ++players;
  }
  return players;
}

// Runs the event loop until there is none; false when one is still there after twenty seconds.
inline bool PlayersEnd() {
  const QDeadlineTimer end(20000);
  while (PlayerProcesses() > 0 && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  }
  return PlayerProcesses() == 0;
}

// Whether a file of that name is mapped into this process.
inline bool HasLoaded(const char* library) {
  return SystemFile("/proc/self/maps").contains(library);
}

}  // namespace quillbox
