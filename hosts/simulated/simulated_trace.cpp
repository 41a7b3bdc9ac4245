// The trace: everything that the program did to its host, in order.
#include "simulated/simulated_trace.h"

#include <algorithm>
#include <utility>

namespace quillbox {

std::string TraceLine(const TraceEntry& entry) {
  return entry.Text.empty() ? entry.What : entry.What + " " + entry.Text;
}

void SimulatedTrace::Add(std::string what, std::string text,
                         std::vector<std::pair<std::string, std::string>> parts) {
  TraceEntry entry{time_.Now(), std::move(what), std::move(text), std::move(parts)};
  if (taker_) return taker_(entry);
  entries_.push_back(std::move(entry));
}

void SimulatedTrace::HandTo(Taker taker) {
  taker_ = std::move(taker);
  for (const TraceEntry& entry : std::exchange(entries_, {})) taker_(entry);
}

std::vector<std::string> SimulatedTrace::Lines() const {
  std::vector<std::string> lines;
  for (const TraceEntry& entry : entries_) lines.push_back(TraceLine(entry));
  return lines;
}

std::vector<std::string> SimulatedTrace::Lines(
    std::initializer_list<std::string_view> kinds) const {
  std::vector<std::string> lines;
  for (const TraceEntry& entry : entries_) {
    if (std::ranges::find(kinds, entry.What) != kinds.end()) lines.push_back(TraceLine(entry));
  }
  return lines;
}

}  // namespace quillbox
