#include "shell/program.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "evaluation/tray_stats.h"
#include "platform/forms.h"
#include "platform/process.h"
#include "platform/storage.h"
#include "platform/timing.h"
#include "platform/tray.h"
#include "region/conversions.h"
#include "region/date_text.h"
#include "region/failure_rule.h"
#include "retrieval/refresh_cycle.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"
#include "update/version_check.h"

namespace quillbox {
namespace {

std::string OrDefault(const std::string& value, std::string_view whenEmpty) {
  return value.empty() ? std::string(whenEmpty) : value;
}

bool IsTrue(const ProgramContext& program, const SettingKey& key) {
  return program.Store.ReadSetting(key) == kTrue;
}

void LeaveToRunningInstance(const ProgramContext& program, Form1& form) {
  program.Host.Instance.WakeRunningInstance();
  form.Exit_Click();
}

void LoadIconImage(const ProgramContext& program) {
  const std::string file = program.Store.ReadSetting(kTrayIcon);
  const bool loadable =
      !file.empty() && program.Host.Disk.Exists(file) && program.Host.Tray.CanShowPicture(file);
  if (loadable) program.State.IconImage = file;
}

void LoadAccounts(const ProgramContext& program) {
  AppState& state = program.State;
  static_cast<AccountList&>(state) = LoadAccountList(program.Store);
  state.ProxyUsername = ReadProxyUsername(program.Store);
  state.ProxyPassword = ReadProxyPassword(program.Store);
  state.ProxyServer = program.Store.ReadSetting(kProxyServer);
  state.ProxyPort = program.Store.ReadSetting(kProxyPort);
}

void LoadTrayChoices(const ProgramContext& program) {
  AppState& state = program.State;
  const SettingsStore& store = program.Store;
  state.TrayAction = OrDefault(store.ReadSetting(kTrayAction), kActionOptions);
  state.TraySingleAction = OrDefault(store.ReadSetting(kTraySingleAction), kActionNone);
  state.ShowBalloonWhen = OrDefault(store.ReadSetting(kShowBalloonWhen), kBalloonNever);
  for (std::size_t i = 0; i < kSounds.size(); ++i) {
    state.SoundFiles[i] = OrDefault(store.ReadSetting(kSounds[i]), kNoSound);
  }
}

bool AskForVersionChecks(const ProgramContext& program) {
  const BoxAnswer answer = program.Host.Boxes.Show(
      {.Text = "Quillbox is not currently set to automatically alert you\r\n"
               "when new releases are available.\r\n\r\n"
               "Would you like to enable this feature now?",
       .Buttons = BoxButtons::kYesNo});
  const bool yes = answer == BoxAnswer::kYes;
  if (yes) program.Store.WriteSetting(kCheckForNewVersion, kTrue);
  program.Store.WriteSetting(kCheckPrompted, kTrue);
  return yes;
}

// Whether to look for a new version at this start.
bool SettleVersionChecks(const ProgramContext& program) {
  const std::string check = program.Store.ReadSetting(kCheckForNewVersion);
  if (check.empty()) {
    program.Store.WriteSetting(kCheckForNewVersion, kTrue);
    program.Store.WriteSetting(kCheckPrompted, kTrue);
    return true;
  }
  if (check == kFalse && program.Store.ReadSetting(kCheckPrompted).empty()) {
    return AskForVersionChecks(program);
  }
  return check == kTrue;
}

void StartDelayed(const ProgramContext& program, Form1& form, bool check) {
  form.StartTimer8({.Refresh = IsTrue(program, kRefreshTooltip), .Check = check});
}

// Once a day.
void CheckVersionToday(const ProgramContext& program) {
  const auto today = std::chrono::floor<std::chrono::days>(program.Host.Time.LocalTime());
  const std::string date = ShortDate(std::chrono::year_month_day(today), program.Region);
  if (program.Store.ReadSetting(kCheckDate) == date) return;
  program.Store.WriteSetting(kCheckDate, date);
  CheckForUpdate(program, CheckedFor::kProgram);
}

void StartAtOnce(const ProgramContext& program, bool check) {
  if (IsTrue(program, kRefreshTooltip)) RefreshAllAccounts(program);
  if (check) CheckVersionToday(program);
}

void GreetNewPerson(const ProgramContext& program, Form1& form) {
  const BoxAnswer answer = program.Host.Boxes.Show(
      {.Text = "Greetings!  It looks like this is your first time using Quillbox.\r\n\r\n"
               "Would you like to set up the Options now?",
       .Icon = BoxIcon::kInformation,
       .Buttons = BoxButtons::kYesNo,
       .InForeground = true});
  if (answer == BoxAnswer::kYes) form.Options_Click();
}

// The value of Runs after one more start: the number in `runs` plus 1. Nothing when `runs` isn't a
// whole number or the sum leaves 16 signed bits.
std::optional<std::string> NextRunCount(std::string_view runs, const RegionalSettings& region) {
  constexpr int kMost = 32767;
  std::optional<std::string> next;
  Attempt([&] {
    const std::int32_t count = ToLong(runs, region);
    if (count >= -kMost - 1 && count < kMost) next = std::to_string(count + 1);
  });
  return next;
}

void CountRun(const ProgramContext& program, Form1& form) {
  const std::string runs = program.Store.ReadSetting(kRuns);
  if (runs.empty()) {
    program.Store.WriteSetting(kRuns, "1");
    GreetNewPerson(program, form);
  } else if (const auto next = NextRunCount(runs, program.Region)) {
    program.Store.WriteSetting(kRuns, *next);
  }
}

}  // namespace

Program::Program(const Host& host, ApplicationFolder folder, RegionalSettings region,
                 BuildValues build)
    : host_(host),
      folder_(std::move(folder)),
      region_(std::move(region)),
      build_(std::move(build)),
      store_(host_.Store, host_.Disk, folder_, state_.SettingsProfile),
      context_{state_, store_, host_, folder_, region_, build_},
      form_(context_) {}

Program::~Program() {
  host_.Windows.UnloadAll();
}

void Program::Main() {
  const ProgramContext& program = context_;
  if (program.Host.Instance.AnotherInstanceRuns()) LeaveToRunningInstance(program, form_);
  // Before the back end is chosen: this one always goes to the per-user store.
  program.Store.WriteSetting(kVersion, program.Build.Version);
  BuildTraySubmenus(program);
  form_.Load();
  program.State.SettingsProfile = ChooseSettingsProfile(program.Store, program.Host.Variables);
  LoadIconImage(program);
  AddTrayIcon(program);
  LoadAccounts(program);
  const std::string primary = program.Store.ReadSetting(kPrimaryAccount);
  if (!primary.empty()) UpdateTrayStats(program, primary);
  LoadTrayChoices(program);
  const bool check = SettleVersionChecks(program);
  if (IsTrue(program, kPause)) {
    StartDelayed(program, form_, check);
  } else {
    StartAtOnce(program, check);
  }
  if (IsTrue(program, kAutoUpdateEnable)) form_.StartTimer1();
  CountRun(program, form_);
}

}  // namespace quillbox
