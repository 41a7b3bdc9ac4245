// Fills the settings store of the demo, and tells what the program has stored there since.
//
//   demo-settings write NAME E-MAIL PASSWORD ...   accounts; the first one is the primary account
//   demo-settings show                             stored statistics, and the tip made of them
//
// The exit status is 1 when the settings could not be saved, then the old ones stand. It works on
// the store of whoever runs it: the demo gives it a folder of its own.
#include <sys/stat.h>

#include <QLocale>
#include <chrono>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/account_list.h"
#include "config/application_folder.h"
#include "config/settings_store.h"
#include "desktop/region.h"
#include "evaluation/stats_text.h"
#include "system/settings_file.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

constexpr std::size_t kTextsOfAccount = 3;

AccountList AccountsIn(std::span<char* const> texts) {
  AccountList list;
  for (std::size_t i = 0; i + kTextsOfAccount <= texts.size(); i += kTextsOfAccount) {
    list.Accounts.emplace_back(texts[i]);
    list.Usernames.emplace_back(texts[i + 1]);
    list.Passwords.emplace_back(texts[i + 2]);
  }
  return list;
}

// Refreshes at once and every minute, asks nothing, and alerts when the earnings change.
bool WriteSettings(SettingsStore& store, const AccountList& accounts) {
  SettingBatch batch;
  SaveAccountList(batch, accounts);
  batch.Write(kPrimaryAccount, accounts.Accounts.front())
      .Write(kRuns, "1")  // or the program would greet a first-time user
      .Write(kCheckForNewVersion, kFalse)
      .Write(kCheckPrompted, kTrue)
      .Write(kRefreshTooltip, kTrue)
      .Write(kAutoUpdateEnable, kTrue)
      .Write(kAutoUpdateRate, kUpdateRates.front().Text)
      .Write(kShowBalloonWhen, kBalloonEarnings)
      .Write(kTooltipValues, "ABCDEFGM")
      .Write(kDataToDownload, kDownloadAll);
  return store.WriteBatch(batch);
}

int CurrentYear() {
  const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  return static_cast<int>(std::chrono::year_month_day(today).year());
}

void ShowStatistics(const SettingsStore& store) {
  for (const std::string& account : LoadAccountList(store).Accounts) {
    const AccountKeys keys(account);
    const std::string record = store.ReadSetting(keys.Stats());
    std::cout << (record.empty() ? "nothing stored for " : "stored for ") << account;
    if (!record.empty()) std::cout << ": " << record;
    std::cout << '\n';
  }
  const AccountKeys primary(store.ReadSetting(kPrimaryAccount));
  std::cout << '\n'
            << OneAccountStatsText(store.ReadSetting(kTooltipValues),
                                   store.ReadSetting(primary.Stats()), CurrentYear(),
                                   RegionOf(QLocale::system()))
            << '\n';
}

int Run(std::span<char* const> arguments) {
  SystemFiles files;
  SettingsFile userStore(files);
  const ApplicationFolder unusedFolder("", "", '/');
  const std::string perUserMode;
  SettingsStore store(userStore, files, unusedFolder, perUserMode);

  const std::string_view command = arguments.empty() ? "" : arguments.front();
  const auto texts = arguments.empty() ? arguments : arguments.subspan(1);
  if (command == "write" && !texts.empty() && texts.size() % kTextsOfAccount == 0) {
    if (!WriteSettings(store, AccountsIn(texts))) {
      std::cerr << "demo-settings: the settings could not be saved\n";
      return 1;
    }
  } else if (command == "show" && texts.empty()) {
    ShowStatistics(store);
  } else {
    std::cerr << "usage: demo-settings write NAME E-MAIL PASSWORD ... | show\n";
    return 2;
  }
  return 0;
}

}  // namespace
}  // namespace quillbox

int main(int count, char** arguments) {
  ::umask(S_IRWXG | S_IRWXO);
  return quillbox::Run(
      std::span<char* const>(arguments, static_cast<std::size_t>(count)).subspan(1));
}
