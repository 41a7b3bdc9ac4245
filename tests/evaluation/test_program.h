// A program context over a store in memory, which notes in order what the evaluation does to the
// host.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/per_user_store.h"
#include "platform/sounds.h"
#include "platform/tray_host.h"
#include "simulated/idle_ports.h"
#include "state/program_context.h"
#include "test_region.h"

namespace quillbox {

using Trace = std::vector<std::string>;

struct TracedStore : PerUserStore {
  explicit TracedStore(Trace& trace) : Did(trace) {}
  std::string Read(std::string_view section, std::string_view key) override {
    return Values[std::string(section) + '/' + std::string(key)];
  }
  void Apply(std::span<const SettingChange> changes) override {
    std::string keys;
    for (const SettingChange& change : changes) {
      keys += ' ' + change.Section + '/' + change.Key;
      Values[change.Section + '/' + change.Key] = change.Value.value_or("");
    }
    Did.push_back("store" + keys);
  }
  Trace& Did;
  std::map<std::string, std::string> Values;
};

struct TracedFiles : Files {
  bool Exists(const std::string& path) override { return Contents.count(path) > 0; }
  std::optional<std::uint64_t> Size(const std::string&) override { return std::nullopt; }
  std::optional<std::string> Read(const std::string& path) override {
    WasRead.insert(path);
    if (!Exists(path)) return std::nullopt;
    return Contents[path];
  }
  bool WriteNew(const std::string&, const std::string&) override { return false; }
  bool Flush(const std::string&) override { return false; }
  bool Rename(const std::string&, const std::string&) override { return false; }
  bool Remove(const std::string&) override { return false; }
  std::vector<std::string> List(const std::string&, const std::string&) override { return {}; }
  std::map<std::string, std::string> Contents;
  std::set<std::string> WasRead;
};

struct TracedTray : TrayHost {
  explicit TracedTray(Trace& trace) : Did(trace) {}
  bool Apply(TrayOperation, const TrayIconRecord& record) override {
    if ((record.uFlags & kNifInfo) != 0) Did.push_back("balloon " + record.szInfo.Text());
    return true;
  }
  void TooltipChanged(const std::string& text) override { Did.push_back("tooltip " + text); }
  bool CanShowPicture(const std::string&) override { return false; }
  Trace& Did;
};

struct TracedSounds : Sounds {
  explicit TracedSounds(Trace& trace) : Did(trace) {}
  void PlaySoundFile(const std::string& file) override { Did.push_back("sound " + file); }
  Trace& Did;
};

struct StandingClock : Clock {
  std::chrono::local_seconds LocalTime() override { return Local; }
  TimePoint Now() override { return {}; }
  std::chrono::local_seconds Local = std::chrono::local_days(std::chrono::year(2007) / 1 / 31);
};

struct TestProgram {
  std::string& Setting(const std::string& sectionAndKey) { return Store.Values[sectionAndKey]; }

  Trace Did;
  TracedStore Store{Did};
  TracedFiles Disk;
  TracedTray Tray{Did};
  TracedSounds Speaker{Did};
  StandingClock Time;
  IdlePorts Unused;
  quillbox::Host Host{.Store = Store,
                      .Variables = Unused,
                      .Disk = Disk,
                      .Time = Time,
                      .TimerSource = Unused,
                      .Events = Unused,
                      .Agents = Unused,
                      .Tray = Tray,
                      .TrayMenus = Unused,
                      .Tooltip = Unused,
                      .Mouse = Unused,
                      .Boxes = Unused,
                      .Windows = Unused,
                      .Chooser = Unused,
                      .Browser = Unused,
                      .Speaker = Speaker,
                      .Instance = Unused,
                      .Network = Unused,
                      .Opener = Unused,
                      .StartUp = Unused,
                      .Exit = Unused};
  ApplicationFolder Folder{"/app", "/app", '/'};
  AppState State;
  SettingsStore Settings{Store, Disk, Folder, State.SettingsProfile};
  BuildValues Build;
  ProgramContext Context{State, Settings, Host, Folder, Region("en-US"), Build};
};

}  // namespace quillbox
