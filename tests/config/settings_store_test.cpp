#include "config/settings_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated/simulated_desk.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class SettingsStoreTest : public ::testing::Test {
 protected:
  void ChooseProfile() { profile = ChooseSettingsProfile(store, environment); }

  SimulatedStore userStore;
  SimulatedFiles files;
  SimulatedEnvironment environment;
  ApplicationFolder folder{"/program", "/data", '/'};
  std::string profile;
  SettingsStore store{userStore, files, folder, profile};
};

TEST_F(SettingsStoreTest, BothModesKeepAndDelete) {
  for (const char* mode : {"", "ann"}) {
    profile = mode;
    EXPECT_EQ(store.ReadSetting(kUse24Hour), "") << mode;
    store.WriteSetting(kUse24Hour, "True");
    EXPECT_EQ(store.ReadSetting(kUse24Hour), "True") << mode;
    EXPECT_EQ(store.ReadSetting({"general", "USE24hour"}), "True") << mode;
    store.DeleteSetting(kUse24Hour);
    EXPECT_EQ(store.ReadSetting(kUse24Hour), "") << mode;
    store.DeleteSetting(kLoad);
    EXPECT_EQ(store.ReadSetting(kLoad), "") << mode;
  }
  EXPECT_EQ(files.Read("/data/ann.ini"), "[General]\r\nUSE24HOUR=\r\nLOAD=\r\n");
}

TEST_F(SettingsStoreTest, TheModeIsTakenAtEveryCall) {
  store.WriteSetting(kAutoUpdateRate, "Every hour");
  profile = "ann";
  EXPECT_EQ(store.ReadSetting(kAutoUpdateRate), "");
  store.WriteSetting(kAutoUpdateRate, "Every minute");
  profile.clear();
  EXPECT_EQ(store.ReadSetting(kAutoUpdateRate), "Every hour");
}

TEST_F(SettingsStoreTest, OnlyTheFileCutsLongValues) {
  const std::string longValue(750, 'x');
  store.WriteSetting(kAccounts, longValue);
  EXPECT_EQ(store.ReadSetting(kAccounts), longValue);
  profile = "ann";
  store.WriteSetting(kAccounts, longValue);
  EXPECT_EQ(store.ReadSetting(kAccounts), longValue.substr(0, 749));
}

TEST_F(SettingsStoreTest, ABatchReachesTheHostAsOne) {
  const AccountKeys keys("one");
  SettingBatch batch;
  batch.Write(keys.Impressions(), "1|||2").Write(keys.Stats(), "record").Delete(kLastDate);
  store.WriteBatch(batch);
  ASSERT_EQ(userStore.Batches().size(), 1U);
  EXPECT_EQ(userStore.Batches()[0].size(), 3U);
  EXPECT_EQ(userStore.Batches()[0][0].Key, "one Impressions");
  EXPECT_EQ(userStore.Batches()[0][2].Value, std::nullopt);

  store.WriteBatch(SettingBatch());
  EXPECT_EQ(userStore.Batches().size(), 1U);

  profile = "ann";
  store.WriteBatch(batch);
  EXPECT_EQ(files.Read("/data/ann.ini"),
            "[Accounts]\r\nONE IMPRESSIONS=1|||2\r\nONE=record\r\n[Misc]\r\nLASTDATE=\r\n");
}

TEST_F(SettingsStoreTest, AStoreThatKeepsStaysInForce) {
  environment.Set("Username", "ann");
  ChooseProfile();
  EXPECT_EQ(profile, "");
  EXPECT_EQ(store.ReadSetting(kRegTest), "Test");
  EXPECT_THAT(files.All(), IsEmpty());
}

TEST_F(SettingsStoreTest, AStoreThatKeepsNothingGivesWayToAFile) {
  struct Case {
    std::string Username;
    std::string Profile;
  };
  const Case kCases[] = {
      {"ann", "ann"},
      {"Ann Lee.b", "Ann Lee.b"},
      {"jos\xE9", "jos\xE9"},
      {std::string(200, 'a'), std::string(200, 'a')},
      {"", "Default"},
      {".", "Default"},
      {"..", "Default"},
      {"a/b", "Default"},
      {"../a", "Default"},
      {"a\\b", "Default"},
      {"C:", "Default"},
      {"a*", "Default"},
      {"a?", "Default"},
      {"\"a\"", "Default"},
      {"o'a", "Default"},
      {"<a>", "Default"},
      {"a|b", "Default"},
      {"a\nb", "Default"},
      {"a\x7F", "Default"},
      {"a\x81", "Default"},
      {std::string("a\0b", 3), "Default"},
      {"a.", "Default"},
      {"a ", "Default"},
      {std::string(201, 'a'), "Default"},
      {std::string(101, '\xE9'), "Default"},  // two bytes each in a file's name
  };
  userStore.SetKeeps(StoreKeeps::kNothing);
  for (const Case& c : kCases) {
    profile.clear();
    environment.Set("USERNAME", c.Username);
    ChooseProfile();
    EXPECT_EQ(profile, c.Profile) << ::testing::PrintToString(c.Username);
  }
}

TEST_F(SettingsStoreTest, FileModeUsesOneFileInTheDataFolder) {
  userStore.SetKeeps(StoreKeeps::kNothing);
  ChooseProfile();
  store.WriteSetting(kRuns, "1");
  environment.Set("username", "jos\xE9");
  profile.clear();
  ChooseProfile();
  store.WriteSetting(kRuns, "2");
  EXPECT_THAT(files.All(),
              ElementsAre(Pair("/data/Default.ini", _), Pair("/data/jos\xC3\xA9.ini", _)));
  EXPECT_EQ(store.ReadSetting(kRegTest), "") << "the probe stays out of the file";
}

}  // namespace
}  // namespace quillbox
