// The per-user store on the disk: what it carries, what it makes of hostile files, and what becomes
// of settings that can't be saved.
#include "system/settings_file.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "config/settings_store.h"
#include "support/child_process.h"
#include "system/streams.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"
#include "system/temporary_folder.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using namespace std::chrono_literals;

TEST(SettingsText, CarriesEveryTextAsSectionKeyAndValue) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  const std::string texts[] = {"",    " ", " x ", "a b", "%",  "%4",
                               "%41", "=", "[x]", ";x",  "#x", all};
  SettingsText settings;
  for (const std::string& text : texts) EXPECT_TRUE(settings.Apply({text, text, text + text}));
  const SettingsText readBack(settings.Text());
  for (const std::string& text : texts) EXPECT_EQ(readBack.Value(text, text), text + text);
}

// A file as it is read ("K" of section "S") and written after "N" of section "S" became "1".
TEST(SettingsText, ReadsAndKeepsWhatAFileHolds) {
  const struct Case {
    std::string Text, Value, Written;
  } kCases[] = {
      {"", "", "[S]\nN=1\n"},
      {"[S]\nK=v\n", "v", "[S]\nK=v\nN=1\n"},
      {"[s]\r\n k = a b \r\n\r\nN=0\r\n", "a b", "[s]\nk=a b\nN=1\n"},
      {"[T]\nb=2\n[S]\nK=v", "v", "[S]\nK=v\nN=1\n[T]\nb=2\n"},
      {"[S]\nK=1\n[T]\nx=1\n[s]\nk=2\n", "2", "[S]\nK=2\nN=1\n[T]\nx=1\n"},
      {"[S]\nn=1\n%4b=%76=w\n", "v=w", ""},  // as it was: nothing to write
      // Notes and what is damaged are kept where they do no harm.
      {"# note\nK=0\n[S]\n;K=1\n#K=2\nK=v\n", "v", "# note\nK=0\n[S]\n;K=1\n#K=2\nK=v\nN=1\n"},
      {"[S]\nK=%4\nK=%G0\nK\nK=\xfc\nK=a\0b\n"s, "", "[S]\nK=%4\nK=%G0\nK\nK=\xfc\nK=a\0b\nN=1\n"s},
      {"[S]\nA=1\n[S%]\nK=0\n[T\nK=1\n[U]\nu=1\n", "",
       "[S]\nA=1\nN=1\n[U]\nu=1\n[S%]\nK=0\n[T\nK=1\n"},
  };
  for (const Case& c : kCases) {
    SettingsText settings(c.Text);
    EXPECT_EQ(settings.Value("S", "K"), c.Value) << c.Text;
    EXPECT_EQ(settings.Apply({"S", "N", "1"}), !c.Written.empty()) << c.Text;
    if (c.Written.empty()) continue;
    EXPECT_EQ(settings.Text(), c.Written) << c.Text;
    EXPECT_EQ(SettingsText(c.Written).Text(), c.Written) << c.Text;
  }
}

class SettingsFileTest : public testing::Test {
 protected:
  bool Write(std::string section, std::string key, std::optional<std::string> value) {
    const SettingChange change{std::move(section), std::move(key), std::move(value)};
    return store_.Apply({&change, 1});
  }

  const TemporaryFolder home_;
  const int told_ = ::setenv("XDG_CONFIG_HOME", home_.File("a/config").c_str(), 1);
  const fs::path folder_ = home_.File("a/config/Quillbox"), file_ = folder_ / "Quillbox.conf";
  SystemFiles files_;
  SettingsFile store_{files_, 20ms};
};

TEST_F(SettingsFileTest, IsForTheOwnerAlone) {
  const auto rights = [](const fs::path& path) { return fs::status(path).permissions(); };
  const mode_t before = ::umask(022);
  for (const char* const value : {"1", "2", "2"}) {
    EXPECT_TRUE(Write("A", "secret", value));
    EXPECT_EQ(rights(folder_), fs::perms::owner_all) << value;
    EXPECT_EQ(rights(file_), fs::perms::owner_read | fs::perms::owner_write) << value;
    fs::permissions(folder_, fs::perms(0755));
    fs::permissions(file_, fs::perms(0664));
  }
  ::umask(before);
}

// Also at once, when size and place are the same and the disk's clock has not moved on.
TEST_F(SettingsFileTest, SeesWhatAnotherProcessHasWritten) {
  EXPECT_TRUE(Write("A", "key", "1"));
  SettingsFile other(files_);
  for (int i = 0; i < 100; ++i) {
    const SettingChange change{"A", "key", std::to_string(100 + i)};
    EXPECT_TRUE(other.Apply({&change, 1}));
    EXPECT_EQ(store_.Read("A", "key"), change.Value);
    if (i % 25 == 0) ::usleep(60'000);  // it may be remembered now
    EXPECT_EQ(store_.Read("A", "key"), change.Value);
    std::ofstream(file_) << "[A]\nkey=" << 500 + i << '\n';
    EXPECT_EQ(store_.Read("A", "key"), std::to_string(500 + i));
  }
}

TEST_F(SettingsFileTest, TwoProcessesThatSaveAtOnceLoseNothing) {
  constexpr int kSaves = 50;
  const auto save = [&](const std::string& name) {
    SettingsFile store(files_, 10s);
    for (int i = 0; i < kSaves; ++i) {
      const SettingChange change{"A", name + std::to_string(i), "1"};
      if (!store.Apply({&change, 1})) return 1;
    }
    return 0;
  };
  const pid_t child = ::fork();
  if (child == 0) ::_exit(save("child"));
  EXPECT_EQ(save("parent"), 0);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  for (int i = 0; i < kSaves; ++i) {
    EXPECT_EQ(store_.Read("A", "child" + std::to_string(i)), "1");
    EXPECT_EQ(store_.Read("A", "parent" + std::to_string(i)), "1");
  }
}

TEST_F(SettingsFileTest, ALockThatIsNeverGivenBackLetsSavesFail) {
  EXPECT_TRUE(Write("A", "key", "old"));
  {
    const FileDescriptor holder(folder_, O_RDONLY);
    ASSERT_EQ(::flock(holder.Number(), LOCK_EX), 0);
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(Write("A", "key", "new"));
    EXPECT_EQ(store_.Read("A", "key"), "old");
  }
  EXPECT_TRUE(Write("A", "key", "new"));
}

TEST_F(SettingsFileTest, WithoutAFolderForItNothingIsKept) {
  ::setenv("XDG_CONFIG_HOME", "relative", 1);
  ::setenv("HOME", "", 1);
  SettingsFile store(files_);
  const SettingChange change{"A", "key", "1"};
  EXPECT_FALSE(store.Apply({&change, 1}));
  EXPECT_EQ(store.Read("A", "key"), "");
}

// What the program does at its start, as an ordinary user on a disk with old settings.
class SettingsAtStart : public SettingsFileTest {
 protected:
  enum Result { kKept = 0, kFileMode = 10, kNotTold = 11, kNoPreparation = 12 };

  ~SettingsAtStart() override { GiveRightsBack(); }

  void GiveRightsBack() const {
    for (const fs::path& path : {folder_.parent_path(), folder_}) {
      std::error_code ignored;
      fs::permissions(path, fs::perms::owner_all, ignored);
    }
  }

  int Probe() {
    const SettingChange change{"Misc", "Version", "new"};
    const bool kept = store_.Apply({&change, 1});
    SystemEnvironment environment;
    const ApplicationFolder nowhere("/nonexistent", "/nonexistent", '/');
    const std::string perUserMode;
    SettingsStore store(store_, files_, nowhere, perUserMode);
    const bool fileMode = !ChooseSettingsProfile(store, environment).empty();
    return kept == fileMode ? kNotTold : fileMode ? kFileMode : kKept;
  }

  void Begin() {
    fs::remove_all(home_.File("a"));
    fs::create_directories(folder_);
    std::ofstream(file_) << "[Misc]\nRuns=old\n";
    if (::geteuid() != 0) return;
    for (fs::path path = file_; path != fs::path(home_.Path()).parent_path();
         path = path.parent_path()) {
      ASSERT_EQ(::chown(path.c_str(), kNobody, kNobody), 0);
    }
  }

  // In place of the settings.
  void Put(const std::string& content) const { std::ofstream(file_, std::ios::binary) << content; }
};

// What stands there when a file can't be read or saved stays to the byte.
TEST_F(SettingsAtStart, WhatCannotBeSavedIsNoticedAndNothingIsOverwritten) {
  constexpr auto kReadOnly = fs::perms::owner_read | fs::perms::owner_exec;
  std::string manyKeys = "[Misc]\n";
  for (int i = 0; i < 150'000; ++i) manyKeys += "k" + std::to_string(i) + "=\n";
  ASSERT_LT(manyKeys.size(), SettingsFile::kLargest);
  const auto instead = [&](const char* target) {
    fs::remove(file_);
    fs::create_symlink(target, file_);
  };
  const struct Case {
    const char* Name;
    std::function<void()> Prepare;  // as the user
    Result Wanted;
  } kCases[] = {
      {"all is well", [] {}, kKept},
      {"a first start", [&] { fs::remove_all(home_.File("a")); }, kKept},
      {"150,000 keys", [&] { Put(manyKeys); }, kKept},
      {"a line of 1 MB", [&] { Put(std::string(1'000'000, 'x')); }, kKept},
      {"NULs", [&] { Put(std::string(100'000, '\0')); }, kKept},
      {"a line of 20 MB", [&] { Put("[Misc]\nx=" + std::string(20'000'000, 'x')); }, kFileMode},
      {"100 MB", [&] { fs::resize_file(file_, 100'000'000); }, kFileMode},
      {"as large as it may be", [&] { Put(std::string(SettingsFile::kLargest, 'x')); }, kFileMode},
      {"no permission", [&] { fs::permissions(file_, fs::perms::none); }, kFileMode},
      {"read-only file", [&] { fs::permissions(file_, fs::perms::owner_read); }, kFileMode},
      {"read-only folder", [&] { fs::permissions(folder_, kReadOnly); }, kFileMode},
      {"no folder, and none can be made",
       [&] {
         fs::remove_all(folder_);
         fs::permissions(folder_.parent_path(), kReadOnly);
       },
       kFileMode},
      {"a file for a folder",
       [&] {
         fs::remove_all(folder_);
         std::ofstream(folder_) << "x";
       },
       kFileMode},
      {"a pipe", [&] { fs::remove(file_), ::mkfifo(file_.c_str(), 0600); }, kFileMode},
      {"a folder", [&] { fs::remove(file_), fs::create_directory(file_); }, kFileMode},
      {"a device", [&] { instead("/dev/zero"); }, kFileMode},
      {"a link to nowhere", [&] { instead("nowhere"); }, kFileMode},
      {"a link to itself", [&] { instead("Quillbox.conf"); }, kFileMode},
      {"every write is refused",
       [] {
         std::signal(SIGXFSZ, SIG_IGN);
         const rlimit none{};
         if (::setrlimit(RLIMIT_FSIZE, &none) != 0) ::_exit(kNoPreparation);
       },
       kFileMode},
  };
  const auto state = [&] {
    std::error_code none;
    return std::tuple(
        fs::symlink_status(file_, none).type(),
        fs::is_regular_file(file_, none) ? home_.Content("a/config/Quillbox/Quillbox.conf") : "");
  };
  for (const Case& c : kCases) {
    Begin();
    ASSERT_EQ(InChildAs(kNobody, [&] { return c.Prepare(), 0; }), 0) << c.Name;
    const auto before = state();
    EXPECT_EQ(InChildAs(kNobody, [&] { return c.Prepare(), Probe(); }), c.Wanted) << c.Name;
    EXPECT_EQ(state() == before, c.Wanted == kFileMode) << c.Name;
    EXPECT_FALSE(fs::exists(file_.string() + ".new1")) << c.Name;
    GiveRightsBack();
  }
}

}  // namespace
}  // namespace quillbox
