// Writing JSON, one member or item after the other.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillbox {

// Texts come in the code page and go out as UTF-8. The caller keeps the shape right: each Begin has
// its End, and inside an object every value follows its Name.
class JsonWriter {
 public:
  // Appends to `out`, which must outlive the writer.
  explicit JsonWriter(std::string& out) : out_(out) {}

  void BeginObject() { Open('{'); }
  void EndObject() { Close('}'); }
  void BeginArray() { Open('['); }
  void EndArray() { Close(']'); }

  void Name(std::string_view name);
  void Text(std::string_view text);
  void TextOrNull(const std::optional<std::string>& text);
  void Texts(std::span<const std::string> texts);
  void Truth(bool truth) { Raw(truth ? "true" : "false"); }
  void Null() { Raw("null"); }

  // The shortest digits that read back the same. `number` must be finite.
  void Number(double number);

  // A value that is JSON already.
  void Raw(std::string_view json);

 private:
  void Open(char bracket);
  void Close(char bracket);
  void BeforeValue();
  void Quoted(std::string_view text);

  std::string& out_;
  bool first_ = true;  // nothing stands yet in the innermost object or list, or a name was written
};

}  // namespace quillbox
