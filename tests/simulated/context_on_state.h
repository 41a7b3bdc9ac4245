// A program's context on a simulated host; the test owns its state and may change it, as the
// Options do.
#pragma once

#include <gtest/gtest.h>

#include "config/settings_store.h"
#include "simulated/simulated_host.h"
#include "state/program_context.h"

namespace quillbox {

class ContextOnState : public testing::Test {
 protected:
  ContextOnState() {
    state_.Accounts = {"one", "two", "three"};
    state_.Usernames = {"ann", "bob", "cyd"};
    state_.Passwords = {"x", "y", "z"};
  }

  SimulatedHost host_;
  AppState state_;
  ApplicationFolder folder_{"/app", "/app", '/'};
  RegionalSettings region_;
  BuildValues build_{"h.test", "h.test", "https://m.test", "a@m.test", "1.3.0"};
  Host ports_ = host_.Ports();
  SettingsStore store_{host_.Store, host_.Files, folder_, state_.SettingsProfile};
  ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
};

}  // namespace quillbox
