// The tooltip's text cut into rows of a description and a value.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

struct TooltipRow {
  std::size_t Line = 0;     // of the text, counted from 0
  std::string Description;  // with its colon
  std::string Value;        // with the blank in front
};

struct TooltipRows {
  std::vector<TooltipRow> Rows;
  std::size_t LastLine = 0;  // the text's last one, with or without a row
};

// `text`: code page, lines separated by CR LF. A line is split at its first ": "; one without it
// has no row. A text of a single line has no row at all.
TooltipRows SplitTooltipText(std::string_view text);

}  // namespace quillbox
