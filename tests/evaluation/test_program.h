// A program context over a store in memory, which notes in order what the evaluation does to the
// host.
#pragma once

#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/address_opener.h"
#include "platform/agent_runner.h"
#include "platform/clock.h"
#include "platform/cursor.h"
#include "platform/environment.h"
#include "platform/event_pump.h"
#include "platform/files.h"
#include "platform/forms.h"
#include "platform/host.h"
#include "platform/message_boxes.h"
#include "platform/network_state.h"
#include "platform/per_user_store.h"
#include "platform/program_exit.h"
#include "platform/single_instance.h"
#include "platform/sounds.h"
#include "platform/timers.h"
#include "platform/tooltip_window.h"
#include "platform/tray_host.h"
#include "platform/tray_menu_host.h"
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

// What an evaluation has no business with.
struct UnusedPorts : AddressOpener,
                     AgentRunner,
                     Cursor,
                     Environment,
                     EventPump,
                     Forms,
                     MessageBoxes,
                     NetworkState,
                     ProgramExit,
                     SingleInstance,
                     Timers,
                     TooltipWindow,
                     TrayMenuHost {
  void Open(const std::string&) override { std::abort(); }
  PixelPoint Position() override { std::abort(); }
  TextSize Measure(std::string_view, const TooltipFont&) override { std::abort(); }
  TooltipSurroundings Surroundings() override { std::abort(); }
  void Show(const TooltipPicture&) override { std::abort(); }
  void Close() override { std::abort(); }
  bool BringToForeground() override { std::abort(); }
  void PopUp() override { std::abort(); }
  bool IsOnline() override { std::abort(); }
  AgentId Start(const AgentStart&) override { std::abort(); }
  bool Running(AgentId) override { std::abort(); }
  void End(AgentId) override { std::abort(); }
  std::string Variable(std::string_view) override { std::abort(); }
  void PumpEvents() override { std::abort(); }
  void Sleep(std::chrono::milliseconds) override { std::abort(); }
  void Load(FormName) override { std::abort(); }
  void Unload(FormName) override { std::abort(); }
  void UnloadAll() override { std::abort(); }
  BoxAnswer Show(const Message&) override { std::abort(); }
  void EndProcess() override { std::abort(); }
  bool AnotherInstanceRuns() override { std::abort(); }
  void WakeRunningInstance() override { std::abort(); }
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds, std::function<void()>) override {
    std::abort();
  }
};

struct TestProgram {
  std::string& Setting(const std::string& sectionAndKey) { return Store.Values[sectionAndKey]; }

  Trace Did;
  TracedStore Store{Did};
  TracedFiles Disk;
  TracedTray Tray{Did};
  TracedSounds Speaker{Did};
  StandingClock Time;
  UnusedPorts Unused;
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
                      .Speaker = Speaker,
                      .Instance = Unused,
                      .Network = Unused,
                      .Opener = Unused,
                      .Exit = Unused};
  ApplicationFolder Folder{"/app", "/app", '/'};
  AppState State;
  SettingsStore Settings{Store, Disk, Folder, State.SettingsProfile};
  BuildValues Build;
  ProgramContext Context{State, Settings, Host, Folder, Region("en-US"), Build};
};

}  // namespace quillbox
