#include <gmock/gmock.h>

#include "config/atomic_write.h"
#include "config/profile_file.h"
#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

using namespace std::string_literals;

TEST(ProfileText, Reads) {
  struct Case {
    const char *Text, *Section, *Key, *Value;
  };
  const Case kCases[] = {
      {"", "S", "K", ""},
      {"[S]\r\nK=v\r\n", "S", "K", "v"},
      {"[S]\rK=v\rL=w", "S", "L", "w"},
      {"[S]\nUSE24HOUR=True\n", "s", "Use24Hour", "True"},
      {"[G\xC9N]\n\xC9=v\n", "g\xE9n", "\xE9", "v"},
      {"[S]\nK= \"v\" ; note \n", "S", "K", " \"v\" ; note "},
      {"[S]\nK=a=b\n", "S", "K", "a=b"},
      {"[S]\n \tK\t =v\n", "S", "K", "v"},
      {"[S]\nK=v\n", "S", " K ", "v"},
      {"[S]\nmy key=v\n", "S", "MY KEY", "v"},
      {"[S]\nK\n", "S", "K", ""},
      {"[S]\nK\nK=v\n", "S", "K", "v"},
      {"K=v\n[S]\n", "S", "K", ""},
      {"K=v\n", "", "K", ""},
      {"[]\nK=v\n", "", "K", "v"},
      {"[S]\n=v\n", "S", "", ""},
      // The first of two equal keys or sections wins, also when it lacks the key.
      {"[S]\nK=1\nk=2\n", "S", "K", "1"},
      {"[S]\nK=1\n[s]\nK=2\n", "S", "K", "1"},
      {"[S]\nL=1\n[T]\n[S]\nK=2\n", "S", "K", ""},
      // Comments, and text that is neither.
      {"[S]\n;K=v\n", "S", ";K", ""},
      {"[S]\n  ;K=v\n", "S", ";K", ""},
      {";[S]\nK=v\n", "S", "K", ""},
      {"[S] ; note\nK=v\n", "S", "K", "v"},
      {"  [S]x\nK=v\n", "S", "K", "v"},
      {"[S]\n[T\nK=v\n", "S", "K", "v"},
      {"[S]\n[K=v\n", "S", "[K", ""},
      {"[a]b]\nK=v\n", "a", "K", "v"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ReadProfileValue(c.Text, c.Section, c.Key), c.Value)
        << ::testing::PrintToString(c.Text) << " " << c.Section << "/" << c.Key;
    EXPECT_EQ(ReadProfileValue(ProfileSection(c.Text, c.Section), c.Section, c.Key), c.Value)
        << ::testing::PrintToString(c.Text) << " " << c.Section << "/" << c.Key;
  }
}

TEST(ProfileText, Writes) {
  struct Case {
    std::string Text, Section, Key, Value, Written;
  };
  const Case kCases[] = {
      {"", "General", "Use24Hour", "True", "[General]\r\nUSE24HOUR=True\r\n"},
      {"", "S", "\xE9", "\xE9", "[S]\r\n\xC9=\xE9\r\n"},
      // A line replaced in place keeps its own line end.
      {"[S]\nk=1\r\nL=2\n", "s", "K", "3", "[S]\nK=3\r\nL=2\n"},
      {"[S]\n K = 1\nK=2\n", "S", "K", "3", "[S]\nK=3\nK=2\n"},
      {"[S]\nK=1", "S", "K", "2", "[S]\nK=2"},
      // A new line goes behind the section's last line that isn't blank.
      {"[S]\nA=1\n\n \t\n[T]\nB=2\n", "S", "K", "v", "[S]\nA=1\nK=v\n\n \t\n[T]\nB=2\n"},
      {"[S]\n; note\n\n", "S", "K", "v", "[S]\n; note\nK=v\n\n"},
      {"[S]\n\n[T]\n", "S", "K", "v", "[S]\nK=v\n\n[T]\n"},
      {"[S]\n[T]\nK=1\n[S]\nK=2\n", "S", "K", "v", "[S]\nK=v\n[T]\nK=1\n[S]\nK=2\n"},
      // The last line may lack its line end.
      {"[S]\nA=1", "S", "K", "v", "[S]\nA=1\nK=v\n"},
      {"[S]", "S", "K", "v", "[S]\r\nK=v\r\n"},
      {"[T]\nA=1", "S", "K", "v", "[T]\nA=1\n[S]\nK=v\n"},
      {"; only a note", "S", "K", "v", "; only a note\r\n[S]\r\nK=v\r\n"},
      // New lines take the file's own line ends.
      {"[T]\n", "S", "K", "v", "[T]\n[S]\nK=v\n"},
      {"[T]\r\n", "S", "K", "v", "[T]\r\n[S]\r\nK=v\r\n"},
      {"[S]\rA=1\r", "S", "K", "v", "[S]\rA=1\rK=v\r"},
      {"\n\n", "S", "K", "v", "\n\n[S]\nK=v\n"},
      // A line end inside a value ends it.
      {"", "S", "K", "a\r\nL=b", "[S]\r\nK=a\r\n"},
      {"", "S", "K", "a\nL=b", "[S]\r\nK=a\r\n"},
      {"", "S", "K", "a\0b"s, "[S]\r\nK=a\r\n"},
      {"[S]\nK=1\n", "S", "K", "\n[T]", "[S]\nK=\n"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(WithProfileValue(c.Text, c.Section, c.Key, c.Value), c.Written)
        << ::testing::PrintToString(c.Text) << " " << c.Section << "/" << c.Key << "=" << c.Value;
  }
}

TEST(ProfileText, RefusesWhatNoLineCanCarry) {
  const std::string text = "[S]\nA=1\n";
  for (const std::string& key :
       {""s, "  "s, "a=b"s, "a\nb"s, "a\rb"s, "a\0b"s, "[k"s, " [k"s, ";k"s}) {
    EXPECT_EQ(WithProfileValue(text, "S", key, "v"), text) << ::testing::PrintToString(key);
    EXPECT_EQ(ReadProfileValue(text, "S", key), "") << ::testing::PrintToString(key);
  }
  for (const std::string& section : {"a]b"s, "a\nb"s, "a\rb"s, "a\0b"s}) {
    EXPECT_EQ(WithProfileValue(text, section, "K", "v"), text) << ::testing::PrintToString(section);
  }
}

constexpr const char* kWritten = "/data/ann.ini";

TEST(IniFile, ReadsAtMost749Characters) {
  SimulatedFiles files;
  for (const std::size_t length : {748U, 749U, 750U, 5000U}) {
    const std::string value(length, 'x');
    IniWrite(files, std::vector<SettingChange>{{"S", "K", value}}, kWritten);
    EXPECT_EQ(IniRead(files, "S", "K", kWritten), value.substr(0, 749)) << length;
    EXPECT_EQ(files.Read(kWritten), "[S]\r\nK=" + value + "\r\n") << "the file holds all of it";
  }
}

TEST(IniFile, ABatchIsOneAtomicWrite) {
  SimulatedFiles once({{kWritten, ""}}), files({{kWritten, "[S]\nA=1\nB=1\n[T]\nC=1\n"}});
  WriteAtomically(once, kWritten, "text");
  IniWrite(files, std::vector<SettingChange>{{"S", "A", "2"}, {"S", "B", "2"}, {"T", "C", "2"}},
           kWritten);
  EXPECT_EQ(files.Read(kWritten), "[S]\nA=2\nB=2\n[T]\nC=2\n");
  EXPECT_EQ(files.Steps(), once.Steps());
}

TEST(IniFile, AFileThatCannotBeReadIsNotReplaced) {
  SimulatedFiles files({{kWritten, "[S]\nPRECIOUS=1\n"}});
  files.SetReadable(kWritten, false);
  IniWrite(files, std::vector<SettingChange>{{"S", "K", "v"}}, kWritten);
  files.SetReadable(kWritten, true);
  EXPECT_EQ(files.Read(kWritten), "[S]\nPRECIOUS=1\n");
}

TEST(IniFile, ChangesThatNoLineCanCarryMakeNoFile) {
  SimulatedFiles files;
  EXPECT_EQ(IniRead(files, "S", "K", kWritten), "");
  IniWrite(files, std::vector<SettingChange>{{"S", "a=b", "v"}}, kWritten);
  EXPECT_THAT(files.All(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace quillbox
