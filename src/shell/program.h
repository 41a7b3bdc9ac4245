// The whole program on one host: owns the state and joins the rooms together.
#pragma once

#include "config/application_folder.h"
#include "config/settings_store.h"
#include "platform/host.h"
#include "region/regional_settings.h"
#include "shell/form1.h"
#include "state/app_state.h"
#include "state/program_context.h"

namespace quillbox {

class Program {
 public:
  // The ports that `host` refers to must outlive the program.
  Program(const Host& host, ApplicationFolder folder, RegionalSettings region, BuildValues build);

  // Its windows close with it.
  ~Program();

  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Loads the state, puts the icon into the tray and starts what the settings ask for. Runs once.
  // Returns when the start is done, and the program then lives in its host's events; or ends the
  // process if another instance runs. A step that fails is skipped.
  void Main();

  // Where the host reports what happens; it may call as soon as Main has begun.
  HostEvents& Events() { return form_; }

  const AppState& State() const { return state_; }

 private:
  Host host_;
  ApplicationFolder folder_;
  RegionalSettings region_;
  BuildValues build_;
  AppState state_;
  SettingsStore store_;
  ProgramContext context_;
  Form1 form_;
};

}  // namespace quillbox
