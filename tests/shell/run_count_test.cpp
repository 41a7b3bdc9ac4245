// Counting the starts.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

TEST(RunCount, GrowsByOneAtEachStart) {
  struct Case {
    const char* stored;
    const char* afterwards;
  };
  const Case kCases[] = {{"1", "2"},         {"32766", "32767"}, {"32767", "32767"},
                         {"40000", "40000"}, {"-3", "-2"},       {"-32769", "-32769"},
                         {"many", "many"},   {"1x", "1x"},       {"9", "10"}};
  for (const Case& c : kCases) {
    SimulatedProgram program;
    program.UsedBefore();
    program.Set(kRuns, c.stored);
    program.Start();
    EXPECT_EQ(program.Setting(kRuns), c.afterwards) << c.stored;
    EXPECT_TRUE(program.Host.Boxes.Shown().empty()) << c.stored;
  }
}

}  // namespace
}  // namespace quillbox
