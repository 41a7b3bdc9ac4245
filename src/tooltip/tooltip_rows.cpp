#include "tooltip/tooltip_rows.h"

#include "text/text_list.h"

namespace quillbox {

TooltipRows SplitTooltipText(std::string_view text) {
  const std::vector<std::string> lines = SplitText(text, "\r\n");
  TooltipRows result;
  if (lines.size() < 2) return result;
  result.LastLine = lines.size() - 1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t colon = lines[i].find(": ");
    if (colon == std::string::npos) continue;
    result.Rows.push_back({i, lines[i].substr(0, colon + 1), lines[i].substr(colon + 1)});
  }
  return result;
}

}  // namespace quillbox
