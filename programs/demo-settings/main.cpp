// Fills the settings store of the demo, and tells what the program has stored there since.
//
//   demo-settings write NAME E-MAIL PASSWORD ...   accounts; the first one is the primary account
//   demo-settings show                             stored statistics, and the tip made of them
//
// The exit status is 1 when the settings could not be saved, then the old ones stand. It works on
// the store of whoever runs it: the demo gives it a folder of its own.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "config/account_list.h"
#include "config/application_folder.h"
#include "config/settings_store.h"
#include "demo-settings/person.h"
#include "evaluation/stats_text.h"
#include "system/process_start.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

constexpr std::size_t kTextsOfAccount = 3;

AccountList AccountsIn(const std::vector<std::string>& texts) {
  AccountList list;
  for (std::size_t i = 0; i < texts.size(); i += kTextsOfAccount) {
    list.Accounts.push_back(texts[i]);
    list.Usernames.push_back(texts[i + 1]);
    list.Passwords.push_back(texts[i + 2]);
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
                                   PersonsRegion())
            << '\n';
}

// The store of whoever runs it.
class UserSettings {
 public:
  SettingsStore& Store() { return store_; }

 private:
  SystemFiles files_;
  const std::unique_ptr<PerUserStore> userStore_ = PersonsStore(files_);
  const ApplicationFolder unusedFolder_{"", "", '/'};
  const std::string perUserMode_;
  SettingsStore store_{*userStore_, files_, unusedFolder_, perUserMode_};
};

void AddWrite(CLI::App& program) {
  CLI::App* const write = program.add_subcommand(
      "write",
      "Store accounts: NAME E-MAIL PASSWORD of each; the first one is the primary account");
  write->prefix_command();  // a password may begin with a dash
  write->final_callback([write] {
    const std::vector<std::string> texts = write->remaining();
    if (texts.empty() || texts.size() % kTextsOfAccount != 0) {
      throw CLI::ValidationError("write needs NAME E-MAIL PASSWORD of each account");
    }
    if (!WriteSettings(UserSettings().Store(), AccountsIn(texts))) {
      throw std::runtime_error("the settings could not be saved");
    }
  });
}

int Run(std::vector<std::string> arguments) {
  CLI::App program("Fills the settings store of the demo, and tells what is stored there.",
                   "demo-settings");
  program.set_version_flag("--version", "demo-settings " QUILLBOX_VERSION);
  program.require_subcommand(1);
  AddWrite(program);
  program.add_subcommand("show", "Print stored statistics, and the tip made of them")
      ->final_callback([] { ShowStatistics(UserSettings().Store()); });
  try {
    std::reverse(arguments.begin(), arguments.end());  // it takes them from the end
    program.parse(arguments);
  } catch (const CLI::Success& question) {
    return program.exit(question);
  }
  return 0;
}

}  // namespace
}  // namespace quillbox

int main(int count, char** arguments) {
  try {
    return quillbox::Run(quillbox::BeginOnCommandLine(count, arguments));
  } catch (const CLI::ParseError& mistake) {
    std::cerr << "demo-settings: " << mistake.what() << "\n";
    return 2;
  } catch (const std::exception& failure) {
    std::cerr << "demo-settings: " << failure.what() << "\n";
    return 1;
  }
}
