// The trace as JSON lines.
#include "simulated/script_trace.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "text/code_page.h"

namespace quillbox {
namespace {

std::string TimeText(std::chrono::local_time<std::chrono::milliseconds> time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{time - day};
  std::array<char, 64> text{};
  std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03d", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
      static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
  return text.data();
}

nlohmann::ordered_json LineOf(const TraceEntry& entry, const SimulatedTime& time) {
  nlohmann::ordered_json line;
  line["at"] = TimeText(time.LocalTimeAt(entry.At));
  line["what"] = entry.What;
  for (const auto& [name, value] : entry.Parts) line[name] = ToUtf8(value);
  if (entry.Parts.empty() && !entry.Text.empty()) line["text"] = ToUtf8(entry.Text);
  return line;
}

}  // namespace

void WriteTraceEntry(std::ostream& out, const TraceEntry& entry, const SimulatedTime& time) {
  out << LineOf(entry, time).dump() << '\n';
}

}  // namespace quillbox
