#include "desktop/settings_per_user_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <vector>

#include "desktop/stored_name.h"
#include "options/apply_kills.h"
#include "simulated/simulated_files.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class SettingsPerUserStoreTest : public testing::Test {
 protected:
  SettingsPerUserStoreTest() { fs::remove_all(folder_); }

  void Write(std::string section, std::string key, std::optional<std::string> value) {
    const SettingChange change{std::move(section), std::move(key), std::move(value)};
    store_.Apply({&change, 1});
  }

  const fs::path folder_ = fs::path(std::getenv("XDG_CONFIG_HOME")) / "Quillbox";
  const fs::path file_ = folder_ / "Quillbox.conf";
  SettingsPerUserStore store_;
};

// What the format of the file could take for something else.
std::vector<std::string> OddTexts() {
  std::vector<std::string> texts = SplitText(
      "General~%General~a/b~a\\b~C:\\x~100%~[x]~=~;~#x~ x~x ~x~/~//~\\~~a=b~x\r\ny~@x~\xe4\x80\x81~"
      "account Impressions~@Invalid()~@Variant(x)~@@x~@String(x)~a, b~a;b~\"a\"~\"~\\x41~ \t x \t ~"
      "1|||2||| ~a\r\nb\r\n~[x]\nRegTest=no~x41\1\65",
      "~");
  texts.push_back({'n', '\0', 'l'});
  texts.push_back({'\0', '5', 'a', '\0', 'f'});
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  texts.push_back(all);
  return texts;
}

TEST(StoredName, ReadsBackEveryTextAndNoTwoCollide) {
  std::set<QString> stored;
  std::size_t count = 0;
  const auto check = [&](const std::string& name) {
    const QString form = ToStoredName(name);
    EXPECT_EQ(FromStoredName(form), name) << form.toStdString();
    stored.insert(form);
    ++count;
  };
  check("");
  for (int first = 0; first < 256; ++first) {
    check(std::string(1, static_cast<char>(first)));
    for (int second = 0; second < 256; ++second) {
      check({static_cast<char>(first), static_cast<char>(second)});
    }
  }
  EXPECT_EQ(stored.size(), count);
}

TEST(StoredName, HasNothingThatQtReadsInItsOwnWayAndRefusesTheRest) {
  EXPECT_EQ(ToStoredName("a/b\\c x_ Use-24."), "a_2Fb_5Cc_20x_5F_20Use-24.");
  for (const char* const stored : {"", "a b", "_4", "a_", "_4g", "_ab", "\u00e4"}) {
    EXPECT_EQ(FromStoredName(stored), std::nullopt) << stored;
  }
}

TEST_F(SettingsPerUserStoreTest, KeepsNamesAndValuesOfAnyContentApart) {
  const std::vector<std::string> texts = OddTexts();
  std::vector<SettingChange> changes;
  for (const std::string& section : texts) {
    for (const std::string& key : texts) changes.push_back({section, key, section + "|" + key});
  }
  store_.Apply(changes);
  for (const SettingChange& change : changes) {
    EXPECT_EQ(store_.Read(change.Section, change.Key), change.Value);
  }
  for (const std::string& value : texts) {
    Write("Misc", "Value", value);
    EXPECT_EQ(store_.Read("Misc", "Value"), value);
  }
}

TEST_F(SettingsPerUserStoreTest, MatchesNamesInAnyCase) {
  Write("Accounts", "M\xfcller", "1");
  Write("ACCOUNTS", "m\xdcLLER", "2");
  EXPECT_EQ(store_.Read("accounts", "M\xfcLLER"), "2");
  Write("accounts", "M\xdcLLER", std::nullopt);
  EXPECT_EQ(store_.Read("Accounts", "M\xfcller"), "");
}

TEST_F(SettingsPerUserStoreTest, CarriesOutABatchInItsOrder) {
  const SettingChange changes[] = {{"A", "one", "1"},
                                   {"A", "two", "2"},
                                   {"A", "one", std::nullopt},
                                   {"A", "absent", std::nullopt},
                                   {"A", "two", "3"}};
  store_.Apply(changes);
  EXPECT_EQ(store_.Read("A", "one"), "");
  EXPECT_EQ(store_.Read("A", "two"), "3");
}

TEST_F(SettingsPerUserStoreTest, IsForTheOwnerAlone) {
  const auto rights = [](const fs::path& path) { return fs::status(path).permissions(); };
  const mode_t before = ::umask(022);
  for (const char* const value : {"1", "2"}) {
    Write("A", "secret", value);
    EXPECT_EQ(rights(folder_), fs::perms::owner_all) << value;
    EXPECT_EQ(rights(file_), fs::perms::owner_read | fs::perms::owner_write) << value;
    fs::permissions(folder_, fs::perms(0755));
    fs::permissions(file_, fs::perms(0664));
  }
  ::umask(before);
}

TEST_F(SettingsPerUserStoreTest, SeesWhatAnotherProcessHasWritten) {
  Write("A", "key", "1");
  std::ofstream(file_) << "[A]\nkey=from outside\n";
  EXPECT_EQ(store_.Read("A", "key"), "from outside");
}

TEST_F(SettingsPerUserStoreTest, AKilledApplyLeavesOldOrNewSettings) {
  SimulatedFiles files;  // not in use
  ExpectOldOrNewAfterKills(store_, files, "/app", "");
}

}  // namespace
}  // namespace quillbox
