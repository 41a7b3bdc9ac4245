#include "api/tabbed_report.h"

#include <algorithm>
#include <cstdio>
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

// Beyond what any account earns; keeps a cell short whatever the service writes.
constexpr double kMost = 1e15;

// A number that isn't above zero, be it minus zero, is zero. The program sets no locale, so the
// mark is the point.
std::string Fixed(double number, int decimals) {
  char text[64];
  const double shown = number > 0 ? std::min(number, kMost) : 0;
  std::snprintf(text, sizeof text, "%.*f", decimals, shown);
  return text;
}

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

std::string CountCell(double count) {
  return Fixed(count, 0);
}

std::string PercentCell(double fraction) {
  return Fixed(fraction * 100, 2) + "%";
}

std::string MoneyCell(double amount) {
  return Fixed(amount, 2);
}

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
