// The channel names of a report, in the order of their first appearance.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "reports/run_index.h"

namespace quillbox {

// The list is the text "^Red^Blue^", and a name is in it when "^name^" occurs there. So a name that
// holds the mark itself is in it when its parts stand there in a row, and brings all its parts.
class ChannelList {
 public:
  // Names with a mark are looked for in the text itself until so many bytes have been searched in
  // all; then an index takes over, which costs much memory.
  static constexpr std::size_t kMostSearched = std::size_t{64} << 20;

  explicit ChannelList(std::size_t mostSearched = kMostSearched) : searchesLeft_(mostSearched) {}

  // Adds the name unless it is in the list. The text that `name` lies in must outlive the list.
  // Takes time in proportion to the name, however long the list is.
  void Add(std::string_view name);

  // "Red^Blue"
  std::string Names() const;

 private:
  bool HoldsRun(std::string_view name);

  std::string text_ = "^";
  std::vector<std::string_view> names_;         // that were added
  std::unordered_set<std::string_view> known_;  // names that are in the list, and all parts
  std::size_t searchesLeft_;                    // in bytes
  std::optional<RunIndex> runs_;                // of all parts
};

}  // namespace quillbox
