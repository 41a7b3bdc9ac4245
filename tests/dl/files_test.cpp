// What a run does with the two files and with what lies there already.
#include <gmock/gmock.h>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "dl/support/demo_service.h"
#include "dl/support/dl_run.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status.st_mode;
}

// The names that appear in a folder, in order.
class Appearances {
 public:
  explicit Appearances(const std::string& folder) : watch_(::inotify_init1(IN_NONBLOCK)) {
    EXPECT_GE(::inotify_add_watch(watch_, folder.c_str(), IN_CREATE | IN_MOVED_TO), 0);
  }
  ~Appearances() { ::close(watch_); }

  std::vector<std::string> Names() {
    alignas(inotify_event) std::array<char, 4096> events;
    const ssize_t size = ::read(watch_, events.data(), events.size());
    std::vector<std::string> names;
    for (ssize_t at = 0; at < size;) {
      const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
      names.emplace_back(event->name);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    return names;
  }

 private:
  int watch_;
};

class Files : public testing::Test {
 protected:
  void Fetch(const std::string& path) {
    run_.Run({service_.Address(path), service_.AuthorityFile()});
  }

  DemoService service_{{"--version-text", "2.0"}};
  DlRun run_;
};

TEST_F(Files, DataAppearWholeAndBeforeTheLog) {
  Appearances appearances(run_.FolderPath());
  Fetch("/versionqb.txt");
  EXPECT_THAT(appearances.Names(),
              testing::ElementsAre(testing::MatchesRegex("Some.dat.[0-9]*.part"), "Some.dat",
                                   testing::MatchesRegex("Some.log.[0-9]*.part"), "Some.log"));
  EXPECT_THAT(NamesIn(run_.FolderPath()), testing::ElementsAre("Some.dat", "Some.log"));
}

TEST_F(Files, BelongToTheirOwnerAlone) {
  Fetch("/versionqb.txt");
  EXPECT_EQ(ModeOf(run_.DataPath()), static_cast<mode_t>(S_IFREG | 0600));
  EXPECT_EQ(ModeOf(run_.LogPath()), static_cast<mode_t>(S_IFREG | 0600));
}

TEST_F(Files, OldOnesAreReplaced) {
  WriteWhole(run_.DataPath(), "old data, longer than the new ones");
  WriteWhole(run_.LogPath(), "3\r\n");
  fs::permissions(run_.DataPath(), fs::perms::all);
  Fetch("/versionqb.txt");
  EXPECT_EQ(run_.Data(), "2.0");
  EXPECT_EQ(run_.Log(), "0");
  EXPECT_EQ(ModeOf(run_.DataPath()), static_cast<mode_t>(S_IFREG | 0600));
}

TEST_F(Files, OldDataAreGoneAfterAFailure) {
  WriteWhole(run_.DataPath(), "old");
  WriteWhole(run_.LogPath(), "0");
  Fetch("/nothing");
  EXPECT_EQ(run_.Log(), "2");
  EXPECT_FALSE(run_.Data());
}

TEST_F(Files, OldOnesAreGoneBeforeAnythingIsSent) {
  DemoService stalled({"--fail", "stall"});
  WriteWhole(run_.DataPath(), "old");
  WriteWhole(run_.LogPath(), "0");
  ChildProcess dl(run_.Start({stalled.Address("/versionqb.txt"), stalled.AuthorityFile()}));
  ASSERT_EQ(stalled.Process().ReadLine(), "GET /versionqb.txt");
  EXPECT_THAT(NamesIn(run_.FolderPath()), testing::IsEmpty());
}

TEST_F(Files, SymbolicLinksAreNotFollowed) {
  const std::string victim = run_.FolderPath() + "/victim";
  WriteWhole(victim, "precious");
  fs::create_symlink(victim, run_.DataPath());
  fs::create_symlink(victim, run_.LogPath());
  Fetch("/versionqb.txt");
  EXPECT_EQ(ReadWhole(victim), "precious");
  EXPECT_EQ(run_.Data(), "2.0");
  EXPECT_EQ(run_.Log(), "0");
  EXPECT_TRUE(S_ISREG(ModeOf(run_.DataPath())));
  EXPECT_TRUE(S_ISREG(ModeOf(run_.LogPath())));
}

TEST_F(Files, DataThatCannotBeWrittenGive2) {
  fs::create_directory(run_.DataPath());
  Fetch("/versionqb.txt");
  EXPECT_EQ(run_.Log(), "2");
  EXPECT_THAT(NamesIn(run_.FolderPath()), testing::ElementsAre("Some.dat", "Some.log"));
}

TEST_F(Files, ALogThatCannotBeWrittenShowsInTheExitStatus) {
  fs::create_directory(run_.LogPath());
  EXPECT_NE(run_.Run({service_.Address("/versionqb.txt"), service_.AuthorityFile()}), 0);
}

}  // namespace
}  // namespace quillbox
