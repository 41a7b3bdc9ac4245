#include "config/settings_store.h"

#include <gmock/gmock.h>

#include "simulated/simulated_desk.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

using namespace std::string_literals;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::Pair;

class SettingsStoreTest : public ::testing::Test {
 protected:
  void ChooseProfile() { profile = ChooseSettingsProfile(store, environment); }

  // Chosen for a person of this name when the user store keeps nothing.
  std::string ProfileOf(const std::string& username) {
    userStore.SetKeeps(StoreKeeps::kNothing);
    profile.clear();
    environment.Set("USERNAME", username);
    ChooseProfile();
    return profile;
  }

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

TEST_F(SettingsStoreTest, AStoreThatKeepsNothingGivesWayToAFile) {
  const std::string a200(200, 'a');
  for (const std::string& name : {"ann"s, "Ann Lee.b"s, "jos\xE9"s, a200}) {
    EXPECT_EQ(ProfileOf(name), name);
  }
  // The last one has two bytes each in a file's name.
  const std::string kOthers[] = {
      "",      ".",     "..",  "a/b", "../a",  "a\\b",     "C:",
      "a*",    "a?",    "o'a", "<a>", "a|b",   "a\nb",     "a\x7F",
      "a\x81", "\"a\"", "a.",  "a ",  "a\0b"s, a200 + "a", std::string(101, '\xE9')};
  for (const std::string& name : kOthers) {
    EXPECT_EQ(ProfileOf(name), "Default") << ::testing::PrintToString(name);
  }
}

TEST_F(SettingsStoreTest, FileModeUsesOneFileInTheDataFolder) {
  ProfileOf("");
  store.WriteSetting(kRuns, "1");
  ProfileOf("jos\xE9");
  store.WriteSetting(kRuns, "2");
  EXPECT_THAT(files.All(),
              ElementsAre(Pair("/data/Default.ini", _), Pair("/data/jos\xC3\xA9.ini", _)));
  EXPECT_EQ(store.ReadSetting(kRegTest), "") << "the probe stays out of the file";
}

}  // namespace
}  // namespace quillbox
