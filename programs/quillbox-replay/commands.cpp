#include "quillbox-replay/commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <utility>

#include "config/atomic_write.h"
#include "evaluation/report_row.h"
#include "quillbox-replay/batch.h"
#include "quillbox-replay/request.h"
#include "quillbox-replay/script/script_run.h"
#include "region/date_text.h"
#include "region/regional_settings.h"
#include "reports/report_data.h"
#include "reports/report_page.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"

namespace quillbox {
namespace {

int ScriptFrom(const std::string& path) {
  std::ifstream script(NativePath(path), std::ios::binary);
  if (!script || script.peek() == std::ifstream::traits_type::eof()) {
    throw UsageError("can't read the script " + path);
  }
  std::string error;
  const int code = RunScript(script, std::cout, error);
  if (code != kScriptDone) throw UsageError(path + ": " + error);
  return code;
}

// Runs the whole program on a simulated host as a script tells, and writes what it did.
void AddScriptCommand(CLI::App& program, std::optional<int>& exitCode) {
  CLI::App* const command = program.add_subcommand(
      "script", "Run the whole program on a simulated host, print what it did");
  const auto path = std::make_shared<std::string>();
  AddText(*command, "FILE", *path, "The script, one step a line")->required();
  command->final_callback([path, &exitCode] { exitCode = ScriptFrom(*path); });
}

// Answers requests from standard input on standard output.
void AddBatchCommand(CLI::App& program, std::optional<int>& exitCode) {
  program.add_subcommand("batch", "Answer JSON requests, one a line on standard input")
      ->final_callback([&exitCode] { exitCode = RunBatch(0, 1); });
}

struct Wish {
  std::string Title;
  std::string ReportFile;
  std::string Region;
  std::string PageFile;
};

const ReportTitle& TitleNamed(const std::string& text) {
  const ReportTitle* const title = FindReportTitle(text);
  if (title != nullptr) return *title;
  std::string titles;
  for (const ReportTitle& known : ReportTitles()) {
    titles += (titles.empty() ? "" : "; ") + std::string(known.Text);
  }
  throw UsageError("unknown report title " + text + "; the titles are: " + titles);
}

ReportData DataOf(const std::string& file, const ReportTitle& title,
                  const RegionalSettings& region) {
  std::optional<std::string> text = SystemFiles().Read(file);
  if (!text) throw UsageError("can't read the report " + file);
  std::optional<ReportData> data =
      BuildReportData(*std::move(text), title, region, YearOf(SystemClock().LocalTime()));
  if (!data) throw UsageError("there is no data in the report " + file);
  return *std::move(data);
}

int MakePage(const Wish& wish) {
  const ReportTitle& title = TitleNamed(wish.Title);
  const RegionalSettings region = RegionNamed(wish.Region);
  const ReportData data = DataOf(wish.ReportFile, title, region);
  const std::string page =
      BuildReportPage(data, title.Text, PeriodCharacter(region), CommaCharacter(region));
  SystemFiles files;
  if (!WriteAtomically(files, wish.PageFile, page)) {
    throw UsageError("can't write the page " + wish.PageFile);
  }
  std::cout << "Page written to " << wish.PageFile << '\n';
  return 0;
}

// Makes the page of a saved report.
void AddReportCommand(CLI::App& program, std::optional<int>& exitCode) {
  CLI::App* const command = program.add_subcommand("report", "Make the page of a saved report");
  const auto wish = std::make_shared<Wish>();
  AddText(*command, "--title", wish->Title, "Title of the report, as the Reports window lists it")
      ->required();
  AddText(*command, "--reports", wish->ReportFile, "File of the saved report")->required();
  AddRegion(*command, wish->Region);
  AddText(*command, "--out", wish->PageFile, "File of the page, Report.html")->required();
  command->final_callback([wish, &exitCode] { exitCode = MakePage(*wish); });
}

}  // namespace

int RunCommand(std::vector<std::string> arguments, const std::string& version) {
  CLI::App program("Runs Quillbox's own logic, without a desktop and without a network.",
                   "quillbox-replay");
  program.set_version_flag("--version", "quillbox-replay " + version);
  program.require_subcommand(0, 1);
  std::optional<int> exitCode;
  AddEvaluateCommand(program, exitCode);
  AddReportCommand(program, exitCode);
  AddScriptCommand(program, exitCode);
  AddBatchCommand(program, exitCode);
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser wants them
    program.parse(std::move(arguments));
  } catch (const CLI::Success& question) {
    return program.exit(question);
  }
  if (exitCode) return *exitCode;
  throw UsageError("say what to do: evaluate, report, script or batch (--help tells more)");
}

CLI::Option* AddText(CLI::App& command, const std::string& name, std::string& text,
                     const std::string& meaning) {
  return command.add_option(name, text, meaning)
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

std::filesystem::path NativePath(std::string_view path) {
  return std::u8string(path.begin(), path.end());
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
