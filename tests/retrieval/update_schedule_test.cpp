// The rate table.
#include "retrieval/update_schedule.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(UpdateSchedule, KnowsEveryRate) {
  struct Case {
    const char* rate;
    int minutes;
  };
  const Case kCases[] = {
      {"Every minute", 1},      {"Every 2 minutes", 2},   {"Every 3 minutes", 3},
      {"Every 4 minutes", 4},   {"Every 5 minutes", 5},   {"Every 10 minutes", 10},
      {"Every 15 minutes", 15}, {"Every 20 minutes", 20}, {"Every 25 minutes", 25},
      {"Every 30 minutes", 30}, {"Every 35 minutes", 35}, {"Every 40 minutes", 40},
      {"Every 45 minutes", 45}, {"Every hour", 60},       {"Every 2 hours", 120},
      {"Every 3 hours", 180},   {"Every 4 hours", 240},   {"Every 5 hours", 300},
      {"every minute", 15},     {"Every minute ", 15},    {"", 15},
      {"Every 6 hours", 15}};
  for (const Case& c : kCases) EXPECT_EQ(RateMinutes(c.rate), c.minutes) << '"' << c.rate << '"';
}

}  // namespace
}  // namespace quillbox
