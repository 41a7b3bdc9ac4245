// A started program with two accounts, ready for a refresh.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "simulated/used_program.h"

namespace quillbox {

class RefreshingProgram : public testing::Test {
 protected:
  RefreshingProgram() { program_.Host.Agents.Always(Answers("0")); }

  // Accounts "one" (of ann) and "two" (of bob); "one" is not the primary account.
  void Start(std::string_view dataToDownload, int accounts = 1) {
    if (accounts > 1) program_.AddAccount("two", "bob", "y");
    program_.Set(kDataToDownload, dataToDownload);
    program_.StartQuietly();
    program_.Set(kDownloadedSound, "done.wav");  // not in SoundFiles: the cycle's alone
  }

  // How long it took.
  std::chrono::milliseconds Refresh() {
    const TimePoint begin = program_.Host.Time.Now();
    program_.Host.Choose("RefreshNow");
    return program_.Host.Time.Now() - begin;
  }

  bool CanRefresh() const {
    return program_.State().TrayMenu[2].Enabled && !program_.State().RefreshRunning;
  }

  bool WasEvaluated(const std::string& account) {
    return !program_.Host.Store.Read("Accounts", account).empty();
  }

  UsedProgram program_;
};

}  // namespace quillbox
