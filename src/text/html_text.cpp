#include "text/html_text.h"

namespace quillbox {

std::string HtmlText(std::string_view text) {
  constexpr std::string_view kMarks = "&<>\"'";
  std::string html;
  html.reserve(text.size());
  for (const char c : text) {
    if (kMarks.find(c) == std::string_view::npos) {
      html += c;
    } else {
      html += "&#" + std::to_string(static_cast<int>(c)) + ";";
    }
  }
  return html;
}

}  // namespace quillbox
