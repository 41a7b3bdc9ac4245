// What a run does with the two files, with what lies there already, and with a full disk.
#include <gmock/gmock.h>

#include <sys/inotify.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "dl/support/demo_service.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::MatchesRegex;
using testing::UnorderedElementsAre;

std::vector<std::string> NamesIn(const TemporaryFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

// A file of its owner alone, and no link to one. Wine gives the group what it gives the owner.
bool IsPrivateFile(const std::string& path) {
  const mode_t looked = InWine() ? ~mode_t{S_IRWXG} : ~mode_t{0};
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0 &&
         (status.st_mode & looked) == static_cast<mode_t>(S_IFREG | 0600);
}

// The names that a watch saw appear, in order.
std::vector<std::string> Appeared(int watch) {
  alignas(inotify_event) std::array<char, 4096> events;
  const ssize_t size = ::read(watch, events.data(), events.size());
  std::vector<std::string> names;
  for (ssize_t at = 0; at < size;) {
    const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
    names.emplace_back(event->name);
    at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
  }
  return names;
}

class Files : public testing::Test {
 protected:
  void PutOldOnes() const {
    run_.Folder.Put("Some.dat", "old data, longer than the new ones");
    run_.Folder.Put("Some.log", "0\r\n");
    fs::permissions(run_.DataPath(), fs::perms::all);
  }

  const DemoService service_{{"--version-text", "2.0"}};
  DemoService stalled_{{"--fail", "stall"}};
  const DlRun run_;
};

TEST_F(Files, DataAppearWholeAndBeforeTheLog) {
  const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  const auto kinds = IN_CREATE | IN_MOVED_TO;
  ASSERT_GE(::inotify_add_watch(watch, run_.Folder.Path().c_str(), kinds), 0);
  run_.Run(service_.Plain());
  EXPECT_THAT(Appeared(watch), ElementsAre(MatchesRegex("Some.dat.[0-9]*.part"), "Some.dat",
                                           MatchesRegex("Some.log.[0-9]*.part"), "Some.log"));
  ::close(watch);
  EXPECT_THAT(NamesIn(run_.Folder), UnorderedElementsAre("Some.dat", "Some.log"));
}

TEST_F(Files, OldOnesAreReplacedOrGoneAndLinksNotFollowed) {
  run_.Folder.Put("victim", "precious");
  const auto link = [&](const std::string& path) {
    fs::remove(path);
    fs::create_symlink(run_.Folder.File("victim"), path);
  };
  for (const bool links : {false, true}) {
    if (links && InWine()) continue;  // which shows a link as the file that it leads to
    PutOldOnes();
    if (links) link(run_.DataPath()), link(run_.LogPath());
    EXPECT_EQ(run_.CodeOf(service_.Plain()), "0");
    EXPECT_EQ(run_.Data(), "2.0");
    EXPECT_TRUE(IsPrivateFile(run_.DataPath()) && IsPrivateFile(run_.LogPath())) << links;
  }
  EXPECT_EQ(run_.Folder.Content("victim"), "precious");
  EXPECT_EQ(run_.CodeOf(service_.Plain("/nothing")), "2");
  EXPECT_FALSE(run_.Data());
}

TEST_F(Files, OldOnesAreGoneBeforeAnythingIsSentAndACrashLeavesACodeToo) {
  for (const int signal : {SIGSEGV, SIGABRT}) {
    if (signal == SIGABRT && InWine()) continue;  // Windows knows no such signal from outside
    PutOldOnes();
    ChildProcess dl(run_.Start(stalled_.Plain()));
    ASSERT_EQ(stalled_.Process().ReadLine(), "GET /versionqb.txt");
    EXPECT_THAT(NamesIn(run_.Folder), testing::IsEmpty());
    ::kill(dl.Id(), signal);
    EXPECT_EQ(dl.Wait(), 0) << signal;
    EXPECT_EQ(run_.Log(), "2") << signal;
    EXPECT_THAT(NamesIn(run_.Folder), ElementsAre("Some.log")) << signal;
  }
}

TEST_F(Files, ThatCannotBeWrittenShowInTheCodeOrTheExitStatus) {
  fs::create_directory(run_.DataPath());
  EXPECT_EQ(run_.CodeOf(service_.Plain()), "2");
  EXPECT_THAT(NamesIn(run_.Folder), UnorderedElementsAre("Some.dat", "Some.log"));
  fs::remove(run_.LogPath());
  fs::create_directory(run_.LogPath());
  EXPECT_NE(run_.Run(service_.Plain()), 0);
}

// A disk of three pages. Without room for the data it still takes the code; without any it takes
// nothing.
TEST(FullDisk, LeavesACodeAndNoDataWhereItCan) {
  constexpr std::size_t kPage = 4096;
  const DemoService service({"--version-text", std::string(2 * kPage, 'v')});
  for (const std::size_t taken : {1U, 2U, 3U}) {
    const DlRun run;
    const std::string& folder = run.Folder.Path();
    if (::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=12k") != 0) {
      GTEST_SKIP() << "only root can make a small disk";
    }
    run.Folder.Put("filling", std::string(taken * kPage, 'x'));
    EXPECT_EQ(run.Run(service.Plain()) == 0, taken < 3) << taken;
    EXPECT_EQ(run.Log().value_or("no log"), taken < 3 ? "2" : "no log") << taken;
    EXPECT_FALSE(run.Data()) << taken;
    ::umount2(folder.c_str(), MNT_DETACH);
  }
}

}  // namespace
}  // namespace quillbox
