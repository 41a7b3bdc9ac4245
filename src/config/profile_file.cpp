#include "config/profile_file.h"

#include <algorithm>
#include <optional>

#include "config/atomic_write.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using namespace std::string_view_literals;

// What a line can't hold.
constexpr std::string_view kLineBreakers = "\r\n\0"sv;

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// Positions in a file's text: a line's own characters end at End, its line end at Next.
struct Line {
  std::size_t Begin = 0;
  std::size_t End = 0;
  std::size_t Next = 0;
};

Line LineAt(std::string_view text, std::size_t begin) {
  const auto found =
      std::find_if(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), IsLineEnd);
  const auto end = static_cast<std::size_t>(found - text.begin());
  if (end == text.size()) return {begin, end, end};
  return {begin, end, end + (text.substr(end, 2) == "\r\n" ? 2U : 1U)};
}

// The name in a section line.
std::optional<std::string_view> SectionName(std::string_view line) {
  line = Trimmed(line, kBlankAndTab);
  if (!line.starts_with('[')) return std::nullopt;
  const std::size_t end = line.find(']');
  if (end == std::string_view::npos) return std::nullopt;
  return line.substr(1, end - 1);
}

bool CanBeSection(std::string_view section) {
  return section.find(']') == std::string_view::npos &&
         section.find_first_of(kLineBreakers) == std::string_view::npos;
}

// `key` without blanks round it.
bool CanBeKey(std::string_view key) {
  return !key.empty() && !key.starts_with('[') && !key.starts_with(';') &&
         key.find('=') == std::string_view::npos &&
         key.find_first_of(kLineBreakers) == std::string_view::npos;
}

// The value when the line is that of `key`, which has no blanks round it.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const std::string_view found = Trimmed(line.substr(0, equals), kBlankAndTab);
  if (!CanBeKey(found) || !EqualIgnoringCase(found, key)) return std::nullopt;
  return line.substr(equals + 1);
}

// Where a key stands, or after which line it would go.
struct Place {
  std::optional<std::string_view> Value;
  Line KeyLine;  // if there is a value
  bool SectionFound = false;
  Line LastLine;  // the section's last one that isn't blank, if the section was found
};

// One pass that ends with the key or the first section of that name.
Place FindPlace(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  Line line;
  for (std::size_t at = 0; at < text.size(); at = line.Next) {
    line = LineAt(text, at);
    const std::string_view content = text.substr(line.Begin, line.End - line.Begin);
    if (const auto name = SectionName(content)) {
      if (place.SectionFound) return place;
      place.SectionFound = EqualIgnoringCase(*name, section);
      place.LastLine = line;
    } else if (place.SectionFound) {
      place.Value = ValueOf(content, key);
      place.KeyLine = line;
      if (place.Value) return place;
      if (!Trimmed(content, kBlankAndTab).empty()) place.LastLine = line;
    }
  }
  return place;
}

std::string LineEndOf(std::string_view text) {
  const Line first = LineAt(text, 0);
  return first.End == first.Next ? "\r\n"
                                 : std::string(text.substr(first.End, first.Next - first.End));
}

// Puts a line in at `position`, where a line ends or the text does.
void InsertLine(std::string& text, std::size_t position, const std::string& line,
                const std::string& lineEnd) {
  const bool behindOpenLine = position > 0 && !IsLineEnd(text[position - 1]);
  text.insert(position, (behindOpenLine ? lineEnd : "") + line + lineEnd);
}

}  // namespace

std::string ReadProfileValue(std::string_view text, std::string_view section,
                             std::string_view key) {
  return std::string(FindPlace(text, section, Trimmed(key, kBlankAndTab)).Value.value_or(""));
}

std::string_view ProfileSection(std::string_view text, std::string_view section) {
  std::optional<std::size_t> begin;
  Line line;
  for (std::size_t at = 0; at < text.size(); at = line.Next) {
    line = LineAt(text, at);
    const auto name = SectionName(text.substr(line.Begin, line.End - line.Begin));
    if (name && begin) return text.substr(*begin, at - *begin);
    if (name && EqualIgnoringCase(*name, section)) begin = at;
  }
  return begin ? text.substr(*begin) : std::string_view();
}

std::string WithProfileValue(std::string text, std::string_view section, std::string_view key,
                             std::string_view value) {
  key = Trimmed(key, kBlankAndTab);
  if (!CanBeSection(section) || !CanBeKey(key)) return text;

  const std::string line =
      UpperCase(key) + "=" + std::string(value.substr(0, value.find_first_of(kLineBreakers)));
  const std::string lineEnd = LineEndOf(text);
  const Place place = FindPlace(text, section, key);
  if (place.Value) {
    text.replace(place.KeyLine.Begin, place.KeyLine.End - place.KeyLine.Begin, line);
  } else if (place.SectionFound) {
    InsertLine(text, place.LastLine.Next, line, lineEnd);
  } else {
    InsertLine(text, text.size(), "[" + std::string(section) + "]" + lineEnd + line, lineEnd);
  }
  return text;
}

std::optional<std::string> ReadProfile(Files& files, const std::string& path) {
  if (files.Size(path).value_or(0) > kLargestProfile) return std::nullopt;
  return files.Read(path);
}

std::string IniRead(Files& files, std::string_view section, std::string_view key,
                    const std::string& path) {
  const std::optional<std::string> text = ReadProfile(files, path);
  return text ? ReadProfileValue(*text, section, key).substr(0, kLongestProfileValue) : "";
}

bool IniWrite(Files& files, std::span<const SettingChange> changes, const std::string& path) {
  const std::optional<std::string> old = ReadProfile(files, path);
  // What is there but can't be read must not be replaced by the changes alone.
  if (!old && files.Exists(path)) return false;

  std::string text = old.value_or("");
  for (const SettingChange& change : changes) {
    text = WithProfileValue(std::move(text), change.Section, change.Key, change.Value.value_or(""));
  }
  if (text == old.value_or("")) return true;
  return text.size() <= kLargestProfile && WriteAtomically(files, path, text);
}

}  // namespace quillbox
