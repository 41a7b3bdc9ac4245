#include "system/agent_processes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "desktop/fake_bus_service.h"
#include "support/child_process.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

// A process that has ended and that nobody has asked about yet counts as ended.
bool IsAlive(const std::string& pid) {
  std::ifstream file("/proc/" + pid + "/stat");
  std::string number, name, state;
  return (file >> number >> name >> state) && state != "Z";
}

class AgentProcessesTest : public testing::Test {
 protected:
  // Starts a fetch program that does what `script` says.
  AgentId Start(const std::string& script, const AgentStart& start = {"text", {}}) {
    folder_.PutProgram("dl", "cd " + folder_.Path() + "\n" + script);
    return agents_.Start(start);
  }
  void RunToItsEnd(const std::string& script, const AgentStart& start = {"text", {}}) {
    const AgentId agent = Start(script, start);
    ASSERT_TRUE(ComesAbout([&] { return !agents_.Running(agent); }));
  }

  // The scripts write the numbers of processes there.
  bool HasWritten(const char* file) const { return folder_.Content(file).ends_with('\n'); }
  void ExpectEndOf(const char* file) const {
    const std::string text = folder_.Content(file);
    EXPECT_TRUE(ComesAbout([&] { return !IsAlive(text.substr(0, text.find('\n'))); })) << file;
  }

  const TemporaryFolder folder_;
  AgentProcesses agents_{folder_.File("dl")};
};

TEST_F(AgentProcessesTest, NothingThatAnAgentStartedOutlivesIt) {
  struct Case {
    const char* What;
    bool Waits;  // else it has ended by itself, and left a process behind
    std::function<void(AgentId)> End;
  };
  const Case kCases[] = {
      {"while it runs", true, [this](AgentId agent) { agents_.End(agent); }},
      {"all, while it runs", true, [this](AgentId) { agents_.EndAll(); }},
      {"asked for", false, [this](AgentId agent) { EXPECT_FALSE(agents_.Running(agent)); }},
      {"ended", false, [this](AgentId agent) { agents_.End(agent); }},
      {"all", false, [this](AgentId) { agents_.EndAll(); }},
      {"at the next start", false, [this](AgentId) { Start("exit 0"); }},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.What);
    for (const char* const file : {"child", "own"}) std::filesystem::remove(folder_.File(file));
    const AgentId agent = Start(std::string("sleep 600 & echo $! > child; echo $$ > own; ") +
                                (c.Waits ? "wait" : "exit 0"));
    ASSERT_TRUE(ComesAbout([&] { return HasWritten("own"); }));
    const std::string own = folder_.Content("own"), child = folder_.Content("child");
    if (!c.Waits) {
      ASSERT_TRUE(ComesAbout([&] { return !IsAlive(own.substr(0, own.size() - 1)); }));
    }
    EXPECT_TRUE(IsAlive(child.substr(0, child.size() - 1)));
    c.End(agent);
    EXPECT_FALSE(agents_.Running(agent));
    ExpectEndOf("child");
    ExpectEndOf("own");
  }
}

TEST_F(AgentProcessesTest, InheritsNoOpenFile) {
  const int leak = ::fcntl(2, F_DUPFD, 200);
  RunToItsEnd("ls /proc/$$/fd | tr '\\n' ' ' > fds");
  ::close(leak);
  const std::string found = folder_.Content("fds");
  EXPECT_EQ(found.find(" " + std::to_string(leak) + " "), std::string::npos) << found;
}

}  // namespace
}  // namespace quillbox
