// The fetch program: one run fetches one address and leaves a data file and a log file, or makes,
// checks, uses or gives back a sign-in.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "commands.h"
#include "fetch.h"
#include "system/process.h"

namespace quillbox {
namespace {

std::string TakeArgumentsSurely(int argc, char** argv) {
  try {
    return TakeArguments(argc, argv);
  } catch (const std::bad_alloc&) {
    return TakeArguments(argc, argv);
  }
}

// What stands behind `command` and a blank; nothing when the text is another command.
std::optional<std::string> ArgumentOf(const std::string& text, const std::string& command) {
  if (text == command) return "";
  if (!text.starts_with(command + " ")) return std::nullopt;
  return text.substr(command.size() + 1);
}

constexpr const char* kHelp =
    "usage: dl authorize [E-MAIL]   make a grant and print its name\n"
    "       dl check E-MAIL         say whether a sign-in works; reads the password or grant\n"
    "       dl revoke               give a grant back; reads its name from standard input\n"
    "       dl open                 open the address on standard input in the browser\n"
    "       dl ADDRESS|DATA|LOG     fetch the address; write the data file, then the log file\n"
    "       dl --help, -h           print this text\n"
    "       dl --version            print the version";

int Say(const char* words) {
  return std::puts(words) < 0 || std::fflush(stdout) != 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}

// The commands come first: an e-mail address that holds bars names no files.
int Obey(std::string text, unsigned fileMask) {
  if (const auto email = ArgumentOf(text, "authorize")) return Authorize(*email, fileMask);
  if (const auto email = ArgumentOf(text, "check")) return Check(*email);
  if (text == "revoke") return Revoke();
  if (text == "open") return Open(fileMask);
  if (text == "--help" || text == "-h") return Say(kHelp);
  if (text == "--version") return Say("dl " QUILLBOX_VERSION);
  RestoreBytes(text);
  return RunFetch(text);
}

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  const unsigned fileMask = quillbox::NarrowFileMask();
  std::string text = quillbox::TakeArgumentsSurely(argc, argv);
  quillbox::GuardProcess();
  try {
    return quillbox::Obey(std::move(text), fileMask);
  } catch (const std::bad_alloc&) {
    return EXIT_FAILURE;
  }
}
