#include "tooltip/tooltip_layout.h"

#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

constexpr double kLeft = 180;  // margins, and the first row's place
constexpr double kTop = 150;
constexpr double kGap = 25;  // below each row whose line isn't the text's last

}  // namespace

TooltipLayout LayOutTooltip(std::string_view text, const TooltipMeasure& measure) {
  const TooltipRows rows = SplitTooltipText(text);
  TooltipLayout layout;
  double y = 0;
  double widest = 0;
  for (const TooltipRow& row : rows.Rows) {
    const TextSize description = measure.Description(row.Description);
    const double valueWidth = measure.Value(row.Value).Width;
    layout.Rows.push_back({row, kLeft, kTop + y, kLeft + description.Width});
    // Kept a whole number, a half to the even one.
    y = std::nearbyint(y + description.Height + (row.Line < rows.LastLine ? kGap : 0));
    widest = std::max(widest, description.Width + valueWidth);
  }
  layout.Width = 2 * kLeft + widest;
  layout.Height = 2 * kTop + y;
  return layout;
}

}  // namespace quillbox
