#include "update/version_check.h"

#include "config/setting_keys.h"
#include "platform/forms.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "retrieval/fetch_agent.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kLongestVersion = 20;

// The file's content without the blanks at both ends. Nothing when it is missing or too long.
std::optional<std::string> PublishedVersion(const std::optional<std::string>& file) {
  if (!file) return std::nullopt;
  std::string published(Trimmed(*file, kBlank));
  if (published.size() > kLongestVersion) return std::nullopt;
  return published;
}

constexpr std::string_view kDataFile = "che.wt";
constexpr std::string_view kLogFile = "chet.wt";

void DeleteIfPresent(const ProgramContext& program, const std::string& path) {
  if (program.Host.Disk.Exists(path)) program.Host.Disk.Remove(path);
}

// The published file, or nothing. What an earlier check of this run left is taken as it is.
std::optional<std::string> Download(const ProgramContext& program) {
  const std::string data = program.Folder.DataFile(kDataFile);
  const std::string log = program.Folder.DataFile(kLogFile);
  const AgentId agent =
      RunFetchAgent(program, program.Build.MakerAddress + "/versionqb.txt|" + data + "|" + log);
  const AgentOutcome outcome = WaitForLogs(program.Host, {log}, {agent});
  if (outcome == AgentOutcome::kNoResponse) {
    program.Host.Agents.End(agent);
    return std::nullopt;
  }
  std::optional<std::string> file = program.Host.Disk.Read(data);
  if (PublishedVersion(file)) {
    DeleteIfPresent(program, data);
    DeleteIfPresent(program, log);
  }
  return file;
}

void TellFailure(const ProgramContext& program) {
  program.Host.Boxes.Show(
      {.Text = "The attempt to check for an updated version of Quillbox failed!\r\n\r\nVisit " +
               program.Build.MakerAddress + " to check for a new version.",
       .Icon = BoxIcon::kExclamation,
       .InForeground = true});
}

void TellCurrent(const ProgramContext& program) {
  program.Host.Boxes.Show({.Text = "You are using the latest version of Quillbox.",
                           .Icon = BoxIcon::kInformation,
                           .InForeground = true});
}

void Offer(const ProgramContext& program, const VersionDecision& decision) {
  program.Store.WriteSetting(kCheckVersion, decision.Published);
  const BoxAnswer answer = program.Host.Boxes.Show({.Text = decision.Question,
                                                    .Icon = BoxIcon::kInformation,
                                                    .Buttons = BoxButtons::kYesNo,
                                                    .InForeground = true});
  if (answer == BoxAnswer::kYes) {
    program.Host.Opener.Open(program.Build.MakerAddress + "/AboutQuillbox.asp");
  }
}

// The stored version as it was when it was announced: a settings file cuts a value at its line end.
std::string AnnouncedVersion(const ProgramContext& program,
                             const std::optional<std::string>& file) {
  std::string announced = program.Store.ReadSetting(kCheckVersion);
  const std::optional<std::string> published = PublishedVersion(file);
  if (program.State.SettingsProfile.empty() || !published) return announced;
  const bool same = announced == published->substr(0, published->find_first_of("\r\n"));
  return same ? *published : announced;
}

// The person may still ask for it while it waits, so that is looked at afterwards.
void Check(const ProgramContext& program) {
  const std::optional<std::string> file = Download(program);
  const bool asked = program.State.VersionCheckAsked;
  const VersionDecision decision = DecideVersion(program.Store.ReadSetting(kVersion), file, asked,
                                                 AnnouncedVersion(program, file));
  switch (decision.Outcome) {
    case VersionOutcome::kFailed:
      if (asked) TellFailure(program);
      break;
    case VersionOutcome::kCurrent:
      if (asked) TellCurrent(program);
      break;
    case VersionOutcome::kSilent:
      break;
    case VersionOutcome::kAsk:
      Offer(program, decision);
      break;
  }
}

}  // namespace

VersionDecision DecideVersion(std::string_view installed, const std::optional<std::string>& file,
                              bool asked, std::string_view announced) {
  const std::optional<std::string> published = PublishedVersion(file);
  if (!published) return {};
  VersionDecision decision{VersionOutcome::kCurrent, *published, ""};
  const std::string digits = WithoutText(WithoutText(*published, "."), "\r\n");
  if (digits <= WithoutText(installed, ".")) return decision;
  if (!asked && announced == *published) {
    decision.Outcome = VersionOutcome::kSilent;
    return decision;
  }
  decision.Outcome = VersionOutcome::kAsk;
  decision.Question = "Quillbox v" + WithoutText(*published, "\r\n") +
                      " is available!  Would you like to download the setup now?";
  return decision;
}

void CheckForUpdate(const ProgramContext& program, CheckedFor whom) {
  AppState& state = program.State;
  if (whom == CheckedFor::kPerson) state.VersionCheckAsked = true;
  if (state.VersionCheckRunning) return;
  state.VersionCheckRunning = true;
  Check(program);
  state.VersionCheckRunning = false;
  state.VersionCheckAsked = false;
}

}  // namespace quillbox
