// The window, a copy of the program's fields above and the caged page below, and its link to the
// program.
#pragma once

#include <QJsonObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <functional>

#include "cage.h"
#include "qt_windows/report_messages.h"
#include "qt_windows/reports_form.h"
#include "reports/reports_fields.h"

namespace quillbox {

// The two pipes to the program.
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

class ViewWindow {
 public:
  ViewWindow();

 private:
  void TellProgram();
  void Take(const QJsonObject& message);
  void Navigate(const QJsonObject& message);
  void ShowMenu(const QPoint& place);

  ReportsFields fields_;
  FilesOfPage files_;
  Interceptor interceptor_;
  QWebEngineProfile profile_;  // of no name: kept in memory alone
  CagedPage page_;
  ProgramLink link_;
  QPointer<ReportsForm> form_;
  bool reportShown_ = false;
};

}  // namespace quillbox
