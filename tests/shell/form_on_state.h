// The form on a state that the test owns and may change, as the Options do.
#pragma once

#include <gtest/gtest.h>

#include "shell/form1.h"
#include "simulated/simulated_host.h"
#include "tray/tray_menu.h"

namespace quillbox {

class FormOnState : public testing::Test {
 protected:
  FormOnState() {
    state_.Accounts = {"one", "two", "three"};
    state_.Usernames = {"ann", "bob", "cyd"};
    state_.Passwords = {"x", "y", "z"};
    BuildTraySubmenus(program_);
    host_.Connect(form_);
  }

  SimulatedHost host_;
  AppState state_;
  ApplicationFolder folder_{"/app", "/app", '/'};
  RegionalSettings region_;
  BuildValues build_{"h.test", "h.test", "https://m.test", "a@m.test", "1.3.0"};
  Host ports_ = host_.Ports();
  SettingsStore store_{host_.Store, host_.Files, folder_, state_.SettingsProfile};
  ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
  Form1 form_{program_};
};

}  // namespace quillbox
