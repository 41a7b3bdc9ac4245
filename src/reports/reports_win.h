// The Reports window: asks for a report and shows it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "reports/report_data.h"
#include "reports/report_request.h"
#include "reports/reports_fields.h"
#include "state/program_context.h"

namespace quillbox {

// Lives as long as the program; each loading begins with new fields.
class ReportsWin {
 public:
  // The context must outlive the form.
  explicit ReportsWin(const ProgramContext& program);

  // Those of this loading; there are always some.
  ReportsFields& Fields() { return *fields_; }

  // A report is being made: the pointer is an hourglass.
  bool Busy() const { return busy_; }
  // Told when Busy changes while the window is there. There is one watcher; an empty function takes
  // it away.
  void WatchBusy(std::function<void()> watcher) { busyWatcher_ = std::move(watcher); }

  bool Loaded() const { return loaded_; }

  // Opens the window and fills its lists; does nothing when it is open.
  void Load();

  // The window has gone. A report that is being made is given up, and its files go; nothing is
  // shown any more. Those of a finished one stay until the next.
  void Closed();

 private:
  // The number of a loading. A routine that pumps events may find that its window was closed, and
  // another one opened.
  using Loading = unsigned;

  void FillFields();
  void Combo2_Click();
  void Command1_Click();
  void MakeReport(Loading loading);
  void ShowReport(Loading loading, const ReportData& data, std::string_view title);
  void ShowReportMessage(std::string_view text);
  void WaitForPage(Loading loading);
  void SetBusy(bool busy);
  bool IsCurrent(Loading loading) const { return loaded_ && loading == loading_; }

  const ProgramContext& program_;
  ReportFetch fetch_;
  std::unique_ptr<ReportsFields> fields_;
  // Of earlier loadings; an event of theirs may still be running.
  std::vector<std::unique_ptr<ReportsFields>> oldFields_;
  int runningEvents_ = 0;
  std::function<void()> busyWatcher_;
  Loading loading_ = 0;
  bool loaded_ = false;
  bool busy_ = false;
};

}  // namespace quillbox
