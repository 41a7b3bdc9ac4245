// Saved reports on a settings file, for people.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>

#include "config/account_list.h"
#include "config/atomic_write.h"
#include "quillbox-replay/commands.h"
#include "quillbox-replay/evaluation_words.h"
#include "quillbox-replay/formats/iso_time.h"
#include "quillbox-replay/memory_stores.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

struct Job {
  std::string SettingsFile;
  std::string Account;  // code page
  std::string Folder;
  std::string RegionName;
  RegionalSettings Region;
  std::chrono::local_seconds Now;
  bool Save = false;
};

// As the command line gives them, in UTF-8.
struct Words {
  std::string SettingsFile;
  std::string Account;
  std::string Folder = ".";
  std::string Region;
  std::optional<std::string> Time;  // left out: now
  bool Save = false;
};

std::string AccountOf(const Words& words) {
  std::optional<std::string> account = FromUtf8(words.Account);
  if (!account) throw UsageError("--account holds a character that windows-1252 lacks");
  return *std::move(account);
}

std::chrono::local_seconds TimeOf(const Words& words) {
  if (!words.Time) return SystemClock().LocalTime();
  const auto time = ParseDateAndTime(*words.Time);
  if (!time) throw UsageError("--at must be a date and time such as 2007-01-31T09:05:00");
  return *time;
}

Job JobOf(const Words& words) {
  return {words.SettingsFile,        AccountOf(words), words.Folder, words.Region,
          RegionNamed(words.Region), TimeOf(words),    words.Save};
}

std::string ReadSettings(const std::string& path) {
  std::optional<std::string> text = SystemFiles().Read(path);
  if (!text) throw UsageError("can't read the settings file " + path);
  return *std::move(text);
}

void CheckFolder(const std::string& folder) {
  std::error_code failure;
  const std::filesystem::directory_iterator entries(NativePath(folder), failure);
  if (failure) throw UsageError("can't read the folder " + folder);
}

SoundFileNames LoadSoundFiles(const SettingsStore& store) {
  SoundFileNames files;
  for (std::size_t i = 0; i < kSounds.size(); ++i) {
    const std::string file = store.ReadSetting(kSounds[i]);
    files[i] = file.empty() ? std::string(kNoSound) : file;
  }
  return files;
}

// What became of a report that the setting selects. Throws UsageError when it is there and can't be
// read.
ReportFound FoundOf(const std::string& path, const std::optional<std::string>& text) {
  if (!text && SystemFiles().Exists(path)) throw UsageError("can't read the report " + path);
  return {path.substr(path.rfind('/') + 1), text.has_value(), text ? text->size() : 0};
}

std::vector<ReportFound> ReportsFound(const EvaluationInput& input, const ReportPaths& paths) {
  std::vector<ReportFound> found;
  const auto add = [&](std::string_view report, const std::string& path,
                       const std::optional<std::string>& text) {
    if (Selects(input.DataToDownload, report)) found.push_back(FoundOf(path, text));
  };
  add(kDownloadContent, paths.Content, input.Content);
  add(kDownloadSearch, paths.Search, input.Search);
  add(kDownloadReferrals, paths.Referral, input.Referral);
  return found;
}

ReportPaths PathsIn(const std::string& folder) {
  return {folder + "/Content.dat", folder + "/Search.dat", folder + "/Referral.dat"};
}

// Runs the job on `settings`, which changes, and tells what came of it.
EvaluationStory Evaluate(const Job& job, ProfileStore& settings) {
  SystemFiles files;
  StoreOnSettings store(settings);
  const ReportPaths paths = PathsIn(job.Folder);
  const std::vector<std::string> accounts = LoadAccountList(store.Store).Accounts;

  EvaluationStory story;
  story.Account = job.Account;
  story.Region = job.RegionName;
  story.AccountListed = std::find(accounts.begin(), accounts.end(), job.Account) != accounts.end();
  const SoundFileNames sounds = LoadSoundFiles(store.Store);
  story.Evaluation = EvaluateAndStore({store.Store, files, accounts, sounds, job.Region, job.Now},
                                      paths, job.Account);
  StoreLastDate(store.Store, story.Evaluation.Decision);
  story.Reports = ReportsFound(story.Evaluation.Input, paths);
  return story;
}

std::string Save(const std::string& path, const std::string& text) {
  SystemFiles files;
  if (!WriteAtomically(files, path, text))
    throw UsageError("can't write the settings file " + path);
  return "\nSaved in " + path + "\n";
}

int Run(const Job& job) {
  ProfileStore settings(ReadSettings(job.SettingsFile));
  CheckFolder(job.Folder);
  const EvaluationStory story = Evaluate(job, settings);
  std::string words = TellEvaluation(story);
  words += job.Save ? Save(job.SettingsFile, settings.Text())
                    : "\nNothing is saved; --save writes the settings file.\n";
  std::cout << words;
  return 0;
}

}  // namespace

void AddEvaluateCommand(CLI::App& program, std::optional<int>& exitCode) {
  CLI::App* const command =
      program.add_subcommand("evaluate", "Tell in words what comes of saved reports");
  const auto words = std::make_shared<Words>();
  AddText(*command, "--settings", words->SettingsFile, "Settings file of Quillbox")->required();
  AddText(*command, "--account", words->Account, "Name of the account")->required();
  AddText(*command, "--reports", words->Folder, "Folder of the reports; the current one");
  AddRegion(*command, words->Region);
  command->add_option("--at", words->Time, "Time of the evaluation, 2007-01-31T09:05:00; now")
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  command->add_flag("--save", words->Save, "Write the settings file")
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  command->final_callback([words, &exitCode] { exitCode = Run(JobOf(*words)); });
}

}  // namespace quillbox
