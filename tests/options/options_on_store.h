// The Options dialog over a settings store of the test's choice.
#pragma once

#include <string>

#include "options/opts.h"
#include "simulated/simulated_host.h"

namespace quillbox {

// All but the store is simulated.
class OptionsOnStore {
 public:
  // Opens the dialog. The per-user store holds the settings when `profile` is empty, else the file
  // of that name in `folder`. The stores must outlive this object.
  OptionsOnStore(PerUserStore& userStore, Files& files, const std::string& folder,
                 const std::string& profile);

  // Gives every field of every page a value that belongs to `generation`, one to seven accounts
  // among them, and presses "Apply": all pages are written.
  void Apply(unsigned generation);

  const SettingsStore& Store() const { return store_; }

 private:
  void SetAccounts(unsigned generation);
  void SetFields(unsigned generation);
  void MarkAllPages();

  SimulatedHost host_;
  AppState state_;
  ApplicationFolder folder_;
  RegionalSettings region_;
  BuildValues build_;
  Host ports_ = host_.Ports();
  SettingsStore store_;
  ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{host_.Chooser};
  Opts form_{program_, autoUpdate_, dialog_};
};

// What an Apply that was stopped left behind.
struct StoppedApply {
  unsigned Generation = 0;  // the last one that is there wholly
  int Old = 0;              // settings that are of this generation
  int New = 0;              // settings that are of the next already
  std::string Problem;      // a setting that is neither, or account lists that are mixed
};
StoppedApply InspectStoppedApply(const SettingsStore& store);

}  // namespace quillbox
