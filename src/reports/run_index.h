// Which runs of texts stand next to each other in a growing row of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillbox {

// The smallest automaton that takes every run of the row (a suffix automaton): one step a text, so
// that a question costs as much as its run is long, and appending about as much as one step.
class RunIndex {
 public:
  // `text` must outlive the index.
  void Append(std::string_view text);

  // Whether the texts of `run` stand somewhere in the row, in this order and without others between
  // them.
  bool Holds(std::span<const std::string_view> run) const;

 private:
  using Number = std::uint32_t;  // of a different text, in the order of appearance
  using StateIndex = std::size_t;
  static constexpr StateIndex kNone = static_cast<StateIndex>(-1);

  struct State {
    std::size_t Longest = 0;    // the length of the longest run that ends here
    StateIndex Suffix = kNone;  // where its longest suffix ends that ends elsewhere
    std::map<Number, StateIndex> Next;
  };

  StateIndex Split(StateIndex from, StateIndex to, Number number);

  std::unordered_map<std::string_view, Number> numbers_;
  std::vector<State> states_{State{}};
  StateIndex last_ = 0;  // where the whole row ends
};

}  // namespace quillbox
