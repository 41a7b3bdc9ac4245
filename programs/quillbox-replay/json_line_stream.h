// A line of JSON as RapidJSON's reader takes it in.
#pragma once

#include <rapidjson/memorystream.h>

#include <cstddef>
#include <string_view>

namespace quillbox {

// The reader reckons with a number while it passes over it, and gives up at one that a double can't
// hold. We keep numbers as they stand in the line, so of each run of digits that doesn't begin with
// a zero the reader is shown the first alone: the form of the number stays, its size doesn't
// matter.
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
inline void SkipWhitespace(JsonLineStream& stream) {
  stream.SkipBlanks();
}

}  // namespace quillbox
