// The contract of AgentRunner, by a fetch program that does as it is told.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <random>
#include <set>
#include <thread>

#include "ports/tried_host.h"
#include "support/rounds.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr const char* kAgent = QUILLBOX_TRIED_AGENT;

bool ComesAbout(const std::function<bool()>& wished) {
  for (int tries = 0; tries < 3000; ++tries) {
    if (wished()) return true;
    std::this_thread::sleep_for(10ms);
  }
  return false;
}

class AgentsPort : public testing::Test {
 protected:
  AgentStart Told(const std::string& text) const {
    return {text, {{"TRIED_FOLDER", folder_.Path()}, {"ADDED", "a=b c"}, {"REMOVED", ""}}};
  }
  bool Beats() const { return !folder_.Content("beat").empty(); }

  // It had been writing every few milliseconds.
  void ExpectSilence() const {
    const std::string before = folder_.Content("beat");
    std::this_thread::sleep_for(150ms);
    EXPECT_EQ(folder_.Content("beat"), before);
  }

  const TemporaryFolder folder_;
  const std::unique_ptr<AgentRunner> agents_ = MakeAgents(kAgent);
};

TEST_F(AgentsPort, HandsOverTextAndEnvironmentUnchanged) {
  std::string high;
  for (int code = 128; code < 256; ++code) high += static_cast<char>(code);
  const std::string texts[] = {"|a b\"'$(x)`\\|", "\\",        "a\\\\\"b\\\"", "\"",    " x ",
                               "%PATH%^&|<>!\t",  "C:\\x y\\", high,           "a\r\nb"};
  SetProcessVariable("REMOVED", "1");
  for (const std::string& text : texts) {
    const AgentId agent = agents_->Start(Told(text));
    ASSERT_TRUE(ComesAbout([&] { return !agents_->Running(agent); }));
    EXPECT_EQ(folder_.Content("text"), AsArgument(text) + "|1|a=b c|");
  }
}

TEST_F(AgentsPort, AStartThatFailsDoesNotRun) {
  const auto agents = MakeAgents(folder_.File("absent"));
  const AgentId agent = agents->Start({"text", {}});
  EXPECT_TRUE(ComesAbout([&] { return !agents->Running(agent); }));
  agents->End(agent);
  EXPECT_FALSE(agents->Running(12345));
}

TEST_F(AgentsPort, WhatIsEndedWritesNoMore) {
  const AgentId agent = agents_->Start(Told("beat"));
  ASSERT_TRUE(ComesAbout([&] { return Beats(); }));
  EXPECT_TRUE(agents_->Running(agent));
  agents_->End(agent);
  EXPECT_FALSE(agents_->Running(agent));
  ExpectSilence();
}

TEST_F(AgentsPort, WhatAnAgentStartedEndsWithIt) {
  const AgentId agent = agents_->Start(Told("leave"));
  ASSERT_TRUE(ComesAbout([&] { return !agents_->Running(agent); }));
  EXPECT_TRUE(Beats());
  ExpectSilence();
}

TEST_F(AgentsPort, NoAgentOutlivesAProgramThatDied) {
  SetProcessVariable("TRIED_FOLDER", folder_.Path());
  EXPECT_EQ(std::system((std::string("\"") + kAgent + "\" die").c_str()), 0);
  EXPECT_TRUE(Beats());
  std::this_thread::sleep_for(100ms);  // it is killed, but need not be at once
  ExpectSilence();
}

// Of the store: a process that saves without end is killed at any moment.
TEST_F(AgentsPort, AStoreHoldsTheOldOrTheNewBatchAfterAKill) {
  const auto host = MakeSystemHost();
  std::mt19937 random(1);
  for (int kill = 0; kill < Rounds(); ++kill) {
    folder_.Put("beat", "");
    const AgentId agent = agents_->Start(Told("save"));
    ASSERT_TRUE(ComesAbout([&] { return Beats(); }));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 30'000));
    ASSERT_TRUE(agents_->Running(agent));
    agents_->End(agent);
    const auto store = host->SameStore();
    std::set<std::string> values;
    for (const SettingChange& c : SameValues("")) values.insert(store->Read(c.Section, c.Key));
    EXPECT_EQ(values.size(), 1U) << testing::PrintToString(values);
    EXPECT_FALSE(values.contains(""));
    EXPECT_TRUE(store->Apply(SameValues("free"))) << "nothing is locked";
  }
}

}  // namespace
}  // namespace quillbox
