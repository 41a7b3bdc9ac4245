#include "desktop/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <map>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

// Pumps until `done`, which must come by itself.
void PumpUntil(const std::function<bool()>& done) {
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

// Timers of a second and more are put together with others, up to a twentieth of their time early.
TEST(QtTimers, OneThatComesEarlyDoesNotTickAgainWhenItIsDue) {
  const auto end = std::chrono::steady_clock::now() + 4s;
  std::vector<std::unique_ptr<Timer>> timers;
  std::map<std::chrono::milliseconds, std::chrono::steady_clock::time_point> last;
  for (auto interval = 1000ms; interval < 2000ms; interval += 20ms) {
    timers.push_back(QtTimers().NewTimer(interval, [&last, interval] {
      const auto now = std::chrono::steady_clock::now();
      EXPECT_GT(now - last[interval], interval / 4) << interval.count();
      last[interval] = now;
    }));
    timers.back()->SetEnabled(true);
  }
  PumpUntil([&] { return std::chrono::steady_clock::now() > end; });
  EXPECT_EQ(last.size(), timers.size());
}

}  // namespace
}  // namespace quillbox
