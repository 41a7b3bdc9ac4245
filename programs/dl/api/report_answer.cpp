#include "api/report_answer.h"

#include <algorithm>
#include <tuple>

#include "api/json.h"
#include "api/report_query.h"

namespace quillbox {
namespace {

using std::chrono::sys_days;

// Places of the columns in a line of the answer.
struct Places {
  std::size_t Day, Channel, ChannelId, Count, Clicks, Ctr, Rpm, Earnings;
};

std::optional<sys_days> DayMember(const Json& answer, const char* name) {
  const Json* const date = Member(answer, name);
  if (date == nullptr) return std::nullopt;
  const auto year = NumberMember(*date, "year");
  const auto month = NumberMember(*date, "month");
  const auto day = NumberMember(*date, "day");
  const auto within = [](const auto& number, int most) {
    return number && *number >= 1 && *number <= most;
  };
  if (!within(year, 9999) || !within(month, 12) || !within(day, 31)) return std::nullopt;
  const std::chrono::year_month_day parts(std::chrono::year(static_cast<int>(*year)),
                                          std::chrono::month(static_cast<unsigned>(*month)),
                                          std::chrono::day(static_cast<unsigned>(*day)));
  // Through the text, so that the same years are taken everywhere.
  return parts.ok() ? ParseDay(DayText(parts)) : std::nullopt;
}

std::optional<DayRange> DaysMember(const Json& answer) {
  const auto first = DayMember(answer, "startDate");
  const auto last = DayMember(answer, "endDate");
  if (!first || !last || *last < *first) return std::nullopt;
  return DayRange{*first, *last};
}

std::optional<std::size_t> Place(const Json::array_t& headers, std::string_view name) {
  const auto found = std::ranges::find_if(
      headers, [&](const Json& header) { return TextMember(header, "name") == name; });
  if (found == headers.end()) return std::nullopt;
  return static_cast<std::size_t>(found - headers.begin());
}

std::optional<Places> PlacesOf(const Json::array_t& headers, const WantedReport& report) {
  const RateColumns rates = RateColumnsOf(report);
  Places places{};
  for (const auto& [place, name] :
       {std::pair{&places.Day, kDayColumn},
        {&places.Channel, report.ByChannel ? kChannelColumn : kDayColumn},
        {&places.ChannelId, report.ByChannel ? kChannelIdColumn : kDayColumn},
        {&places.Count, rates.Count},
        {&places.Clicks, kClicksColumn},
        {&places.Ctr, rates.Ctr},
        {&places.Rpm, rates.Rpm},
        {&places.Earnings, kEarningsColumn}}) {
    const auto found = Place(headers, name);
    if (!found) return std::nullopt;
    *place = *found;
  }
  return places;
}

// A cell without a value is empty.
std::optional<std::string> CellText(const Json& row, std::size_t place) {
  const Json::array_t* const cells = ArrayMember(row, "cells");
  if (cells == nullptr || place >= cells->size()) return std::nullopt;
  return TextMember((*cells)[place], "value");
}

bool ReadNumber(const Json& row, std::size_t place, double& number) {
  const auto text = CellText(row, place);
  if (!text) return false;
  number = 0;
  if (text->empty()) return true;
  const auto value = ParseNumber(*text);
  number = value.value_or(0);
  return value.has_value();
}

// Rates for none of a thing come as zero, or as what a division by zero gives.
bool ReadRate(const Json& row, std::size_t place, double count, double& rate) {
  const std::string text = CellText(row, place).value_or("");
  for (const std::string_view none : {"NaN", "Infinity", "-Infinity", "-"}) {
    if (text != none) continue;
    rate = 0;
    return count == 0;
  }
  return ReadNumber(row, place, rate);
}

std::optional<ReportFigures> ReadFigures(const Json& row, const Places& places) {
  ReportFigures figures;
  const bool read = ReadNumber(row, places.Count, figures.Count) &&
                    ReadNumber(row, places.Clicks, figures.Clicks) &&
                    ReadRate(row, places.Ctr, figures.Count, figures.Ctr) &&
                    ReadRate(row, places.Rpm, figures.Count, figures.Rpm) &&
                    ReadNumber(row, places.Earnings, figures.Earnings);
  return read ? std::optional(figures) : std::nullopt;
}

std::optional<ReportLine> ReadLine(const Json& row, const Places& places, bool byChannel) {
  const auto day = ParseDay(CellText(row, places.Day).value_or(""));
  const auto figures = ReadFigures(row, places);
  if (!day || !figures) return std::nullopt;
  if (!byChannel) return ReportLine{*day, {}, *figures};
  return ReportLine{
      *day,
      {CellText(row, places.Channel).value_or(""), CellText(row, places.ChannelId).value_or("")},
      *figures};
}

bool ReadLines(const Json::array_t& rows, const Places& places, bool byChannel,
               ReportAnswer& answer) {
  answer.Lines.reserve(rows.size());
  for (const Json& row : rows) {
    auto line = ReadLine(row, places, byChannel);
    if (!line || !answer.Days.Holds(line->Day)) return false;
    answer.Lines.push_back(std::move(*line));
  }
  const auto place = [](const ReportLine& line) { return std::tie(line.Day, line.Channel); };
  std::ranges::sort(answer.Lines, {}, place);
  return std::ranges::adjacent_find(answer.Lines, {}, place) == answer.Lines.end();
}

bool ReadSums(const Json& document, const Places& places, ReportAnswer& answer) {
  const Json* const totals = Member(document, "totals");
  const Json* const averages = Member(document, "averages");
  if (totals == nullptr) {
    for (const ReportLine& line : answer.Lines) AddFigures(answer.Totals, line.Figures);
  } else {
    const auto sum = ReadFigures(*totals, places);
    if (!sum && !answer.Lines.empty()) return false;
    answer.Totals = sum.value_or(ReportFigures{});
  }
  const auto average = averages == nullptr ? std::nullopt : ReadFigures(*averages, places);
  answer.Averages = average.value_or(ReportFigures{});
  return true;
}

std::vector<std::string> Warnings(const Json& document) {
  std::vector<std::string> texts;
  const Json::array_t* const warnings = ArrayMember(document, "warnings");
  if (warnings == nullptr) return texts;
  for (const Json& warning : *warnings) {
    if (warning.is_string()) texts.push_back(warning.get<std::string>());
  }
  return texts;
}

// Referrals are asked for no figures, so only the days are looked at.
bool ReadFiguresOf(const Json& document, const WantedReport& report, ReportAnswer& answer) {
  if (report.Product == WantedProduct::kReferrals) return true;
  static const Json::array_t kNone;
  const Json::array_t* const rows = ArrayMember(document, "rows");
  const Json::array_t* const headers = ArrayMember(document, "headers");
  const std::size_t count = rows == nullptr ? 0 : rows->size();
  const long long matched = NumberMember(document, "totalMatchedRows").value_or(0);
  if (count == 0 && matched > 0) return false;
  answer.Matched = std::max(count, static_cast<std::size_t>(std::max(matched, 0LL)));
  if (headers == nullptr) return count == 0;
  const auto places = PlacesOf(*headers, report);
  if (!places) return false;
  answer.Currency = TextMember((*headers)[places->Earnings], "currencyCode");
  return ReadLines(rows == nullptr ? kNone : *rows, *places, report.ByChannel, answer) &&
         ReadSums(document, *places, answer);
}

double Rate(double number, double of) {
  return of > 0 ? number / of : 0;
}

}  // namespace

void AddFigures(ReportFigures& sums, const ReportFigures& more) {
  sums.Count += more.Count;
  sums.Clicks += more.Clicks;
  sums.Earnings += more.Earnings;
  sums.Ctr = Rate(sums.Clicks, sums.Count);
  sums.Rpm = Rate(sums.Earnings * 1000, sums.Count);
}

std::optional<ReportAnswer> ReadReportAnswer(std::string_view json, const WantedReport& report) {
  const auto document = ParseObject(json, kReportJson);
  if (!document) return std::nullopt;
  const auto days = DaysMember(*document);
  if (!days) return std::nullopt;
  ReportAnswer answer;
  answer.Days = *days;
  answer.Warnings = Warnings(*document);
  if (!ReadFiguresOf(*document, report, answer)) return std::nullopt;
  return answer;
}

std::optional<DayRange> ReadDays(std::string_view json) {
  const auto document = ParseObject(json);
  return document ? DaysMember(*document) : std::nullopt;
}

}  // namespace quillbox
