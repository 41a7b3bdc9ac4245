// The Reports window's browser, without an engine.
#pragma once

#include <chrono>
#include <string>

#include "platform/report_browser.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

class SimulatedBrowser final : public ReportBrowser {
 public:
  SimulatedBrowser(SimulatedTime& time, SimulatedTrace& trace) : time_(time), trace_(trace) {}

  // How long a page takes from now on.
  void SetLoadTime(std::chrono::milliseconds duration) { loadTime_ = duration; }

  void Navigate(const std::string& address) override;
  int ReadyState() override;
  void SetBody(const std::string& html) override;

 private:
  SimulatedTime& time_;
  SimulatedTrace& trace_;
  std::chrono::milliseconds loadTime_{20};
  TimePoint loadedAt_{};
};

}  // namespace quillbox
