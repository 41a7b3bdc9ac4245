// The two pipes to the program.
#pragma once

#include <QJsonObject>
#include <QSocketNotifier>
#include <functional>

#include "qt_windows/report_messages.h"

namespace quillbox {

class ProgramLink {
 public:
  // `take` gets each message of the program, `gone` tells that it has ended.
  ProgramLink(std::function<void(const QJsonObject&)> take, std::function<void()> gone);

  // What can't be sent because the program has ended is dropped.
  static void Send(const QJsonObject& message);

 private:
  void Read();

  std::function<void(const QJsonObject&)> take_;
  std::function<void()> gone_;
  ReportMessages messages_;
  QSocketNotifier notifier_;
};

}  // namespace quillbox
