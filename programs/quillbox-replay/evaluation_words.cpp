#include "quillbox-replay/evaluation_words.h"

#include <algorithm>

#include "quillbox-replay/formats/iso_time.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::string_view kFieldNames[] = {"Last updated",
                                            "Report date",
                                            "Impressions",
                                            "Clicks",
                                            "CTR",
                                            "eCPM",
                                            "Earnings",
                                            "Predicted earnings",
                                            "Month impressions",
                                            "Month clicks",
                                            "Month CTR",
                                            "Month eCPM",
                                            "Month earnings"};
static_assert(std::size(kFieldNames) == stats_field::kCount);

struct FigureName {
  Figure Which;
  std::string_view Name;
};
constexpr FigureName kFigureNames[] = {{Figure::kImpressions, "impressions"},
                                       {Figure::kClicks, "clicks"},
                                       {Figure::kRate, "clickthrough rate"},
                                       {Figure::kCpm, "effective CPM"},
                                       {Figure::kEarnings, "earnings"}};

// In columns: what it is, and what it holds.
std::string Line(std::string_view name, std::string_view text) {
  constexpr std::size_t kColumn = 22;
  std::string line = "  " + std::string(name);
  line.append(line.size() < kColumn ? kColumn - line.size() : 2, ' ');
  line += text;
  return line + "\n";
}

std::string OrEmpty(const std::string& text) {
  return text.empty() ? "(empty)" : text;
}

std::string Lines(const std::string& text) {
  if (text.empty()) return "  (empty)\n";
  std::string lines;
  for (const std::string& line : SplitText(text, "\r\n")) lines += "  " + line + "\n";
  return lines;
}

std::string TellReports(const EvaluationStory& story) {
  std::string words =
      "Reports that DataToDownload \"" + story.Evaluation.Input.DataToDownload + "\" selects\n";
  if (story.Reports.empty()) words += "  none\n";
  for (const ReportFound& report : story.Reports) {
    words += Line(report.Name, report.Read ? std::to_string(report.Size) + " bytes" : "not there");
  }
  return words;
}

std::string TellHistory(const EvaluationDecision& decision) {
  std::string words = "History of daily impressions, newest first\n  ";
  if (decision.History.empty()) return words + "(empty)\n";
  const std::vector<std::string> entries = SplitText(decision.History, kListSeparator);
  return words + JoinText(entries, ", ") + "\n";
}

std::string TellRecord(const EvaluationStory& story) {
  const Cells before = StoredFields(story.Evaluation.Input.StoredStats);
  const Cells after = StoredFields(StoredRecord(story.Evaluation.Decision.Stats));
  std::string words = story.Evaluation.Decision.GatePassed
                          ? "Record, to be stored\n"
                          : "Record, not to be stored: the date isn't new, and neither impressions "
                            "nor clicks rose\n";
  for (std::size_t field = 0; field < stats_field::kCount; ++field) {
    std::string text = OrEmpty(after.At(field));
    const bool differs = field < before.Count() && before.At(field) != after.At(field);
    if (differs) text += "  (before: " + OrEmpty(before.At(field)) + ")";
    words += Line(kFieldNames[field], text);
  }
  return words;
}

std::string TellChanges(const EvaluationDecision& decision) {
  std::vector<std::string> names;
  for (const FigureName& figure : kFigureNames) {
    if (decision.Changes.Has(figure.Which)) names.emplace_back(figure.Name);
  }
  return "Changes\n  " + (names.empty() ? "none" : JoinText(names, ", ")) + "\n";
}

std::string TellEffects(const EvaluationEffects& effects) {
  std::string words = "Tooltip\n";
  words += effects.Tooltip ? Lines(*effects.Tooltip) : "  left as it is\n";
  words += "Balloon\n";
  words += effects.Balloon ? Lines(*effects.Balloon) : "  none\n";
  words += "Sounds, of which the first to start is heard\n";
  if (effects.Sounds.empty()) words += "  none\n";
  for (const std::string& file : effects.Sounds) words += "  " + file + "\n";
  return words;
}

// A saved page may hold anything; a terminal must not obey it.
char Printable(char c) {
  const char32_t point = ToCodePoint(static_cast<unsigned char>(c));
  const bool isControl = (point < 0x20 && c != '\n') || (point >= 0x7F && point < 0xA0);
  return isControl ? '?' : c;
}

}  // namespace

std::string TellEvaluation(const EvaluationStory& story) {
  std::string words = "Account \"" + story.Account + "\" at " +
                      DateAndTimeArgument(story.Evaluation.Input.Now) + ", region " + story.Region +
                      "\n";
  if (!story.AccountListed) words += "The settings list no account of this name.\n";
  words += "\n" + TellReports(story);
  words += "\n" + TellHistory(story.Evaluation.Decision);
  words += "\n" + TellRecord(story);
  words += "\n" + TellChanges(story.Evaluation.Decision);
  words += "\n" + TellEffects(story.Evaluation.Effects);
  std::transform(words.begin(), words.end(), words.begin(), Printable);
  return ToUtf8(words);
}

}  // namespace quillbox
