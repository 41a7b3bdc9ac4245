#include "desktop/settings_per_user_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "options/apply_kills.h"
#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

fs::path SettingsFolder() {
  return fs::path(std::getenv("XDG_CONFIG_HOME")) / "Quillbox";
}
fs::path SettingsFile() {
  return SettingsFolder() / "Quillbox.conf";
}

class SettingsPerUserStoreTest : public testing::Test {
 protected:
  void SetUp() override { fs::remove_all(SettingsFolder()); }

  void Write(std::string section, std::string key, std::optional<std::string> value) {
    const SettingChange change{std::move(section), std::move(key), std::move(value)};
    store_.Apply({&change, 1});
  }

  SettingsPerUserStore store_;
};

std::string AllCharacters() {
  std::string text;
  for (int code = 0; code < 256; ++code) text += static_cast<char>(code);
  return text;
}

const std::string kNames[] = {"General",
                              "%General",
                              "a/b",
                              "a\\b",
                              "C:\\x",
                              "100%",
                              "[x]",
                              "=",
                              ";",
                              "#x",
                              " x",
                              "x ",
                              "x",
                              "/",
                              "//",
                              "\\",
                              "",
                              "a=b",
                              "x\r\ny",
                              "@x",
                              std::string("n\0l", 3),
                              "\xe4\x80\x81",
                              "account Impressions",
                              AllCharacters()};

TEST_F(SettingsPerUserStoreTest, KeepsNamesOfAnyContentApart) {
  for (const std::string& section : kNames) {
    for (const std::string& key : kNames) Write(section, key, section + "|" + key);
  }
  for (const std::string& section : kNames) {
    for (const std::string& key : kNames) {
      EXPECT_EQ(store_.Read(section, key), section + "|" + key);
    }
  }
}

TEST_F(SettingsPerUserStoreTest, KeepsValuesOfAnyContent) {
  std::vector<std::string> values(std::begin(kNames), std::end(kNames));
  for (const char* const value :
       {"@Invalid()", "@Variant(x)", "@@x", "@String(x)", "a, b", "a;b", "\"a\"", "\"", "\\",
        "\\x41", " \t x \t ", "True", "1|||2||| ", "a\r\nb\r\n", "[x]\nRegTest=no",
        "x41\x01"
        "5"}) {
    values.emplace_back(value);
  }
  values.push_back(
      std::string("\0"
                  "5a\0f",
                  5));
  for (const std::string& value : values) {
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
  Write("A", "secret", "1");
  EXPECT_EQ(rights(SettingsFolder()), fs::perms::owner_all);
  EXPECT_EQ(rights(SettingsFile()), fs::perms::owner_read | fs::perms::owner_write);

  fs::permissions(SettingsFolder(), fs::perms(0755));
  fs::permissions(SettingsFile(), fs::perms(0664));
  Write("A", "secret", "2");
  EXPECT_EQ(rights(SettingsFolder()), fs::perms::owner_all);
  EXPECT_EQ(rights(SettingsFile()), fs::perms::owner_read | fs::perms::owner_write);
  ::umask(before);
}

TEST_F(SettingsPerUserStoreTest, SeesWhatAnotherProcessHasWritten) {
  Write("A", "key", "1");
  std::ofstream(SettingsFile()) << "[A]\nkey=from outside\n";
  EXPECT_EQ(store_.Read("A", "key"), "from outside");
}

TEST_F(SettingsPerUserStoreTest, AKilledApplyLeavesOldOrNewSettings) {
  SimulatedFiles files;  // not in use
  ExpectOldOrNewAfterKills(store_, files, "/app", "");
}

}  // namespace
}  // namespace quillbox
