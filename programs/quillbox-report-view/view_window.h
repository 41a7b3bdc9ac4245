// The window: a copy of the program's fields above, the caged page below.
#pragma once

#include <QPointer>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "cage.h"
#include "caged_page.h"
#include "program_link.h"
#include "qt_windows/reports_form.h"
#include "reports/reports_fields.h"

namespace quillbox {

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
