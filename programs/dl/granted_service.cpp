#include "granted_service.h"

#include <utility>

#include "api/tokens.h"
#include "grant_files.h"
#include "system/file_locks.h"
#include "system/watchdog.h"

namespace quillbox {

GrantedService::GrantedService(Session& session, ServiceAddresses addresses, KeptGrant grant)
    : session_(session), addresses_(std::move(addresses)), grant_(std::move(grant)) {}

// A service may take a token back before its time is over.
ServiceReply GrantedService::Get(const std::string& path) {
  const bool hadToken = HasToken();
  ServiceReply reply = Ask(path);
  if (reply.Verdict.Status != 401 || !hadToken || std::exchange(renewed_, true)) return reply;
  token_.clear();
  return Ask(path);
}

ServiceReply GrantedService::Ask(const std::string& path) {
  if (!HasToken()) {
    ServiceVerdict verdict = FetchToken();
    verdict.Asked = addresses_.Token;
    if (verdict.Code != ResultCode::kSuccess) return {verdict, ""};
  }
  ServiceReply reply = AskWithToken(session_, addresses_.Api + path, token_);
  reply.Verdict.Asked = addresses_.Api;
  return reply;
}

// A service may answer with a new grant and take the old one from everybody, so that one run at a
// time exchanges it, from the reading of the file to the writing. What the answer may bring has its
// place on the disk before the question.
ServiceVerdict GrantedService::FetchToken() {
  const FileLock lock(GrantPath(grant_.Folder, grant_.Name), session_.TimeLeft() / 2);
  if (lock.State() == LockState::kTaken) return {ResultCode::kNoAnswer, false, ""};
  auto grant = LoadGrant(grant_.Folder, grant_.Name);
  if (!grant) return {ResultCode::kRefused, false, ""};
  grant_.Content = std::move(*grant);
  GrantPlace place(grant_.Folder, grant_.Name);
  if (!place.IsMade()) {
    return {ResultCode::kNoConnection, false, "There is no room for a grant in " + grant_.Folder};
  }
  return ExchangeGrant(place);
}

ServiceVerdict GrantedService::ExchangeGrant(GrantPlace& place) {
  const ServiceReply reply = AskForToken(session_, addresses_.Token,
                                         RefreshForm(Granted().Client, Granted().RefreshToken));
  return reply.Verdict.Code == ResultCode::kSuccess ? Take(reply, place) : reply.Verdict;
}

ServiceVerdict GrantedService::Take(const ServiceReply& reply, GrantPlace& place) {
  const Unwatched exchange;  // the answer may hold the only grant that is left
  const auto answer = ReadTokenAnswer(reply.Body);
  if (!answer) return {ResultCode::kNoAnswer, false, "the answer holds no access token"};
  token_ = answer->AccessToken;
  tokenEnd_ = answer->Lifetime ? Clock::now() + *answer->Lifetime : Clock::time_point::max();
  if (!answer->RefreshToken.empty() && answer->RefreshToken != Granted().RefreshToken) {
    grant_.Content.RefreshToken = answer->RefreshToken;
    if (!place.Keep(grant_.Content)) {
      return {ResultCode::kNoConnection, false, "The new grant was lost: it could not be written"};
    }
  }
  return reply.Verdict;
}

}  // namespace quillbox
