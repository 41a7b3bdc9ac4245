// The trace: everything that the program did to its host, in order.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulated/simulated_time.h"

namespace quillbox {

// Texts: code page; lines inside a text end as the program wrote them.
struct TraceEntry {
  TimePoint At;
  std::string What;  // "store", "balloon", ...
  std::string Text;  // may be empty
  // The parts of Text under names, where Text alone can't be taken apart again.
  std::vector<std::pair<std::string, std::string>> Parts;
};

// "store General/Pause=True": What, a blank, and Text; What alone when Text is empty.
std::string TraceLine(const TraceEntry& entry);

// Entries are kept, or handed on as they come, so that a run of years needs no more memory than one
// of a day.
class SimulatedTrace {
 public:
  using Taker = std::function<void(const TraceEntry&)>;

  // `time` must outlive the trace.
  explicit SimulatedTrace(SimulatedTime& time) : time_(time) {}

  void Add(std::string what, std::string text,
           std::vector<std::pair<std::string, std::string>> parts = {});

  // `taker` gets what is kept by now and from here on each entry at once. None is kept any more.
  void HandTo(Taker taker);

  // Adds to what a part of the host tells of its past, which goes the way of the entries.
  template <typename Event>
  void Keep(std::vector<Event>& past, const Event& event) const {
    if (!taker_) past.push_back(event);
  }

  const std::vector<TraceEntry>& Entries() const { return entries_; }

  // All lines.
  std::vector<std::string> Lines() const;
  // The lines of these kinds alone.
  std::vector<std::string> Lines(std::initializer_list<std::string_view> kinds) const;

  void Clear() { entries_.clear(); }

 private:
  SimulatedTime& time_;
  std::vector<TraceEntry> entries_;
  Taker taker_;
};

}  // namespace quillbox
