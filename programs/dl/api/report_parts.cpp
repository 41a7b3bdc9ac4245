#include "api/report_parts.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>

namespace quillbox {
namespace {

using std::chrono::days;

constexpr std::string_view kShortestLine = "2026-03-01\t0\t0\t0.00%\t0.00\t0.00\n";

}  // namespace

std::vector<DayRange> PartsOf(const ReportAnswer& cut) {
  const auto number = static_cast<std::size_t>((cut.Days.Last - cut.Days.First).count() + 1);
  if (number == 1 || cut.Lines.empty()) return {};
  const std::size_t answers = (cut.Matched - 1) / cut.Lines.size() + 1;
  const std::size_t count = std::min(number, 2 * answers);
  const auto start = [&](std::size_t part) {
    return cut.Days.First + days(static_cast<long long>(part * number / count));
  };
  std::vector<DayRange> parts;
  for (std::size_t i = 0; i < count; ++i) parts.push_back({start(i), start(i + 1) - days(1)});
  return parts;
}

ReportAnswer WithoutFigures(ReportAnswer cut) {
  cut.Lines = {};
  cut.Totals = {};
  cut.Matched = 0;
  return cut;
}

void AddPart(ReportAnswer& report, ReportAnswer part) {
  report.Lines.insert(report.Lines.end(), std::make_move_iterator(part.Lines.begin()),
                      std::make_move_iterator(part.Lines.end()));
  report.Matched = report.Lines.size();
  AddFigures(report.Totals, part.Totals);
}

std::size_t BytesOf(const std::vector<ReportLine>& lines) {
  return std::transform_reduce(
      lines.begin(), lines.end(), std::size_t{0}, std::plus<>(), [](const ReportLine& line) {
        return kShortestLine.size() + line.Channel.Name.size() + line.Channel.Id.size();
      });
}

}  // namespace quillbox
