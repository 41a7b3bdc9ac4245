// Where the rows of the tooltip window stand and how large it is.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tooltip_window.h"
#include "tooltip/tooltip_rows.h"

namespace quillbox {

// All lengths in twips.

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

TooltipLayout LayOutTooltip(std::string_view text, const TooltipMeasure& measure);

}  // namespace quillbox
