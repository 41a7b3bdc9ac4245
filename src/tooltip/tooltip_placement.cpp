#include "tooltip/tooltip_placement.h"

#include <cmath>

namespace quillbox {
namespace {

constexpr double kMargin = 10;  // from the screen's corner, but on the right edge

PixelPoint Rounded(double x, double y) {
  return {static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y))};
}

}  // namespace

std::optional<PixelPoint> PlaceTooltip(const PixelRect& taskbar, const PixelSize& screen,
                                       const PixelSize& window) {
  if (taskbar.Left > 0) {  // on the right edge
    return Rounded(taskbar.Left - window.Width, screen.Height - window.Height);
  }
  const bool reachesRight = taskbar.Right >= screen.Width;
  if (reachesRight && taskbar.Top > 0) {  // at the bottom
    return Rounded(taskbar.Right - window.Width - kMargin, taskbar.Top - window.Height);
  }
  if (reachesRight) {  // at the top
    return Rounded(screen.Width - window.Width - kMargin, taskbar.Bottom);
  }
  if (taskbar.Top <= 0) {  // on the left edge
    return Rounded(taskbar.Right, screen.Height - window.Height - kMargin);
  }
  return std::nullopt;
}

}  // namespace quillbox
