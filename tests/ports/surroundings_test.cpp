// The contracts of the small ports: environment, clock, start-up entry, network.
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include "ports/tried_host.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

class SmallPorts : public PortTest {};

TEST_P(SmallPorts, TheEnvironmentIsFoundInAnyCaseAndComesInTheCodePage) {
  const struct Case {
    const char *Value, *Read;
  } kCases[] = {{"ann", "ann"}, {"jos\xc3\xa9=x", "jos\xe9=x"}, {"\xd0\xb4", ""}, {"", ""}};
  for (const Case& c : kCases) {
    host_->SetVariable("QUILLBOX_TRIED", c.Value);
    for (const char* const name : {"QUILLBOX_TRIED", "Quillbox_Tried"}) {
      EXPECT_EQ(host_->Variables().Variable(name), c.Read) << name << '=' << c.Value;
    }
    EXPECT_EQ(host_->Variables().Variable("QUILLBOX_TRIE"), "");
  }
}

TEST_P(SmallPorts, TheClockIsNeverSetBack) {
  Clock& clock = host_->Time();
  const TimePoint before = clock.Now();
  const auto day = std::chrono::floor<std::chrono::days>(clock.LocalTime());
  EXPECT_TRUE(std::chrono::year_month_day(day).ok());
  EXPECT_GE(clock.Now(), before);
}

TEST_P(SmallPorts, TheStartUpEntryComesAndGoes) {
  StartUpEntry& entry = host_->StartUp();
  EXPECT_FALSE(entry.Present());
  entry.Remove();  // is not there
  for (int i = 0; i < 2; ++i) {
    entry.Make();
    EXPECT_TRUE(entry.Present());
  }
  entry.Remove();
  EXPECT_FALSE(entry.Present());
}

// What it says depends on the machine: that it says it at once does not.
TEST_P(SmallPorts, TheNetworkStateIsSteadyAndNeverWaits) {
  const bool first = host_->Network().IsOnline();
  for (int i = 0; i < 20; ++i) EXPECT_EQ(host_->Network().IsOnline(), first);
}

QUILLBOX_ON_ALL_HOSTS(SmallPorts);

}  // namespace
}  // namespace quillbox
