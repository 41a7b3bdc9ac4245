#include "api/tabbed_report.h"

#include <algorithm>
#include <string_view>

#include "api/channel_cells.h"
#include "api/figure_cells.h"

namespace quillbox {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

// Cells of one line in front of the figures.
struct Label {
  std::string_view First, Channel;
};

std::string Heading(const WantedReport& report) {
  std::string heading = report.ByChannel ? "Date\tChannel" : "Date";
  switch (report.Product) {
    case WantedProduct::kReferrals:
      return heading + "\tImpressions\tClicks\tCTR\tSign-ups\teCPM\tEarnings\n";
    case WantedProduct::kSearch:
      return heading + "\tQueries\tClicks\tCTR\teCPM\tEarnings\n";
    case WantedProduct::kContent:
      break;
  }
  return heading + (report.Unit == CountedBy::kPage ? "\tPage impressions" : "\tImpressions") +
         "\tClicks\tCTR\teCPM\tEarnings\n";
}

void AddLine(std::string& table, const WantedReport& report, const Label& label,
             const ReportFigures& figures) {
  table.append(label.First);
  if (report.ByChannel) table.append("\t").append(label.Channel);
  table += '\t' + CountCell(figures.Count) + '\t' + CountCell(figures.Clicks) + '\t' +
           PercentCell(figures.Ctr);
  if (report.Product == WantedProduct::kReferrals) table += "\t0";
  table += '\t' + MoneyCell(figures.Rpm) + '\t' + MoneyCell(figures.Earnings) + '\n';
}

// By name, each once.
std::vector<ReportChannel> ChannelsOf(const ReportAnswer& answer) {
  std::vector<ReportChannel> channels;
  for (const ReportLine& line : answer.Lines) channels.push_back(line.Channel);
  std::ranges::sort(channels);
  channels.erase(std::unique(channels.begin(), channels.end()), channels.end());
  return channels;
}

std::vector<std::string> CellsOf(const std::vector<ReportChannel>& channels) {
  std::vector<std::string> names;
  for (const ReportChannel& channel : channels) names.push_back(channel.Name);
  return ChannelCells(names);
}

sys_days FirstDay(const WantedReport& report, const ReportAnswer& answer) {
  if (report.Range != WantedRange::kAllTime) return answer.Days.First;
  return answer.Lines.empty() ? answer.Days.Last : answer.Lines.front().Day;
}

}  // namespace

std::optional<std::string> TabbedReport(const WantedReport& report, const ReportAnswer& answer,
                                        std::size_t mostBytes) {
  const std::vector<ReportChannel> channels =
      report.ByChannel ? ChannelsOf(answer) : std::vector<ReportChannel>(1);
  if (channels.empty()) return "";
  const std::vector<std::string> cells = CellsOf(channels);
  std::string table = Heading(report);
  auto next = answer.Lines.begin();  // the lines come by day and channel
  for (sys_days day = FirstDay(report, answer); day <= answer.Days.Last; day += days(1)) {
    const std::string dayText = DayText(day);
    for (std::size_t i = 0; i < channels.size(); ++i) {
      const bool here =
          next != answer.Lines.end() && next->Day == day && next->Channel == channels[i];
      AddLine(table, report, {dayText, cells[i]}, here ? next->Figures : ReportFigures{});
      if (here) ++next;
      if (table.size() > mostBytes) return std::nullopt;
    }
  }
  AddLine(table, report, {"Totals", ""}, answer.Totals);
  AddLine(table, report, {"Averages", ""}, answer.Averages);
  return table;
}

}  // namespace quillbox
