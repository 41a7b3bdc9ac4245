// The small window beside the tray: measuring its texts, showing it, closing it; and the mouse
// cursor, over which it appears.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// Places and sizes on a screen, in pixels.
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

struct TextSize {  // in twips
  double Width = 0;
  double Height = 0;
};

struct TooltipFont {
  std::string Face;
  double Points = 0;
  bool Bold = false;
  std::int32_t Color = 0;  // red in the low byte, then green, then blue
};

struct TooltipLabel {
  std::string Text;          // code page
  bool Description = false;  // else a value
  double Left = 0, Top = 0;  // in twips, from the window's top left corner
};

// All that the window shows.
struct TooltipPicture {
  std::string PictureFile;  // drawn at its own size from the top left corner; or empty
  std::optional<std::int32_t> BackColor;  // else the system's window colour
  TooltipFont DescriptionFont, ValueFont;
  std::vector<TooltipLabel> Labels;
  double Width = 0, Height = 0;     // in twips, the frame included
  std::optional<PixelPoint> Place;  // on the icon's screen; nothing leaves it to the system
};

// The screen that holds the icon; rectangles count from its top left corner.
struct TooltipSurroundings {
  PixelRect Taskbar;  // zeros when there is none
  PixelSize Screen;
  double TwipsPerPixelX = 15, TwipsPerPixelY = 15;
};

class TooltipWindow {
 public:
  virtual ~TooltipWindow() = default;

  virtual TextSize Measure(std::string_view text, const TooltipFont& font) = 0;
  virtual TooltipSurroundings Surroundings() = 0;

  // Builds the window and shows it on top of others without giving it the focus. Only while none is
  // shown.
  virtual void Show(const TooltipPicture& picture) = 0;

  // Throws the window away.
  virtual void Close() = 0;
};

// The mouse cursor.
class Cursor {
 public:
  virtual ~Cursor() = default;

  // Where it stands now, in pixels of the whole desktop.
  virtual PixelPoint Position() = 0;
};

}  // namespace quillbox
