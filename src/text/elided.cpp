#include "text/elided.h"

namespace quillbox {

std::string Elided(std::string_view name, std::size_t longest) {
  constexpr char kEllipsis = '\x85';
  if (name.size() <= longest) return std::string(name);
  if (longest == 0) return {};
  const std::size_t behind = (longest - 1) / 2;
  const std::size_t before = longest - 1 - behind;
  std::string shown(name.substr(0, before));
  shown += kEllipsis;
  shown += name.substr(name.size() - behind);
  return shown;
}

}  // namespace quillbox
