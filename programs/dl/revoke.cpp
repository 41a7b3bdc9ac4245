#include "commands.h"

#include <cstdio>
#include <optional>
#include <string>

#include "api/tokens.h"
#include "environment.h"
#include "grant_files.h"
#include "service_questions.h"
#include "system/file_locks.h"
#include "system/terminal.h"
#include "system/watchdog.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

// Literals alone: nothing may be made before the argument is out of sight.
constexpr const char* kTakeItAway =
    "take it away there, where your account lists the programs that may read its reports.";
constexpr const char* kTimeIsUp =
    "No answer came in time, so that the grant's access may still stand at the service: ";

// Nobody signs in here, so that a refusal has other words.
std::string Reason(const ServiceVerdict& verdict, const std::string& address) {
  if (verdict.Code != ResultCode::kRefused) return WordsFor(verdict, address);
  return "The service refused: " + Plain(verdict.Words) + ".";
}

Outcome TakeAway(const Grant& grant) {
  const CurlLibrary curl = LoadCurl();
  if (!curl.Loaded()) return {ResultCode::kNoConnection, kNoCurl};
  Session session = OpenSession(curl);
  const std::string address = TheService().Revoke;
  const ServiceReply reply =
      AskForToken(session, address, RevokeForm(grant.Client, grant.RefreshToken));
  if (reply.Verdict.Code == ResultCode::kSuccess) return {ResultCode::kSuccess, ""};
  if (SaysTokenIsGone(reply.Body)) return {ResultCode::kSuccess, ""};
  return {reply.Verdict.Code, Reason(reply.Verdict, address)};
}

// Without an answer the service may have done it or not.
std::string WordsOnFailure(const Outcome& atService) {
  const std::string stands =
      atService.Code == ResultCode::kNoAnswer ? "may still stand" : "still stands";
  return " its access " + stands + " at the service: " + kTakeItAway + "\n" + atService.Words;
}

Outcome WholeOutcome(bool fileIsGone, const Outcome& atService, const std::string& folder) {
  const bool taken = atService.Code == ResultCode::kSuccess;
  if (fileIsGone) {
    return {atService.Code,
            taken
                ? "The grant is gone from this machine, and its access at the service is gone too."
                : "The grant is gone from this machine, but" + WordsOnFailure(atService)};
  }
  const std::string stays = "The grant's file could not be removed from " + folder;
  if (!taken) return {atService.Code, stays + ", and" + WordsOnFailure(atService)};
  return {ResultCode::kNoConnection,
          stays + ". Its access at the service is gone, so that it is worth nothing any more."};
}

// Of a grant whose access stays for the sake of another one.
Outcome SpareOutcome(bool fileIsGone, const std::string& folder) {
  const std::string file = fileIsGone
                               ? "The grant is gone from this machine."
                               : "The grant's file could not be removed from " + folder + ".";
  return {fileIsGone ? ResultCode::kSuccess : ResultCode::kNoConnection,
          file + " The service was not asked to end its access: another grant in " + folder +
              " may be the same person's, and some services take back all of them at once. To end "
              "it for all of them, " +
              kTakeItAway};
}

struct Taken {
  std::optional<Grant> Content;
  bool FileIsGone = true;
};

// Not in the middle of a fetch that puts a new grant into the file, which would bring it back.
Taken TakeFromFolder(const std::string& folder, const std::string& name) {
  if (!IsGrantName(name)) return {};
  const FileLock lock(GrantPath(folder, name), TheLimits().Total / 4);
  Taken taken{LoadGrant(folder, name)};
  taken.FileIsGone = RemoveGrant(folder, name);
  return taken;
}

// While the service takes it back no run adds a grant that would go along.
Outcome RevokeNamed(const std::string& name) {
  const std::string folder = GrantFolder();
  const FolderLock lock(folder, Sharing::kAlone, TheLimits().Total / 4);
  const Taken taken = TakeFromFolder(folder, name);
  if (!taken.Content) return {ResultCode::kRefused, "There is no such grant in " + folder + "."};
  const bool isLast =
      lock.State() == LockState::kOurs && !MayHoldAnother(folder, name, taken.Content->Client.Id);
  if (!isLast) return SpareOutcome(taken.FileIsGone, folder);
  return WholeOutcome(taken.FileIsGone, TakeAway(*taken.Content), folder);
}

}  // namespace

int Revoke() {
  const std::string name = ReadSecret("Name of the grant: ");
  WatchCommand(std::string(kTimeIsUp) + kTakeItAway, kStandardOutput, TheLimits().Total);
  const Outcome outcome = RevokeNamed(name);
  EndWatch();
  std::puts(outcome.Words.c_str());
  return static_cast<int>(outcome.Code);
}

}  // namespace quillbox
