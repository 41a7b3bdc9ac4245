// A started program with its Reports window open.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "simulated/used_program.h"

namespace quillbox {

class ReportingProgram : public testing::Test {
 protected:
  static constexpr const char* kReport =
      "heading\n1/1/2007\t1,000\t5\t0.50%\t1\t1.10\n1/2/2007\t2,000\t6\t0.30%\t1\t2.20\nt\na\n";
  static constexpr const char* kNotDownloaded =
      "body <SPAN STYLE=\"font-family: verdana; font-size: 11px; color: red;\">"
      "Error: The requested data could not be downloaded!</SPAN>";
  static constexpr const char* kNoData =
      "body <SPAN STYLE=\"font-family: verdana; font-size: 11px; color: red;\">"
      "No data is available for the selected report and/or date range.</SPAN>";

  // With accounts "one" (of ann) and "two" (of bob).
  void Open() {
    program_.AddAccount("two", "bob", "y");
    program_.StartQuietly();
    OpenWindow();
    host_.Effects.Clear();
  }

  void OpenWindow() { host_.Choose("Reports"); }
  void CloseWindow() {
    host_.Do([this] { host_.Windows.CloseBox(FormName::kReportsWin); });
  }
  ReportsWin& Window() { return *host_.Windows.ReportsWin(); }
  ReportsFields& Fields() { return Window().Fields(); }

  // How long it took.
  std::chrono::milliseconds Generate() {
    const TimePoint begin = host_.Time.Now();
    host_.Do([this] { Fields().Command1.Click(); });
    return host_.Time.Now() - begin;
  }

  static AgentBehaviour Reports(const char* log, std::optional<std::string> report = kReport) {
    AgentBehaviour agent = Answers(log);
    agent.Data = std::move(report);
    return agent;
  }

  // What the window showed.
  std::vector<std::string> Shown() { return host_.Trace({"navigate", "body"}); }

  // Data and log of a run, also when they are unfinished.
  std::vector<std::string> WorkingFiles() {
    std::vector<std::string> files = host_.Files.List("/app", "Report.dat*");
    for (const std::string& log : host_.Files.List("/app", "Report.log*")) files.push_back(log);
    return files;
  }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

}  // namespace quillbox
