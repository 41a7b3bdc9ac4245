// Places and sizes on a screen, in pixels.
#pragma once

namespace quillbox {

struct PixelPoint {
  int X = 0, Y = 0;
  bool operator==(const PixelPoint&) const = default;
};

struct PixelRect {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

struct PixelSize {
  double Width = 0, Height = 0;
};

}  // namespace quillbox
