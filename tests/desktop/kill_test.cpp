// The program is killed at random moments, and what the person owns is whole at the next start.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QThread>
#include <random>

#include "config/account_list.h"
#include "config/application_folder.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "evaluation/account_stats.h"
#include "support/rounds.h"
#include "system/settings_file.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

// Answers at once with a report whose four counts are one number, which rises with each refresh.
constexpr char kFetchProgram[] = R"(
paths=${1%|*} log=${1##*|} data=${paths##*|}
cd "${0%/*}" && echo >> fetched
views=$(wc -l < fetched)
tr _ '\t' > "$data" <<END
Date_Page impressions_Clicks_Page CTR_Page eCPM_Earnings
$(date +%-m/%-d/%Y)_${views}_${views}_100.00%_2.50_0.25
Totals_${views}_${views}_100.00%_2.00_6.00
Averages_${views}_${views}_100.00%_2.00_0.20
END
printf 0 > "$log")";

class KillTest : public QuillboxOnDesktop {
 protected:
  // A random part of a `whole` time, in milliseconds.
  int Moment(int whole) { return static_cast<int>(random_() % static_cast<unsigned>(whole)); }

  void Kill() {
    quillbox_->kill();
    ASSERT_TRUE(quillbox_->waitForFinished());
    ASSERT_TRUE(IconGoes());
  }
  void KillAfter(int milliseconds) {
    SCOPED_TRACE("killed after " + std::to_string(milliseconds) + " ms");
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    Kill();
  }

  // All but the OK.
  void AddAccountInOptions(const std::string& number) {
    quillbox_ = StartQuillbox();
    ASSERT_TRUE(IconComes());
    PointAtIcon();
    Mouse("click 1");
    ASSERT_TRUE(WindowComes("Quillbox Options"));
    Keys("alt+a");
    ASSERT_TRUE(WindowComes("Add AdSense Account"));
    Type(QString::fromStdString("new " + number + "\t" + number + "@example.test\tsecret " +
                                number));
    Keys("Return");
    ASSERT_TRUE(WindowGoes("Add AdSense Account"));
  }

  template <class Read>
  static auto Stored(Read read) {
    SystemFiles files;
    quillbox::SettingsFile userStore(files);
    const ApplicationFolder folder("", "", '/');
    const std::string perUser;
    return read(SettingsStore(userStore, files, folder, perUser));
  }

  static AccountList Accounts() { return Stored(LoadAccountList); }
  static std::string Figures() {
    return Stored([](const SettingsStore& store) {
      const AccountKeys keys("one");
      return store.ReadSetting(keys.Stats());
    });
  }

  // "one", then "new 1", "new 2" and so on, each with its own address and password. Gives how many.
  static std::size_t ExpectWholeAccounts() {
    const AccountList found = Accounts();
    AccountList whole{{"one"}, {"a@example.test"}, {"a\"b c#%41"}};
    for (std::size_t i = 1; i < found.Accounts.size(); ++i) {
      const std::string number = std::to_string(i);
      whole.Accounts.push_back("new " + number);
      whole.Usernames.push_back(number + "@example.test");
      whole.Passwords.push_back("secret " + number);
    }
    EXPECT_EQ(found.Accounts, whole.Accounts) << Settings();
    EXPECT_EQ(found.Usernames, whole.Usernames);
    EXPECT_EQ(found.Passwords, whole.Passwords);
    return found.Accounts.size();
  }

  // What an interrupted save left is gone when the next one is through.
  void ExpectNothingElseLeft() {
    Store(SettingBatch().Write(kRuns, "1"));
    const std::filesystem::path folder = SettingsFile().parent_path();
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      names += entry.path().filename().string() + " ";
    EXPECT_EQ(names, "Quillbox.conf ");
  }

 private:
  std::mt19937_64 random_{std::random_device()()};
};

TEST_F(KillTest, ARefreshLeavesOldOrNewFigures) {
  WriteScript("dl", kFetchProgram);
  Store(SettingBatch().Write(kRefreshTooltip, kTrue).Write(kDataToDownload, kDownloadContent));
  QElapsedTimer clock;
  clock.start();
  DockIcon();
  ASSERT_TRUE(ComesAbout([&] { return !Figures().empty(); }));
  const int whole = static_cast<int>(clock.elapsed()) * 3 / 2;
  Kill();
  int refreshed = 0;
  for (int round = 0; round < Rounds(); ++round) {
    const std::string before = Figures();
    quillbox_ = StartQuillbox();
    KillAfter(Moment(whole));
    const std::string after = Figures();
    const Cells fields = StoredFields(after);
    ASSERT_EQ(fields.Count(), stats_field::kCount) << Settings();
    for (const std::size_t count :
         {stats_field::kClicks, stats_field::kMonthImpressions, stats_field::kMonthClicks})
      EXPECT_EQ(fields.At(count), fields.At(stats_field::kImpressions)) << after;
    EXPECT_EQ(ExpectWholeAccounts(), 1U);
    ASSERT_FALSE(HasFailure()) << "round " << round;
    refreshed += after != before;
  }
  std::cout << refreshed << " of " << Rounds() << " had kept the new figures\n";
  ExpectNothingElseLeft();
}

TEST_F(KillTest, ApplyLeavesTheOldOrTheNewAccounts) {
  Store(SettingBatch().Write(kTraySingleAction, kActionOptions).Write(kLastOption, "AdSense"));
  desktop_.StartTray();
  int whole = 0;  // how long a save takes, measured once
  std::size_t accounts = 1;
  int added = 0;
  for (int round = 0; round <= Rounds(); ++round) {
    AddAccountInOptions(std::to_string(accounts));
    ASSERT_FALSE(HasFatalFailure()) << "round " << round;
    QElapsedTimer clock;
    clock.start();
    Keys("Return");
    if (round == 0) {
      ASSERT_TRUE(ComesAbout([&] { return Accounts().Accounts.size() == 2; })) << Settings();
      whole = static_cast<int>(clock.elapsed()) * 3 / 2;
      Kill();
    } else {
      KillAfter(Moment(whole));
    }
    const std::size_t now = ExpectWholeAccounts();
    EXPECT_TRUE(now == accounts || now == accounts + 1) << now << " after " << accounts;
    ASSERT_FALSE(HasFailure()) << "round " << round;
    added += now != accounts;
    accounts = now;
  }
  std::cout << added - 1 << " of " << Rounds() << " had kept the new account\n";
  ExpectNothingElseLeft();
}

}  // namespace
}  // namespace quillbox
