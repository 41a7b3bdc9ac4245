// Reading one line of JSON, and writing JSON, one member or item after the other.
#pragma once

#include <rapidjson/writer.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

struct JsonMember;

struct JsonValue {
  enum class Type { kNull, kBoolean, kNumber, kString, kArray, kObject };

  Type Kind = Type::kNull;
  std::string_view Source;       // as it stands in the line, which must outlive the value
  bool Truth = false;            // of a boolean
  std::string Text;              // of a string, in the code page
  bool OutsideCodePage = false;  // a string with a character that the code page lacks: no Text
  std::vector<JsonValue> Items;
  std::vector<JsonMember> Members;

  // The member of exactly this name, or null.
  const JsonValue* Find(std::string_view name) const;
};

struct JsonMember {
  std::string Name;  // code page
  JsonValue Value;
};

inline const JsonValue* JsonValue::Find(std::string_view name) const {
  for (const JsonMember& member : Members) {
    if (member.Name == name) return &member.Value;
  }
  return nullptr;
}

// Objects and lists may stand in each other this deep.
inline constexpr int kDeepestJson = 64;

struct JsonLine {
  std::string NotJson;  // what is wrong with a line that isn't JSON; empty for one that is
  std::string Fault;    // JSON, but with something that no request may hold; empty if all is well
  JsonValue Value;      // meaningful unless NotJson
};

// `line` (UTF-8, without its line feed) must outlive the result. What counts as a fault: a
// character that the code page lacks, a member that an object holds twice. The member "id" of the
// outermost object may hold these. The first half of a surrogate pair without the second is not
// JSON; a second half alone counts as a character that the code page lacks.
JsonLine ReadJsonLine(std::string_view line);

// Writes JSON. Texts come in the code page and go out as UTF-8. The caller keeps the shape right:
// each Begin has its End, and inside an object every value follows its Name.
class JsonWriter {
 public:
  // Appends to `out`, which must outlive the writer.
  explicit JsonWriter(std::string& out) : output_{out}, writer_(output_) {}

  void BeginObject() { writer_.StartObject(); }
  void EndObject() { writer_.EndObject(); }
  void BeginArray() { writer_.StartArray(); }
  void EndArray() { writer_.EndArray(); }

  void Name(std::string_view name) { Text(name); }
  void Text(std::string_view text);
  void TextOrNull(const std::optional<std::string>& text);
  void Texts(std::span<const std::string> texts);
  void Truth(bool truth) { writer_.Bool(truth); }
  void Null() { writer_.Null(); }

  // The shortest digits that read back the same. `number` must be finite.
  void Number(double number);

  // A value that is JSON already.
  void Raw(std::string_view json);

 private:
  // Where the library puts its characters.
  struct Output {
    using Ch = char;
    void Put(char c) { Out += c; }
    void Flush() {}
    std::string& Out;
  };

  Output output_;
  rapidjson::Writer<Output> writer_;
};

}  // namespace quillbox
