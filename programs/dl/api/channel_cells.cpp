#include "api/channel_cells.h"

#include <map>
#include <set>
#include <string_view>

#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// The bytes of the first character; one byte where the text is no UTF-8.
std::size_t CharacterLength(std::string_view utf8) {
  std::size_t length = 1;
  while (length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return length;
}

bool HasOtherMeaning(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '\x7F' ||
         std::string_view("\"^<>&").find(c) != std::string_view::npos;
}

std::string CellOf(std::string_view name) {
  std::string cell;
  while (!name.empty()) {
    const std::size_t length = CharacterLength(name);
    cell += FromUtf8(name.substr(0, length)).value_or("?");
    name.remove_prefix(length);
  }
  for (char& c : cell) c = HasOtherMeaning(c) ? ' ' : c;
  const std::string_view trimmed = Trimmed(cell, kBlank);
  return trimmed.empty() ? "?" : std::string(trimmed);
}

}  // namespace

std::vector<std::string> ChannelCells(const std::vector<std::string>& names) {
  std::vector<std::string> cells;
  std::set<std::string> taken;
  std::map<std::string, int> last;  // number given to a cell; there may be very many alike
  for (const std::string& name : names) {
    const std::string cell = CellOf(name);
    std::string own = cell;
    int& number = last.try_emplace(cell, 1).first->second;
    while (!taken.insert(own).second) own = cell + " (" + std::to_string(++number) + ")";
    cells.push_back(own);
  }
  return cells;
}

}  // namespace quillbox
