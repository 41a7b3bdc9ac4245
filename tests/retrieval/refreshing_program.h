// A started program with two accounts, ready for a refresh.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {

class RefreshingProgram : public testing::Test {
 protected:
  RefreshingProgram() {
    program_.UsedBefore();
    program_.Host.Agents.Always(Answers("0"));
  }

  // Accounts "one" (of ann) and "two" (of bob); "one" is not the primary account.
  void Start(std::string_view dataToDownload, int accounts = 1) {
    program_.AddAccount("one", "ann", "x");
    if (accounts > 1) program_.AddAccount("two", "bob", "y");
    program_.Set(kDataToDownload, dataToDownload);
    program_.Start();
    program_.Set(kDownloadedSound, "done.wav");  // not in SoundFiles: the cycle's alone
    program_.Host.RunFor(std::chrono::seconds(1));
    program_.Host.Effects.Clear();
  }

  void Refresh() { program_.Host.Choose("RefreshNow"); }

  bool CanRefresh() const {
    for (const MenuItem& item : program_.State().TrayMenu) {
      if (item.Name == "RefreshNow") return item.Enabled;
    }
    return false;
  }

  bool WasEvaluated(const std::string& account) {
    return !program_.Host.Store.Read("Accounts", account).empty();
  }

  // The working files that there are.
  std::vector<std::string> WorkingFiles() {
    std::vector<std::string> files;
    for (const auto& [path, content] : program_.Host.Files.All()) files.push_back(path);
    return files;
  }

  SimulatedProgram program_;
};

}  // namespace quillbox
