#include "reports/run_index.h"

namespace quillbox {

void RunIndex::Append(std::string_view text) {
  const Number number = numbers_.emplace(text, static_cast<Number>(numbers_.size())).first->second;
  const StateIndex added = states_.size();
  states_.push_back({states_[last_].Longest + 1, 0, {}});
  StateIndex from = last_;
  while (from != kNone && states_[from].Next.emplace(number, added).second) {
    from = states_[from].Suffix;
  }
  if (from != kNone) {
    const StateIndex to = states_[from].Next.at(number);
    const bool fits = states_[to].Longest == states_[from].Longest + 1;
    const StateIndex suffix = fits ? to : Split(from, to, number);
    states_[added].Suffix = suffix;
  }
  last_ = added;
}

// Runs that ended in `to` alike now differ: the shorter ones get a state of their own.
RunIndex::StateIndex RunIndex::Split(StateIndex from, StateIndex to, Number number) {
  const StateIndex shorter = states_.size();
  State copy = states_[to];
  copy.Longest = states_[from].Longest + 1;
  states_.push_back(std::move(copy));
  states_[to].Suffix = shorter;
  for (; from != kNone; from = states_[from].Suffix) {
    StateIndex& next = states_[from].Next.at(number);
    if (next != to) break;
    next = shorter;
  }
  return shorter;
}

bool RunIndex::Holds(std::span<const std::string_view> run) const {
  StateIndex at = 0;
  for (const std::string_view text : run) {
    const auto number = numbers_.find(text);
    if (number == numbers_.end()) return false;
    const auto next = states_[at].Next.find(number->second);
    if (next == states_[at].Next.end()) return false;
    at = next->second;
  }
  return true;
}

}  // namespace quillbox
