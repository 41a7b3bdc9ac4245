// The tooltip window as it is built each time it comes up: rows, sizes and place. Lengths are in
// twips.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/storage.h"
#include "platform/tooltip_window.h"

namespace quillbox {

// A line of the tooltip's text.
struct TooltipRow {
  std::size_t Line = 0;     // of the text, counted from 0
  std::string Description;  // with its colon
  std::string Value;        // with the blank in front
};

// Measures a caption in the font of the descriptions or of the values.
struct TooltipMeasure {
  std::function<TextSize(std::string_view)> Description;
  std::function<TextSize(std::string_view)> Value;
};

struct PlacedRow {
  TooltipRow Row;
  double Left = 0;  // of the description
  double Top = 0;   // of both
  double ValueLeft = 0;
};

struct TooltipLayout {
  std::vector<PlacedRow> Rows;
  double Width = 0;  // of the window
  double Height = 0;
};

// Where the rows stand and how large the window is. `text`: code page, lines separated by CR LF. A
// line is split at its first ": "; one without it has no row. A text of a single line has no row at
// all.
TooltipLayout LayOutTooltip(std::string_view text, const TooltipMeasure& measure);

// The window's top left corner, beside the taskbar on whichever edge it stands; each coordinate is
// rounded once, a half to the even number. Nothing when no edge fits: the window then stays where
// the system put it. A screen without a taskbar has a rectangle of zeros.
std::optional<PixelPoint> PlaceTooltip(const PixelRect& taskbar, const PixelSize& screen,
                                       const PixelSize& window);

// `skinFile` and `pictureFile` are the full paths of skin.ini and Skin.gif, which need not be
// there.
TooltipPicture BuildTooltipPicture(std::string_view text, Files& files, const std::string& skinFile,
                                   const std::string& pictureFile, TooltipWindow& window);

}  // namespace quillbox
