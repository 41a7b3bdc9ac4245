// Which corner of the screen the tooltip window takes.
#pragma once

#include <optional>

namespace quillbox {

// In pixels.
struct PixelRect {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};
struct PixelPoint {
  int X = 0, Y = 0;
};
struct PixelSize {
  double Width = 0, Height = 0;
};

// The window's top left corner, beside the taskbar on whichever edge it stands; each coordinate is
// rounded once, a half to the even number. Nothing when no edge fits: the window then stays where
// the system put it. A screen without a taskbar has a rectangle of zeros.
std::optional<PixelPoint> PlaceTooltip(const PixelRect& taskbar, const PixelSize& screen,
                                       const PixelSize& window);

}  // namespace quillbox
