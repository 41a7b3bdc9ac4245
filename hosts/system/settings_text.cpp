#include "system/settings_text.h"

#include <optional>

#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::string_view kHex = "0123456789ABCDEF";
constexpr std::string_view kWithMeaning = "%=[]#;";
constexpr std::string_view kNotes = "#;";

bool IsPrintable(char c) {
  return c >= ' ' && c <= '~';
}

void AppendEncoded(std::string& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool isOuterBlank = c == ' ' && (i == 0 || i + 1 == text.size());
    if (IsPrintable(c) && !isOuterBlank && kWithMeaning.find(c) == std::string_view::npos) {
      out += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    out += '%';
    out += kHex[code >> 4];
    out += kHex[code & 15];
  }
}

// Its value; nothing for what is no digit.
std::optional<int> HexDigit(char c) {
  const std::size_t value = kHex.find(UpperCase(c));
  if (value == std::string_view::npos) return std::nullopt;
  return static_cast<int>(value);
}

// Nothing for what AppendEncoded can't have written.
std::optional<std::string> Decoded(std::string_view stored) {
  stored = Trimmed(stored, kBlankAndTab);
  std::string text;
  text.reserve(stored.size());
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (!IsPrintable(stored[i])) return std::nullopt;
    if (stored[i] != '%') {
      text += stored[i];
      continue;
    }
    if (stored.size() - i < 3) return std::nullopt;
    const auto high = HexDigit(stored[i + 1]), low = HexDigit(stored[i + 2]);
    if (!high || !low) return std::nullopt;
    text += static_cast<char>(*high * 16 + *low);
    i += 2;
  }
  return text;
}

std::optional<std::string> SectionName(std::string_view line) {
  if (!line.ends_with(']')) return std::nullopt;
  return Decoded(line.substr(1, line.size() - 2));
}

struct Setting {
  std::string Key, Value;
};

std::optional<Setting> SettingIn(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || kNotes.find(line.front()) != std::string_view::npos) {
    return std::nullopt;
  }
  auto key = Decoded(line.substr(0, equals)), value = Decoded(line.substr(equals + 1));
  if (!key || !value) return std::nullopt;
  return Setting{std::move(*key), std::move(*value)};
}

void AppendLines(std::string& out, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    out += line;
    out += '\n';
  }
}

}  // namespace

SettingsText::SettingsText(std::string_view text) {
  Section* section = nullptr;
  std::vector<std::string>* others = &head_;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = Trimmed(text.substr(0, end), " \t\r");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty()) continue;
    if (line.starts_with('[')) {
      const auto name = SectionName(line);
      section = name ? &sections_.try_emplace(*name).first->second : nullptr;
      others = name ? &section->Others : &tail_;
      if (name) continue;
    }
    auto setting = section == nullptr ? std::nullopt : SettingIn(line);
    if (!setting) {
      others->emplace_back(line);
      continue;
    }
    // We write in order: most go to the end.
    section->Values.insert_or_assign(section->Values.end(), std::move(setting->Key),
                                     std::move(setting->Value));
  }
}

std::string SettingsText::Text() const {
  std::string text;
  AppendLines(text, head_);
  for (const auto& [name, section] : sections_) {
    text += '[';
    AppendEncoded(text, name);
    text += "]\n";
    AppendLines(text, section.Others);
    for (const auto& [key, value] : section.Values) {
      AppendEncoded(text, key);
      text += '=';
      AppendEncoded(text, value);
      text += '\n';
    }
  }
  AppendLines(text, tail_);
  return text;
}

std::string_view SettingsText::Value(std::string_view section, std::string_view key) const {
  const auto found = sections_.find(section);
  if (found == sections_.end()) return {};
  const auto setting = found->second.Values.find(key);
  return setting == found->second.Values.end() ? std::string_view() : setting->second;
}

bool SettingsText::Apply(const SettingChange& change) {
  if (!change.Value) {
    const auto found = sections_.find(change.Section);
    if (found == sections_.end() || found->second.Values.erase(change.Key) == 0) return false;
    if (found->second.Values.empty() && found->second.Others.empty()) sections_.erase(found);
    return true;
  }
  const auto [setting, isNew] =
      sections_[change.Section].Values.try_emplace(change.Key, *change.Value);
  if (!isNew && setting->second == *change.Value) return false;
  setting->second = *change.Value;
  return true;
}

}  // namespace quillbox
