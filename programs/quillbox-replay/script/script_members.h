// The members of one step of a script, checked as they are read.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms.h"
#include "quillbox-replay/formats/json.h"
#include "text/code_page.h"

namespace quillbox {

// What is wrong with a script; thrown while it is read, never while it runs.
struct ScriptError {
  std::string What;  // one line, UTF-8
};

// `utf8` in quotation marks, and in one line whatever it holds.
std::string QuotedInError(std::string utf8);

// Each function reads the member `name` and throws ScriptError when its value is of the wrong kind;
// those without a default also when it is missing. Texts come as UTF-8 and are given in the code
// page.
class ScriptMembers {
 public:
  // `step` must be a JSON object and outlive this one.
  explicit ScriptMembers(const JsonValue& step);

  std::string Text(const char* name);
  std::optional<std::string> MaybeText(const char* name);
  bool Flag(const char* name, bool whenMissing);
  // Whether the member is there and is true or false.
  bool IsFlag(const char* name);
  std::uint64_t Number(const char* name, std::uint64_t whenMissing);

  // "400ms", "30s", "5m", "2h", "1d", or several in a row: "1h30m".
  std::chrono::milliseconds Duration(const char* name);
  std::optional<std::chrono::milliseconds> MaybeDuration(const char* name);

  // "2007-01-31T09:05:00".
  std::optional<std::chrono::local_seconds> MaybeTime(const char* name);

  // The value that belongs to the text; other texts are refused.
  template <typename Value>
  Value OneOf(const char* name, const std::vector<std::pair<const char*, Value>>& values) {
    const std::string text = Text(name);
    for (const auto& [known, value] : values) {
      if (text == known) return value;
    }
    throw ScriptError{QuotedInError(name) + " can't be " + QuotedInError(ToUtf8(text))};
  }

  struct Setting {
    std::string Section, Key, Value;
  };
  // An object of sections, each an object of keys and texts.
  std::vector<Setting> Settings(const char* name);

  // A member that nothing has asked for is a fault: it would be a slip of the pen.
  void RefuseOthers() const;

 private:
  const JsonValue* Find(const char* name);
  const JsonValue& Get(const char* name);

  const JsonValue& step_;
  std::set<std::string> known_;
};

// A form of the program as scripts name it.
struct ScriptForm {
  FormName Form;
  std::string Name;
};

// The member "form".
ScriptForm ReadForm(ScriptMembers& members);

}  // namespace quillbox
