// What the settings file of a person holds, as a text and in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/storage.h"
#include "text/code_page.h"

namespace quillbox {

// The stored form, which must not change, is ASCII: lines "Key=Value" under lines "[Section]".
//
// Sections, keys and values are written alike: a printable ASCII character as it is, but for the
// six in "%=[]#;", which become "%" and two hexadecimal digits of their code (capitals), as does
// every other byte of the code page and a blank at either end. So a text of any bytes, the empty
// one too, reads back as it was. Blanks and tabs round each of the three don't count, nor does a CR
// at the end of a line.
//
// Names match without regard to case and keep the case in which they came first. The last of two
// equal keys wins. Sections and keys are written in the order of their names, case ignored.
//
// What is no such line (a note behind "#" or ";", a damaged line) is never read and never thrown
// away: it is written at the head of its section, or of the file; a section line that can't be
// decoded goes to the end of the file with all that stands under it. Empty lines go.
class SettingsText {
 public:
  SettingsText() = default;
  explicit SettingsText(std::string_view text);

  std::string Text() const;

  // Empty when there is none.
  std::string_view Value(std::string_view section, std::string_view key) const;

  // Whether that changed anything.
  bool Apply(const SettingChange& change);

 private:
  struct Section {
    std::vector<std::string> Others;  // lines that are no settings
    std::map<std::string, std::string, LessIgnoringCase> Values;
  };

  std::vector<std::string> head_, tail_;
  std::map<std::string, Section, LessIgnoringCase> sections_;
};

}  // namespace quillbox
