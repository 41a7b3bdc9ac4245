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
  // `seed` decides what a power failure leaves of the files.
  explicit ContextOnState(std::uint64_t seed = 0) : host_(seed) {}

  // With windows of the test's own in place of the simulated ones.
  explicit ContextOnState(Forms& windows)
      : ports_(WithWindows(host_.Ports(), windows, host_.Browser)) {}
  ContextOnState(Forms& windows, ReportBrowser& browser)
      : ports_(WithWindows(host_.Ports(), windows, browser)) {}

  SimulatedHost host_;
  AppState state_ = StateWithAccounts();
  ApplicationFolder folder_{"/app", "/app", '/'};
  RegionalSettings region_;
  BuildValues build_{"h.test", "h.test", "https://m.test", "a@m.test", "1.3.0"};
  Host ports_ = host_.Ports();
  SettingsStore store_{host_.Store, host_.Files, folder_, state_.SettingsProfile};
  ProgramContext program_{state_, store_, ports_, folder_, region_, build_};

 private:
  static AppState StateWithAccounts() {
    AppState state;
    state.Accounts = {"one", "two", "three"};
    state.Usernames = {"ann", "bob", "cyd"};
    state.Passwords = {"x", "y", "z"};
    return state;
  }

  static Host WithWindows(Host host, Forms& forms, ReportBrowser& browser) {
    return {host.Store,   host.Variables, host.Disk,     host.Time,    host.TimerSource,
            host.Events,  host.Agents,    host.Grants,   host.Tray,    host.TrayMenus,
            host.Tooltip, host.Mouse,     host.Boxes,    forms,        host.Chooser,
            browser,      host.Speaker,   host.Instance, host.Network, host.Opener,
            host.StartUp, host.Exit};
  }
};

}  // namespace quillbox
