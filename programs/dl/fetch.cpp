#include "fetch.h"

#include <utility>

#include "granted_report.h"
#include "request/sign_in_form.h"
#include "request/web_address.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

// The last page of a sign-in may set cookies too, so the redirect is followed, without the form.
ResultCode SignIn(Session& session, const std::string& host, const Credentials& credentials) {
  const Answer answer = session.PostForm(SignInAddress(host), SignInForm(credentials));
  if (answer.Outcome != Transfer::kComplete || answer.Redirect.empty()) return JudgeAnswer(answer);
  return JudgeAnswer(session.Get(answer.Redirect, Allowed::kHttpsAlone));
}

}  // namespace

Fetched Fetch(Session& session, const AgentRequest& request) {
  const std::optional<WebAddress> address = ParseWebAddress(request.Address);
  if (!address) return {ResultCode::kNoConnection, {}};
  if (request.SignIn) {
    if (address->Protocol != Scheme::kHttps) return {ResultCode::kNotSecure, {}};
    if (IsGrantName(request.SignIn->Password)) {
      return FetchWithGrant(session, request.SignIn->Password, address->Path);
    }
    const ResultCode signedIn = SignIn(session, address->Host, *request.SignIn);
    if (signedIn != ResultCode::kSuccess) return {signedIn, {}};
  }
  Answer answer =
      session.Get(request.Address, request.SignIn ? Allowed::kHttpsAlone : Allowed::kHttpToo);
  // Whether the sign-in was accepted shows in what the address brings.
  const ResultCode code = request.SignIn ? JudgeReport(answer) : JudgeAnswer(answer);
  return {code, std::move(answer.Body)};
}

}  // namespace quillbox
