// Version checks of a program that keeps its settings in a file.
#include <gtest/gtest.h>

#include <string>

#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

AgentBehaviour Publishes(const std::string& text) {
  AgentBehaviour agent;
  agent.DataFile = "che.wt";
  agent.Data = text;
  agent.Log = "0";
  return agent;
}

// The settings file cuts the value at its line end, and knows no installed version.
TEST(VersionFileMode, AnAnsweredQuestionDoesNotComeBackEveryDay) {
  for (const char* end : {"", "\r\n", "\n", " \r\n"}) {
    SimulatedProgram program;
    program.Host.Store.SetKeeps(StoreKeeps::kNothing);
    const auto questionsOnNextDay = [&program](const std::string& published) {
      if (program.Host.Runs()) program.Host.Kill();
      program.Host.RunFor(24h);
      program.Host.Agents.Always(Publishes(published));
      program.Host.Effects.Clear();
      program.Start();
      EXPECT_EQ(program.Host.Trace({"agent"}).size(), 3U) << "the check was made";
      int questions = 0;
      for (const std::string& box : program.Host.Trace({"box"})) {
        questions += box.find("is available") == std::string::npos ? 0 : 1;
      }
      return questions;
    };
    EXPECT_EQ(questionsOnNextDay(std::string("1.3.1") + end), 1) << end;
    EXPECT_EQ(questionsOnNextDay(std::string("1.3.1") + end), 0) << end;
    EXPECT_EQ(questionsOnNextDay(std::string("1.3.2") + end), 1) << end;
    EXPECT_EQ(questionsOnNextDay(std::string("1.3.2") + end), 0) << end;
  }
}

}  // namespace
}  // namespace quillbox
