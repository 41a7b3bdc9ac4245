// A JSON value as a request holds it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

struct JsonMember;

struct JsonValue {
  enum class Type { kNull, kBoolean, kNumber, kString, kArray, kObject };

  Type Kind = Type::kNull;
  std::string_view Source;  // as it stands in the line, which must outlive the value
  bool Truth = false;       // of a boolean
  std::string Text;         // of a string, in the code page
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

}  // namespace quillbox
