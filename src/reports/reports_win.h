// The Reports window: asks for a report and shows it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/agent_runner.h"
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
  // Told when Busy changes. There is one watcher; an empty function takes it away.
  void WatchBusy(std::function<void()> watcher) { busyWatcher_ = std::move(watcher); }

  bool Loaded() const { return loaded_; }
  void Load();

  // The window has gone. A download that runs is given up, and its files go.
  void Closed();

 private:
  const ProgramContext& program_;
  std::unique_ptr<ReportsFields> fields_ = std::make_unique<ReportsFields>();
  std::function<void()> busyWatcher_;
  bool loaded_ = false;
  bool busy_ = false;
};

}  // namespace quillbox
