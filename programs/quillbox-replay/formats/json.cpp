#include "quillbox-replay/formats/json.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "text/code_page.h"

namespace quillbox {
namespace {

// A line as RapidJSON's reader takes it in. The reader reckons with a number while it passes over
// it, and gives up at one that a double can't hold. We keep numbers as they stand in the line, so
// of each run of digits that doesn't begin with a zero the reader is shown the first alone: the
// form of the number stays, its size doesn't matter.
class JsonLineStream : public rapidjson::MemoryStream {
 public:
  // `line` must hold no NUL, by which the reader knows the end.
  explicit JsonLineStream(std::string_view line) : MemoryStream(line.data(), line.size()) {}

  char Take() {
    const char taken = MemoryStream::Take();
    if (!inText_ && taken >= '1' && taken <= '9') {
      while (Peek() >= '0' && Peek() <= '9') MemoryStream::Take();
    }
    return taken;
  }

  // To the next token. The reader asks for this before each.
  void SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t' || Peek() == '\r' || Peek() == '\n') Take();
    token_ = Tell();
    inText_ = Peek() == '"';
  }

  // Where the token begins that is being read.
  std::size_t Token() const { return token_; }

 private:
  std::size_t token_ = 0;
  bool inText_ = false;
};

// The reader finds this one in place of its own.
void SkipWhitespace(JsonLineStream& stream) {
  stream.SkipBlanks();
}

bool HasEqualNames(const std::vector<JsonMember>& members) {
  std::vector<std::string_view> names;
  names.reserve(members.size());
  for (const JsonMember& member : members) names.push_back(member.Name);
  std::sort(names.begin(), names.end());
  return std::adjacent_find(names.begin(), names.end()) != names.end();
}

// Makes a value of what the reader reports; false ends the reading.
class ValueBuilder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, ValueBuilder> {
 public:
  ValueBuilder(std::string_view line, const JsonLineStream& stream, JsonLine& result)
      : line_(line), stream_(stream), result_(result) {}

  bool Null() {
    Add(JsonValue::Type::kNull);
    return true;
  }
  bool RawNumber(const char*, rapidjson::SizeType, bool) {
    Add(JsonValue::Type::kNumber);
    return true;
  }
  bool Bool(bool truth) {
    Add(JsonValue::Type::kBoolean).Truth = truth;
    return true;
  }
  bool String(const char* text, rapidjson::SizeType length, bool) {
    std::optional<std::string> converted = InCodePage({text, length});
    JsonValue& value = Add(JsonValue::Type::kString);
    value.OutsideCodePage = !converted;
    value.Text = std::move(converted).value_or("");
    return true;
  }

  bool StartObject() { return Open(JsonValue::Type::kObject); }
  bool Key(const char* name, rapidjson::SizeType length, bool) {
    std::vector<JsonMember>& members = open_.back()->Members;
    members.emplace_back().Name = InCodePage({name, length}).value_or("");
    if (open_.size() == 1) insideId_ = members.back().Name == "id";
    return true;
  }
  bool EndObject(rapidjson::SizeType) {
    if (open_.size() == 1) insideId_ = false;
    if (HasEqualNames(open_.back()->Members)) SetFault("an object holds a member twice");
    return Close();
  }

  bool StartArray() { return Open(JsonValue::Type::kArray); }
  bool EndArray(rapidjson::SizeType) { return Close(); }

 private:
  JsonValue& Add(JsonValue::Type kind) {
    JsonValue& value = Place();
    value.Kind = kind;
    value.Source = line_.substr(stream_.Token(), stream_.Tell() - stream_.Token());
    return value;
  }

  // Valid until the value around it gets another.
  JsonValue& Place() {
    if (open_.empty()) return result_.Value;
    JsonValue& around = *open_.back();
    return around.Kind == JsonValue::Type::kObject ? around.Members.back().Value
                                                   : around.Items.emplace_back();
  }

  bool Open(JsonValue::Type kind) {
    if (open_.size() == kDeepestJson) return false;
    open_.push_back(&Add(kind));
    return true;
  }

  bool Close() {
    std::string_view& source = open_.back()->Source;
    const auto begin = static_cast<std::size_t>(source.data() - line_.data());
    source = line_.substr(begin, stream_.Tell() + 1 - begin);  // the bracket isn't taken yet
    open_.pop_back();
    return true;
  }

  std::optional<std::string> InCodePage(std::string_view utf8) {
    std::optional<std::string> text = FromUtf8(utf8);
    if (!text) SetFault("a text holds a character that windows-1252 lacks");
    return text;
  }

  void SetFault(std::string_view fault) {
    if (!insideId_ && result_.Fault.empty()) result_.Fault = fault;
  }

  std::string_view line_;
  const JsonLineStream& stream_;
  JsonLine& result_;
  std::vector<JsonValue*> open_;  // from the outermost to the innermost
  bool insideId_ = false;
};

std::string NotJson(std::string_view reason, std::size_t offset) {
  return "not JSON at byte " + std::to_string(offset + 1) + ": " + std::string(reason);
}

}  // namespace

JsonLine ReadJsonLine(std::string_view line) {
  JsonLine result;
  if (const std::size_t nul = line.find('\0'); nul != line.npos) {
    result.NotJson = NotJson("A NUL stands in the line.", nul);
    return result;
  }
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag |
                              rapidjson::kParseNumbersAsStringsFlag |
                              rapidjson::kParseValidateEncodingFlag;
  JsonLineStream stream(line);
  ValueBuilder builder(line, stream, result);
  const rapidjson::ParseResult parsed = rapidjson::Reader().Parse<kFlags>(stream, builder);
  if (parsed.Code() == rapidjson::kParseErrorTermination) {
    result.NotJson = NotJson("Values stand too deep in each other.", parsed.Offset());
  } else if (parsed.IsError()) {
    result.NotJson = NotJson(rapidjson::GetParseError_En(parsed.Code()), parsed.Offset());
  }
  return result;
}

void JsonWriter::Text(std::string_view text) {
  const std::string utf8 = ToUtf8(text);
  writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
}

void JsonWriter::TextOrNull(const std::optional<std::string>& text) {
  if (text) {
    Text(*text);
  } else {
    Null();
  }
}

void JsonWriter::Texts(std::span<const std::string> texts) {
  BeginArray();
  for (const std::string& text : texts) Text(text);
  EndArray();
}

void JsonWriter::Number(double number) {
  // Plain digits where people would write them so; beyond that an exponent is shorter.
  const double size = std::abs(number);
  const bool plain = size == 0 || (size >= 1e-6 && size < 1e15);
  std::array<char, 64> digits{};
  const auto [end, error] =
      plain ? std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed)
            : std::to_chars(digits.begin(), digits.end(), number);
  Raw(std::string_view(digits.begin(), end));
}

void JsonWriter::Raw(std::string_view json) {
  writer_.RawValue(json.data(), json.size(), rapidjson::kNullType);
}

}  // namespace quillbox
