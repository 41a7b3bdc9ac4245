// Writing JSON, one member or item after the other.
#pragma once

#include <rapidjson/writer.h>

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
