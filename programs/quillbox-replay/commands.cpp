#include "quillbox-replay/commands.h"

#include <unistd.h>

#include <fstream>
#include <iostream>
#include <memory>

#include "quillbox-replay/batch.h"
#include "quillbox-replay/script/script_run.h"
#include "region/regional_settings.h"

namespace quillbox {
namespace {

int ScriptFrom(const std::string& path) {
  std::ifstream script(path, std::ios::binary);
  if (!script || script.peek() == std::ifstream::traits_type::eof()) {
    throw UsageError("can't read the script " + path);
  }
  std::string error;
  const int code = RunScript(script, std::cout, error);
  if (code != kScriptDone) throw UsageError(path + ": " + error);
  return code;
}

}  // namespace

void AddScriptCommand(CLI::App& program, std::optional<int>& exitCode) {
  CLI::App* const command = program.add_subcommand(
      "script", "Run the whole program on a simulated host, print what it did");
  const auto path = std::make_shared<std::string>();
  AddText(*command, "FILE", *path, "The script, one step a line")->required();
  command->final_callback([path, &exitCode] { exitCode = ScriptFrom(*path); });
}

void AddBatchCommand(CLI::App& program, std::optional<int>& exitCode) {
  program.add_subcommand("batch", "Answer JSON requests, one a line on standard input")
      ->final_callback([&exitCode] { exitCode = RunBatch(STDIN_FILENO, STDOUT_FILENO); });
}

CLI::Option* AddText(CLI::App& command, const std::string& name, std::string& text,
                     const std::string& meaning) {
  return command.add_option(name, text, meaning)
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

void AddRegion(CLI::App& command, std::string& name) {
  name = "en-US";
  AddText(command, "--region", name,
          "en-US (the default), en-GB, de-DE, fr-FR, de-CH, sv-SE, pt-BR");
}

RegionalSettings RegionNamed(const std::string& name) {
  std::optional<RegionalSettings> region = BuiltInRegion(name);
  if (!region) throw UsageError("unknown region " + name);
  return *std::move(region);
}

}  // namespace quillbox
