#include "reports/report_data.h"

#include <chrono>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "evaluation/report_row.h"
#include "region/date_text.h"
#include "region/failure_rule.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::size_t kShortestReport = 10;
// The summaries and the end of the last day.
constexpr int kLineEndsBehindDays = 3;

// What NormalizeReportCell refuses is not offered to it: a throw for each line would cost more than
// all the rest.
constexpr std::size_t kShortestNormalized = 3;

// What is left when a web page stands in the place of the report.
std::string_view WithoutPageHead(std::string_view text) {
  constexpr std::string_view kBody = "<BODY";
  for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at + 1)) {
    if (EqualIgnoringCase(text.substr(at, kBody.size()), kBody)) return text.substr(at + 1);
  }
  return text;
}

// Without heading and summaries; nothing when no line is left. A text with fewer than three line
// feeds can't be cut and stays whole.
std::optional<std::string_view> DayLines(std::string_view text) {
  std::size_t end = text.size();
  for (int i = 0; i < kLineEndsBehindDays; ++i) {
    end = end == 0 ? text.npos : text.rfind('\n', end - 1);
    if (end == text.npos) return text;
  }
  const std::size_t headingEnd = text.find('\n');
  if (headingEnd == end) return std::nullopt;
  return text.substr(headingEnd + 1, end - headingEnd - 1);
}

// Nothing when the line lacks the cell; an empty line has no cells at all.
std::optional<std::string_view> CellOf(std::string_view line, std::size_t number) {
  if (line.empty()) return std::nullopt;
  for (; number > 0; --number) {
    const std::size_t tab = line.find('\t');
    if (tab == line.npos) return std::nullopt;
    line.remove_prefix(tab + 1);
  }
  return line.substr(0, line.find('\t'));
}

// "07" in the place of each "2007".
std::string WithShortYear(std::string date, int year) {
  const std::string whole = std::to_string(year);
  for (std::size_t at = 0; (at = date.find(whole, at)) != date.npos; at += whole.size() - 2) {
    date.erase(at, 2);
  }
  return date;
}

// "Tuesday<BR>1/2/07". Throws ConversionFailed, and adds nothing, when `cell` is no date.
void AppendDay(std::string& labels, std::string_view cell, const RegionalSettings& region,
               int currentYear) {
  const auto date = ToDate(cell, region, currentYear);
  labels += region.Weekdays[std::chrono::weekday(date).c_encoding()];
  labels += "<BR>";
  labels += WithShortYear(ShortDate(date, region), static_cast<int>(date.year()));
}

// The channel names in the order of their first appearance, as the text "^Red^Blue^". A name is in
// the list when "^name^" occurs there, so a name that holds the mark itself is in it when its parts
// stand there in a row, and brings all its parts.
class ChannelList {
 public:
  // The text that `name` lies in must outlive the list.
  void Add(std::string_view name) {
    if (!known_.insert(name).second) return;
    if (name.find(kMark) != name.npos && HoldsRun(name)) return;
    text_ += name;
    text_ += kMark;
    AddParts(name);
  }

  // "Red^Blue"
  std::string Names() const { return text_.size() > 1 ? text_.substr(1, text_.size() - 2) : ""; }

 private:
  static constexpr char kMark = '^';

  // A search costs as much as the text is long. Few names need it: of most, the first two parts
  // have never stood next to each other.
  bool HoldsRun(std::string_view name) const {
    const std::string_view firstTwo = name.substr(0, name.find(kMark, name.find(kMark) + 1));
    return pairs_.contains(std::string(firstTwo)) &&
           text_.find(kMark + std::string(name) + kMark) != text_.npos;
  }

  void AddParts(std::string_view name) {
    for (;;) {
      const std::size_t end = name.find(kMark);
      const std::string_view part = name.substr(0, end);
      known_.insert(part);
      pairs_.insert(std::string(lastPart_) + kMark + std::string(part));
      lastPart_ = part;
      if (end == name.npos) return;
      name.remove_prefix(end + 1);
    }
  }

  std::string text_ = "^";
  std::unordered_set<std::string_view> known_;  // names that are in the list, and all parts
  std::unordered_set<std::string> pairs_;       // of parts next to each other, "Red^Blue"
  std::string_view lastPart_;
};

class DataBuilder {
 public:
  DataBuilder(const ReportTitle& title, const RegionalSettings& region, int currentYear)
      : title_(title), region_(region), currentYear_(currentYear) {}

  void AddLine(std::string_view line) {
    const std::optional<std::string_view> date = CellOf(line, 0);
    if (title_.OfChannels()) {
      AddChannelLine(line, date);
    } else {
      AddLabel(date);
      if (!data_.Values.empty()) data_.Values += ':';
    }
    AddValue(CellOf(line, title_.Cell));
  }

  ReportData Finish() {
    data_.Channels = channels_.Names();
    return std::move(data_);
  }

 private:
  void AddChannelLine(std::string_view line, std::optional<std::string_view> date) {
    // A line without cells can't be compared, and a test that fails counts as true.
    if (!date || *date != lastDate_) {
      AddLabel(date);
      lastDate_ = date.value_or(lastDate_);
      valuesInGroup_ = 0;
    }
    if (valuesInGroup_ > 0) {
      data_.Values += ';';
    } else if (!data_.Values.empty()) {
      data_.Values += ':';
    }
    ++valuesInGroup_;
    if (const auto channel = CellOf(line, 1)) channels_.Add(*channel);
  }

  void AddLabel(std::optional<std::string_view> date) {
    if (!data_.Labels.empty()) data_.Labels += ',';
    if (date) Attempt([&] { AppendDay(data_.Labels, *date, region_, currentYear_); });
  }

  void AddValue(std::optional<std::string_view> cell) {
    if (!cell) return;
    if (!title_.Normalized) {
      data_.Values += *cell;
    } else if (cell->size() >= kShortestNormalized) {
      data_.Values += NormalizeReportCell(*cell);
    }
  }

  const ReportTitle& title_;
  const RegionalSettings& region_;
  int currentYear_;
  ReportData data_;
  std::string_view lastDate_;
  std::size_t valuesInGroup_ = 0;
  ChannelList channels_;
};

}  // namespace

std::optional<ReportData> BuildReportData(std::string text, const ReportTitle& title,
                                          const RegionalSettings& region, int currentYear) {
  std::erase(text, '"');
  const std::string_view report = WithoutPageHead(text);
  if (report.size() < kShortestReport) return std::nullopt;
  const std::optional<std::string_view> days = DayLines(report);
  if (!days) return std::nullopt;

  DataBuilder builder(title, region, currentYear);
  for (std::string_view rest = *days; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    builder.AddLine(rest.substr(0, end));
    if (end == rest.npos) break;
    rest.remove_prefix(end + 1);
    if (rest.empty()) builder.AddLine(rest);
  }
  return builder.Finish();
}

}  // namespace quillbox
