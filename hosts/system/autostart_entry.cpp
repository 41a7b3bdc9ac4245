#include "system/autostart_entry.h"

#include <filesystem>
#include <map>
#include <sstream>
#include <system_error>

#include "config/atomic_write.h"
#include "system/system_surroundings.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string EscapedAll(std::string_view text, std::string_view special, char escape) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) escaped += escape;
    escaped += c;
  }
  return escaped;
}

// One argument of a command line: in quotes; a "%" would begin a field code.
std::string Quoted(std::string_view argument) {
  return '"' + EscapedAll(EscapedAll(argument, "\"`$\\", '\\'), "%", '%') + '"';
}

// Launchers look for the first word as it stands, before they make one "%" of two, and "=" is
// forbidden in it.
std::string CommandLine(std::string_view program) {
  const bool canStandFirst = program.find_first_of("%=") == std::string_view::npos;
  return (canStandFirst ? "" : "nice -n 0 ") + Quoted(program);
}

constexpr std::string_view kSpecial = "\\\n\t\r";
constexpr std::string_view kLetters = "\\ntr";

// A value of the kind "string". Its escapes lie over those of the command line.
std::string ToValue(std::string_view text) {
  std::string value;
  for (const char c : text) {
    const auto special = kSpecial.find(c);
    value +=
        special == std::string_view::npos ? std::string{c} : std::string{'\\', kLetters[special]};
  }
  return value;
}

// The text of a value, but for escapes that AutostartText doesn't write.
std::string FromValue(std::string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool escaped = value[i] == '\\' && i + 1 < value.size();
    const char c = value[i + (escaped ? 1 : 0)];
    const auto letter = escaped ? kLetters.find(c) : std::string_view::npos;
    text += letter == std::string_view::npos ? c : kSpecial[letter];
    if (escaped) ++i;
  }
  return text;
}

std::string Bare(std::string_view text) {
  return std::string(Trimmed(text, " \t\r"));
}

std::map<std::string, std::string> ReadEntry(const std::string& text) {
  std::map<std::string, std::string> values;
  std::istringstream lines(text);
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('[')) inside = Bare(line) == "[Desktop Entry]";
    const auto equals = line.find('=');
    if (!inside || line.starts_with('#') || equals == std::string::npos) continue;
    values[Bare(line.substr(0, equals))] = Bare(line.substr(equals + 1));
  }
  return values;
}

}  // namespace

std::string AutostartText(std::string_view program) {
  std::string text =
      "[Desktop Entry]\n"
      "Type=Application\n"
      "Name=Quillbox\n"
      "Comment=Watch AdSense accounts from the notification area\n"
      "Icon=quillbox\n"
      "Terminal=false\n"
      "TryExec=";  // a program that is gone is no error of the session
  text += ToValue(program);
  text += "\nExec=";
  text += ToValue(CommandLine(program));
  text += '\n';
  return text;
}

bool StartsSomething(const std::string& text) {
  std::map<std::string, std::string> entry = ReadEntry(text);
  return !entry["Exec"].empty() && entry["Hidden"] != "true" &&
         entry["X-GNOME-Autostart-enabled"] != "false";
}

namespace {

namespace fs = std::filesystem;

fs::path AutostartFolder() {
  return fs::path(ConfigFolder()) / "autostart";
}

std::string EntryFile() {
  return (AutostartFolder() / "quillbox.desktop").string();
}

}  // namespace

bool AutostartEntry::Present() {
  return StartsSomething(files_.Read(EntryFile()).value_or(""));
}

void AutostartEntry::Make() {
  if (ConfigFolder().empty()) return;
  std::error_code ignored;
  fs::create_directories(AutostartFolder(), ignored);
  WriteAtomically(files_, EntryFile(), AutostartText(folder_.ProgramFile("quillbox")));
}

void AutostartEntry::FollowProgram() {
  const std::string text = files_.Read(EntryFile()).value_or("");
  const std::string program = FromValue(ReadEntry(text)["TryExec"]);
  if (StartsSomething(text) && !program.empty() && !files_.Exists(program)) Make();
}

void AutostartEntry::Remove() {
  files_.Remove(EntryFile());
}

}  // namespace quillbox
