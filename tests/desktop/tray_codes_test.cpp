// How what a tray and a screen report becomes the program's own codes and pixels.
#include <gtest/gtest.h>

#include "qt_tray/qt_tray_host.h"
#include "qt_tray/status_notifier_item.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

TEST(Activations, ASecondOneInTimeIsADoubleClickAndAThirdBeginsAnew) {
  static const struct Case {
    std::chrono::milliseconds after;  // the one before
    TrayMouse code;
  } kCases[] = {
      {0ms, TrayMouse::kLeftDown},         {400ms, TrayMouse::kLeftDoubleClick},
      {1ms, TrayMouse::kLeftDown},         {401ms, TrayMouse::kLeftDown},
      {10ms, TrayMouse::kLeftDoubleClick},
  };
  Activations activations;
  Activations::Clock::time_point now{};
  int row = 0;
  for (const Case& c : kCases) {
    now += c.after;
    EXPECT_EQ(activations.Next(now, 400ms), c.code) << row++;
  }
}

TEST(DevicePixel, CountsInTheScreensOwnPixelsFromItsOrigin) {
  static const struct Case {
    QPoint place, origin;
    double ratio;
    PixelPoint pixel;
  } kCases[] = {
      {{10, 20}, {0, 0}, 1, {10, 20}},
      {{10, 20}, {0, 0}, 1.5, {15, 30}},
      {{1930, 20}, {1920, 0}, 2, {1940, 40}},
      {{-10, 20}, {-1280, 0}, 1, {-10, 20}},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(DevicePixel(c.place, c.origin, c.ratio), c.pixel) << c.place.x() << " x" << c.ratio;
  }
}

}  // namespace
}  // namespace quillbox
