// Any settings file, any change to it: what was written reads back, and nothing else changes.
#include "config/profile_file.h"
#include "fuzz/fuzz_input.h"
#include "text/code_page.h"

namespace {

using namespace quillbox;
using namespace std::string_view_literals;

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The contract of WithProfileValue, told apart from its code.
bool LineCanCarry(std::string_view section, std::string_view key) {
  key = Trimmed(key);
  return section.find_first_of("]\r\n\0"sv) == std::string_view::npos && !key.empty() &&
         key.find_first_of("=\r\n\0"sv) == std::string_view::npos && key[0] != '[' && key[0] != ';';
}

// How much of the two texts is alike at their ends, without the parts that are alike at their
// heads.
std::size_t CommonTail(std::string_view a, std::string_view b, std::size_t head) {
  std::size_t tail = 0;
  while (tail < a.size() - head && tail < b.size() - head &&
         a[a.size() - 1 - tail] == b[b.size() - 1 - tail]) {
    ++tail;
  }
  return tail;
}

// All but one line, or one place between two lines, keeps its bytes.
void RequireOneChange(std::string_view before, std::string_view after) {
  std::size_t head = 0;
  while (head < before.size() && head < after.size() && before[head] == after[head]) ++head;
  const std::size_t tail = CommonTail(before, after, head);
  const std::string_view gone = before.substr(head, before.size() - head - tail);
  Require(gone.find_first_of("\r\n") == std::string_view::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view in = TextOf(data, size);
  constexpr char kMark = '\x1F';
  const std::string section = TakeText(in, kMark), key = TakeText(in, kMark);
  const std::string value = TakeText(in, kMark);
  const std::string otherSection = TakeText(in, kMark), otherKey = TakeText(in, kMark);
  const std::string before(in);

  const std::string other = ReadProfileValue(before, otherSection, otherKey);
  const std::string after = WithProfileValue(before, section, key, value);
  if (!LineCanCarry(section, key)) {
    Require(after == before);
    return 0;
  }
  Require(ReadProfileValue(after, section, key) ==
          value.substr(0, value.find_first_of("\r\n\0"sv)));
  Require(WithProfileValue(after, section, key, value) == after);
  RequireOneChange(before, after);
  if (!EqualIgnoringCase(section, otherSection) ||
      !EqualIgnoringCase(Trimmed(key), Trimmed(otherKey))) {
    Require(ReadProfileValue(after, otherSection, otherKey) == other);
  }
  return 0;
}
