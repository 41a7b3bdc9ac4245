#include "granted_service.h"

#include <utility>

#include "api/token_answer.h"

namespace quillbox {

GrantedService::GrantedService(Session& session, ServiceAddresses addresses, Grant grant,
                               std::function<void(const Grant&)> keep)
    : session_(session),
      addresses_(std::move(addresses)),
      grant_(std::move(grant)),
      keep_(std::move(keep)) {}

ServiceReply GrantedService::Get(const std::string& path) {
  if (!HasToken()) {
    const ServiceVerdict verdict = FetchToken();
    if (verdict.Code != ResultCode::kSuccess) return {verdict, ""};
  }
  return AskWithToken(session_, addresses_.Api + path, token_);
}

ServiceVerdict GrantedService::FetchToken() {
  const ServiceReply reply =
      AskForToken(session_, addresses_.Token, RefreshForm(grant_.Client, grant_.RefreshToken));
  if (reply.Verdict.Code != ResultCode::kSuccess) return reply.Verdict;
  const auto answer = ReadTokenAnswer(reply.Body);
  if (!answer) return {ResultCode::kNoAnswer, false, "the answer holds no access token"};
  token_ = answer->AccessToken;
  tokenEnd_ = answer->Lifetime ? Clock::now() + *answer->Lifetime : Clock::time_point::max();
  if (!answer->RefreshToken.empty() && answer->RefreshToken != grant_.RefreshToken) {
    grant_.RefreshToken = answer->RefreshToken;
    keep_(grant_);
  }
  return reply.Verdict;
}

}  // namespace quillbox
