// The ways to use the program. Each is a command of its own on the command line.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "region/regional_settings.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace quillbox {

// What ends the program with exit code 2; what() is one line for standard error.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Does what the command line says, without the program's name, and gives the exit code. Throws
// UsageError, or what the parser throws, when it can't be done.
int RunCommand(std::vector<std::string> arguments, const std::string& version);

// Adds the command that evaluates saved reports and tells in words what comes of them. Parsing a
// command line that names it runs it and gives `exitCode` its value; until then that stays empty.
// It throws UsageError before it has written anything.
void AddEvaluateCommand(CLI::App& program, std::optional<int>& exitCode);

// What the commands share.

// An option that takes one text, given at most once.
CLI::Option* AddText(CLI::App& command, const std::string& name, std::string& text,
                     const std::string& meaning);

// A path as the command line gives it.
std::filesystem::path NativePath(std::string_view path);

// The option --region; `name` gets "en-US" when it is left out.
void AddRegion(CLI::App& command, std::string& name);

// The built-in region. Throws UsageError when there is none of that name.
RegionalSettings RegionNamed(const std::string& name);

}  // namespace quillbox
