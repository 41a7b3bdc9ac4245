// Reading the fetch program's argument.
#include "simulated/agent_text.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(AgentText, IsCutFromTheRight) {
  struct Case {
    const char* text;
    AgentText read;
  };
  const Case kCases[] = {{"Email=%61%40%62&Passwd=%31|%#%2%#%https://h/p?q|/app/a.dat|/app/a.log",
                          {"a@b", "1|%#%2", "https://h/p?q", "/app/a.dat", "/app/a.log"}},
                         {"https://h/v.txt|/app/a b.wt|/app/c.wt",
                          {"", "", "https://h/v.txt", "/app/a b.wt", "/app/c.wt"}},
                         {"", {}}};
  for (const Case& c : kCases) {
    const AgentText read = ReadAgentText(c.text);
    EXPECT_EQ(read.Username, c.read.Username) << c.text;
    EXPECT_EQ(read.Password, c.read.Password) << c.text;
    EXPECT_EQ(read.Address, c.read.Address) << c.text;
    EXPECT_EQ(read.DataPath, c.read.DataPath) << c.text;
    EXPECT_EQ(read.LogPath, c.read.LogPath) << c.text;
  }
}

}  // namespace
}  // namespace quillbox
