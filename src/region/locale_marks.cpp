#include "region/locale_marks.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr char16_t kNoBreakBlank = 0x00A0;

struct StandIn {
  char16_t Foreign;
  char16_t Ours;
};
constexpr StandIn kStandIns[] = {
    {0x2000, kNoBreakBlank}, {0x2001, kNoBreakBlank}, {0x2002, kNoBreakBlank},
    {0x2003, kNoBreakBlank}, {0x2004, kNoBreakBlank}, {0x2005, kNoBreakBlank},
    {0x2006, kNoBreakBlank}, {0x2007, kNoBreakBlank}, {0x2008, kNoBreakBlank},
    {0x2009, kNoBreakBlank}, {0x200A, kNoBreakBlank}, {0x202F, kNoBreakBlank},
    {0x2010, u'-'},          {0x2011, u'-'},          {0x2212, u'-'},
    {0x066B, u'.'},          {0x066C, u','},          {0x060C, u','},
    {0xFF0C, u','},          {0xFF0E, u'.'},          {0x2044, u'/'},
};

bool IsDirectionMark(char16_t c) {
  return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

const StandIn* StandInFor(char16_t c) {
  const auto* const found = std::find_if(std::begin(kStandIns), std::end(kStandIns),
                                         [c](const StandIn& s) { return s.Foreign == c; });
  return found == std::end(kStandIns) ? nullptr : found;
}

// Of any script, roughly: what is no mark.
bool IsLetter(char16_t c) {
  if (c < 0x80) return IsAsciiCapital(static_cast<char>(c)) || IsAsciiSmall(static_cast<char>(c));
  const bool isPunctuation = c < 0x00C0 || (c >= 0x2000 && c < 0x2E80);
  return !isPunctuation && !IsDirectionMark(c) && StandInFor(c) == nullptr;
}

// A format cut into runs of one letter and single other characters; quoted text is one literal.
struct FormatPart {
  char16_t Letter = 0;  // 0 for a literal
  std::size_t Count = 0;
  std::u16string Literal;
};

std::vector<FormatPart> PartsOf(std::u16string_view format) {
  std::vector<FormatPart> parts;
  bool quoted = false;
  for (const char16_t c : format) {
    if (c == u'\'') {
      quoted = !quoted;
    } else if (!quoted && IsLetter(c)) {
      if (parts.empty() || parts.back().Letter != c) parts.push_back({c, 0, {}});
      ++parts.back().Count;
    } else {
      if (parts.empty() || parts.back().Letter != 0) parts.push_back({});
      parts.back().Literal += c;
    }
  }
  return parts;
}

// Of a literal, what the code page has and nobody takes for a part of the date.
std::string DateLiteral(std::u16string_view literal) {
  std::string text;
  for (const char16_t c : literal) {
    if (!IsLetter(c)) text += WithStandIns({&c, 1}).value_or("");
  }
  return text;
}

std::string PartOfOrder(const FormatPart& part) {
  const std::size_t count = std::clamp<std::size_t>(part.Count, 1, 2);
  if (part.Letter == u'd') return part.Count <= 2 ? std::string(count, 'd') : "";
  if (part.Letter == u'M' || part.Letter == u'L') return std::string(count, 'M');
  if (part.Letter == u'y') return "yyyy";
  return "";
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" ,");
  const auto last = text.find_last_not_of(" ,");
  return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

}  // namespace

std::optional<std::string> WithStandIns(std::u16string_view text) {
  std::string plain;
  for (const char16_t c : text) {
    if (IsDirectionMark(c)) continue;
    const StandIn* const standIn = StandInFor(c);
    const auto code = FromCodePoint(standIn == nullptr ? c : standIn->Ours);
    if (!code) return std::nullopt;
    plain += static_cast<char>(*code);
  }
  return plain;
}

std::string ShortDateFormat(std::u16string_view format) {
  std::string result;
  for (const FormatPart& part : PartsOf(format)) {
    result += part.Letter == 0 ? DateLiteral(part.Literal) : PartOfOrder(part);
  }
  for (const char letter : {'d', 'M', 'y'}) {
    if (result.find(letter) == std::string::npos) return "yyyy-MM-dd";
  }
  return Trimmed(result);
}

std::string TimeSeparatorIn(std::u16string_view format) {
  bool afterHour = false;
  for (const FormatPart& part : PartsOf(format)) {
    if (part.Letter == u'h' || part.Letter == u'H') {
      afterHour = true;
    } else if (afterHour && part.Letter == 0) {
      return WithStandIns(part.Literal).value_or(":");
    } else {
      afterHour = false;
    }
  }
  return ":";
}

}  // namespace quillbox
