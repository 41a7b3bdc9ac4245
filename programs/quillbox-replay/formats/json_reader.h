// Reading one line of JSON.
#pragma once

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

}  // namespace quillbox
