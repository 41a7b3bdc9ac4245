#include "quillbox-replay/json_reader.h"

#include <algorithm>
#include <array>
#include <optional>

#include "quillbox-replay/utf8_character.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Characters that stand for themselves inside a string and need one byte.
constexpr std::array<bool, 256> kPlain = [] {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0x20; i < 0x80; ++i) plain[i] = i != '"' && i != '\\';
  return plain;
}();

bool HasEqualNames(const std::vector<JsonMember>& members) {
  std::vector<std::string_view> names;
  names.reserve(members.size());
  for (const JsonMember& member : members) names.push_back(member.Name);
  std::sort(names.begin(), names.end());
  return std::adjacent_find(names.begin(), names.end()) != names.end();
}

// Each taker eats from the front. False means that the line is not JSON; the reason is kept.
class Reader {
 public:
  explicit Reader(std::string_view line) : line_(line), rest_(line) {}

  JsonLine Read() {
    JsonLine result;
    SkipBlanks();
    if (TakeValue(result.Value, 0)) {
      SkipBlanks();
      if (!rest_.empty()) Fail("something follows the value");
    }
    result.NotJson = std::move(notJson_);
    result.Fault = std::move(fault_);
    return result;
  }

 private:
  bool TakeValue(JsonValue& value, int depth) {
    const std::string_view before = rest_;
    const bool taken = TakeAnyValue(value, depth);
    value.Source = before.substr(0, before.size() - rest_.size());
    return taken;
  }

  bool TakeAnyValue(JsonValue& value, int depth) {
    switch (Front()) {
      case '{':
        return TakeObject(value, depth);
      case '[':
        return TakeArray(value, depth);
      case '"':
        value.Kind = JsonValue::Type::kString;
        return TakeString(value.Text);
      case 't':
        value.Truth = true;
        return TakeWord("true", value, JsonValue::Type::kBoolean);
      case 'f':
        return TakeWord("false", value, JsonValue::Type::kBoolean);
      case 'n':
        return TakeWord("null", value, JsonValue::Type::kNull);
      default:
        value.Kind = JsonValue::Type::kNumber;
        return TakeNumber();
    }
  }

  bool TakeObject(JsonValue& object, int depth) {
    object.Kind = JsonValue::Type::kObject;
    if (depth == kDeepestJson) return Fail("values stand too deep in each other");
    rest_.remove_prefix(1);
    SkipBlanks();
    if (TakeChar('}')) return true;
    do {
      SkipBlanks();
      if (!TakeMember(object.Members.emplace_back(), depth)) return false;
      SkipBlanks();
    } while (TakeChar(','));
    if (!TakeChar('}')) return Fail("expected \",\" or \"}\"");
    if (!insideId_ && HasEqualNames(object.Members)) SetFault("an object holds a member twice");
    return true;
  }

  bool TakeMember(JsonMember& member, int depth) {
    if (Front() != '"') return Fail("expected a member's name in quotation marks");
    if (!TakeString(member.Name)) return false;
    SkipBlanks();
    if (!TakeChar(':')) return Fail("expected \":\"");
    SkipBlanks();
    const bool id = depth == 0 && member.Name == "id";
    if (id) insideId_ = true;
    const bool taken = TakeValue(member.Value, depth + 1);
    if (id) insideId_ = false;
    return taken;
  }

  bool TakeArray(JsonValue& array, int depth) {
    array.Kind = JsonValue::Type::kArray;
    if (depth == kDeepestJson) return Fail("values stand too deep in each other");
    rest_.remove_prefix(1);
    SkipBlanks();
    if (TakeChar(']')) return true;
    do {
      SkipBlanks();
      if (!TakeValue(array.Items.emplace_back(), depth + 1)) return false;
      SkipBlanks();
    } while (TakeChar(','));
    return TakeChar(']') || Fail("expected \",\" or \"]\"");
  }

  bool TakeString(std::string& text) {
    rest_.remove_prefix(1);
    for (;;) {
      TakePlain(text);
      if (rest_.empty()) return Fail("a string has no end");
      if (TakeChar('"')) return true;
      if (TakeChar('\\')) {
        if (!TakeEscape(text)) return false;
      } else if (static_cast<unsigned char>(Front()) < 0x20) {
        return Fail("a control character stands bare in a string");
      } else if (const std::optional<char32_t> character = TakeUtf8Character(rest_)) {
        Put(text, *character);
      } else {
        return Fail("not UTF-8");
      }
    }
  }

  void TakePlain(std::string& text) {
    std::size_t run = 0;
    while (run < rest_.size() && kPlain[static_cast<unsigned char>(rest_[run])]) ++run;
    text.append(rest_.substr(0, run));
    rest_.remove_prefix(run);
  }

  bool TakeEscape(std::string& text) {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
    if (TakeChar('u')) return TakeUnicodeEscape(text);
    const std::size_t found = rest_.empty() ? kLetters.npos : kLetters.find(Front());
    if (found == kLetters.npos) return Fail("unknown escape in a string");
    text += kMeanings[found];
    rest_.remove_prefix(1);
    return true;
  }

  bool TakeUnicodeEscape(std::string& text) {
    char32_t character = 0;
    if (!TakeHex(character)) return false;
    char32_t low = 0;
    while (character >= 0xD800 && character <= 0xDBFF && rest_.starts_with("\\u")) {
      rest_.remove_prefix(2);
      if (!TakeHex(low)) return false;
      if (low >= 0xDC00 && low <= 0xDFFF) {
        character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
      } else {
        Put(text, character);  // half a pair, and what follows stands by itself
        character = low;
      }
    }
    Put(text, character);
    return true;
  }

  bool TakeHex(char32_t& number) {
    number = 0;
    for (int i = 0; i < 4; ++i) {
      constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
      const std::size_t digit = rest_.empty() ? kDigits.npos : kDigits.find(Front());
      if (digit == kDigits.npos) return Fail("expected four hexadecimal digits");
      number = number * 16 + static_cast<char32_t>(digit % 16);
      rest_.remove_prefix(1);
    }
    return true;
  }

  void Put(std::string& text, char32_t character) {
    if (const std::optional<unsigned char> code = FromCodePoint(character)) {
      text += static_cast<char>(*code);
    } else if (!insideId_) {
      SetFault("a text holds a character that windows-1252 lacks");
    }
  }

  bool TakeNumber() {
    TakeChar('-');
    const bool whole = TakeChar('0') || TakeDigits();
    if (!whole) return Fail("expected a value");
    if (TakeChar('.') && !TakeDigits()) return Fail("expected a digit behind the point");
    if (TakeChar('e') || TakeChar('E')) {
      if (!TakeChar('+')) TakeChar('-');
      if (!TakeDigits()) return Fail("expected a digit in the exponent");
    }
    return true;
  }

  bool TakeDigits() {
    const std::size_t before = rest_.size();
    while (IsDigit(Front())) rest_.remove_prefix(1);
    return rest_.size() != before;
  }

  bool TakeWord(std::string_view word, JsonValue& value, JsonValue::Type kind) {
    value.Kind = kind;
    if (!rest_.starts_with(word)) return Fail("expected a value");
    rest_.remove_prefix(word.size());
    return true;
  }

  bool TakeChar(char wanted) {
    if (rest_.empty() || rest_.front() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // A NUL at the end of the line; one inside it is no beginning of anything either.
  char Front() const { return rest_.empty() ? '\0' : rest_.front(); }

  void SkipBlanks() {
    while (Front() == ' ' || Front() == '\t' || Front() == '\r' || Front() == '\n') {
      rest_.remove_prefix(1);
    }
  }

  bool Fail(std::string_view reason) {
    const std::size_t at = line_.size() - rest_.size() + 1;
    notJson_ = "not JSON: " + std::string(reason) + " at byte " + std::to_string(at);
    return false;
  }

  void SetFault(std::string_view fault) {
    if (fault_.empty()) fault_ = fault;
  }

  std::string_view line_;
  std::string_view rest_;
  bool insideId_ = false;
  std::string notJson_;
  std::string fault_;
};

}  // namespace

JsonLine ReadJsonLine(std::string_view line) {
  return Reader(line).Read();
}

}  // namespace quillbox
