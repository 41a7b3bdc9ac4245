// One evaluation on a host of its own: a clock that stands still, and a record of what tray and
// speaker were asked for.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/per_user_store.h"
#include "platform/regional_settings.h"
#include "platform/sounds.h"
#include "platform/tray_host.h"
#include "simulated/idle_ports.h"
#include "state/program_context.h"

namespace quillbox {

class StandingClock final : public Clock {
 public:
  explicit StandingClock(std::chrono::local_seconds now) : now_(now) {}
  std::chrono::local_seconds LocalTime() override { return now_; }
  TimePoint Now() override { return TimePoint::zero(); }

 private:
  std::chrono::local_seconds now_;
};

class SoundRecord final : public Sounds {
 public:
  void PlaySoundFile(const std::string& file) override { Files.push_back(file); }

  std::vector<std::string> Files;  // in the order in which they were asked for
};

class TrayRecord final : public TrayHost {
 public:
  bool Apply(TrayOperation, const TrayIconRecord& record) override {
    if ((record.uFlags & kNifInfo) != 0) BalloonShown = true;
    return true;
  }
  void TooltipChanged(const std::string& text) override { Tooltip = text; }
  bool CanShowPicture(const std::string&) override { return false; }

  std::optional<std::string> Tooltip;
  bool BalloonShown = false;
};

// A program context with nothing behind it but the settings, the files, the region and the time
// that it is given. They must outlive it.
class EvaluationHost {
 public:
  EvaluationHost(PerUserStore& store, Files& files, const RegionalSettings& region,
                 std::chrono::local_seconds now)
      : clock_(now),
        host_{.Store = store,
              .Variables = idle_,
              .Disk = files,
              .Time = clock_,
              .TimerSource = idle_,
              .Events = idle_,
              .Agents = idle_,
              .Grants = idle_,
              .Tray = Tray,
              .TrayMenus = idle_,
              .Tooltip = idle_,
              .Mouse = idle_,
              .Boxes = idle_,
              .Windows = idle_,
              .Chooser = idle_,
              .Browser = idle_,
              .Speaker = Speaker,
              .Instance = idle_,
              .Network = idle_,
              .Opener = idle_,
              .StartUp = idle_,
              .Exit = idle_},
        store_(store, files, folder_, State.SettingsProfile),
        Program{State, store_, host_, folder_, region, build_} {}
  EvaluationHost(const EvaluationHost&) = delete;
  EvaluationHost& operator=(const EvaluationHost&) = delete;

  AppState State;
  TrayRecord Tray;
  SoundRecord Speaker;

 private:
  StandingClock clock_;
  IdlePorts idle_;
  Host host_;
  ApplicationFolder folder_{"", "", '/'};
  SettingsStore store_;
  BuildValues build_;

 public:
  const ProgramContext Program;
};

struct ReportPaths {
  std::string Content = "Content.dat";
  std::string Search = "Search.dat";
  std::string Referral = "Referral.dat";
};

struct EvaluationEffects {
  std::optional<std::string> Tooltip;  // nothing when it was left alone
  std::optional<std::string> Balloon;  // the whole text; nothing when none was raised
  std::vector<std::string> Sounds;     // the files asked for, in order
};

// What is stored goes to the host's store.
EvaluationEffects RunEvaluation(EvaluationHost& host, const ReportPaths& reports,
                                const std::string& account);

}  // namespace quillbox
