#include "system/agent_processes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "desktop/child_process.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

void WaitUntil(const std::function<bool()>& done) {
  for (int tries = 0; tries < 1000 && !done(); ++tries) std::this_thread::sleep_for(10ms);
  EXPECT_TRUE(done());
}

// A process that has ended and that nobody has asked about yet counts as ended.
bool IsAlive(const std::string& pid) {
  std::ifstream file("/proc/" + pid + "/stat");
  std::string number, name, state;
  return (file >> number >> name >> state) && state != "Z";
}

class AgentProcessesTest : public testing::Test {
 protected:
  std::string Path(const std::string& name) const {
    return folder_.filePath(QString::fromStdString(name)).toStdString();
  }

  // A fetch program that does what `script` says.
  std::string Program(const std::string& script) const {
    std::ofstream(Path("dl")) << "#!/bin/sh\ncd " << folder_.path().toStdString() << "\n" << script;
    std::filesystem::permissions(Path("dl"), std::filesystem::perms::owner_all);
    return Path("dl");
  }

  std::string Content(const std::string& name) const {
    std::ifstream file(Path(name));
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const QTemporaryDir folder_;
};

TEST_F(AgentProcessesTest, HandsOverTextAndEnvironmentUnchanged) {
  std::string text = "|a b\"'$(x)`\\|\r\n";
  for (int code = 128; code < 256; ++code) text += static_cast<char>(code);
  ::setenv("REMOVED", "1", 1);
  AgentProcesses agents(Program("printf %s \"$1\" > text; printf %s \"$ADDED:$REMOVED:$#\" > env"));
  const AgentId agent = agents.Start({text, {{"ADDED", "M\xfcller"}, {"REMOVED", ""}}});
  WaitUntil([&] { return !agents.Running(agent); });
  EXPECT_EQ(Content("text"), text);
  EXPECT_EQ(Content("env"), "M\xc3\xbcller::1");
}

TEST_F(AgentProcessesTest, AStartThatFailsDoesNotRun) {
  AgentProcesses agents(Path("nothing here"));
  const AgentId agent = agents.Start({"text", {}});
  WaitUntil([&] { return !agents.Running(agent); });
  agents.End(agent);
  EXPECT_FALSE(agents.Running(12345));
}

TEST_F(AgentProcessesTest, EndsAnAgentWithAllThatItStarted) {
  AgentProcesses agents(Program("sleep 600 & echo $! > child; echo $$ > own; wait"));
  const AgentId agent = agents.Start({"text", {}});
  WaitUntil([&] { return Content("own").ends_with('\n'); });
  EXPECT_TRUE(agents.Running(agent));
  agents.End(agent);
  EXPECT_FALSE(agents.Running(agent));
  for (const char* const file : {"child", "own"}) {
    const std::string pid = Content(file);
    WaitUntil([&] { return !IsAlive(pid.substr(0, pid.find('\n'))); });
  }
}

TEST_F(AgentProcessesTest, NoAgentOutlivesAProgramThatDied) {
  const std::string program = Program("echo $$ > own; exec sleep 600");
  InChildAs(::geteuid(), [&] {
    static AgentProcesses agents(program);
    agents.Start({"text", {}});
    WaitUntil([&] { return Content("own").ends_with('\n'); });
    return 0;  // and _exit, so that nothing is ended in an orderly way
  });
  const std::string pid = Content("own");
  WaitUntil([&] { return !IsAlive(pid.substr(0, pid.find('\n'))); });
}

TEST_F(AgentProcessesTest, InheritsNoOpenFile) {
  AgentProcesses agents(Program("ls /proc/$$/fd | tr '\\n' ' ' > fds"));
  const int leak = ::fcntl(2, F_DUPFD, 200);
  const AgentId agent = agents.Start({"text", {}});
  WaitUntil([&] { return !agents.Running(agent); });
  ::close(leak);
  EXPECT_EQ(Content("fds").find(" " + std::to_string(leak) + " "), std::string::npos)
      << Content("fds");
}

}  // namespace
}  // namespace quillbox
