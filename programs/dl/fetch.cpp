#include "fetch.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <utility>

#include "curl.h"
#include "environment.h"
#include "granted_report.h"
#include "request/agent_text.h"
#include "request/web_address.h"
#include "system/own_files.h"
#include "system/watchdog.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

// The last page of a sign-in may set cookies too, so the redirect is followed, without the form.
ResultCode SignIn(Session& session, const std::string& host, const Credentials& credentials) {
  const Answer answer = session.PostForm(SignInAddress(host), SignInForm(credentials));
  if (answer.Outcome != Transfer::kComplete || answer.Redirect.empty()) return JudgeAnswer(answer);
  return JudgeAnswer(session.Get(answer.Redirect, Allowed::kHttpsAlone));
}

Fetched FetchText(const std::string& text) {
  const std::optional<AgentRequest> request = ParseAgentRequest(text);
  const CurlLibrary curl = LoadCurl();
  if (!request || !curl.Loaded()) return {ResultCode::kNoConnection, {}};
  Session session = OpenSession(curl);
  return Fetch(session, *request);
}

bool WriteLog(const AgentText& text, ResultCode code) {
  return WriteWholeFile(text.LogPath, std::to_string(static_cast<int>(code)));
}

// The log goes first and comes last: whoever finds one finds the data of the same run.
bool Run(const AgentText& text) {
  RemoveOldFile(text.LogPath);
  RemoveOldFile(text.DataPath);
  WatchFetch(text.DataPath, text.LogPath, TheLimits().Total);
  const Fetched fetched = FetchText(text.Request);
  EndWatch();
  ResultCode code = fetched.Code;
  if (code == ResultCode::kSuccess && !WriteWholeFile(text.DataPath, fetched.Body)) {
    code = ResultCode::kNoAnswer;
  }
  if (WriteLog(text, code)) return true;
  // On a full disk the data may stand where the log should; the log matters more.
  RemoveOldFile(text.DataPath);
  return WriteLog(text, code == ResultCode::kSuccess ? ResultCode::kNoAnswer : code);
}

// For a run that the want of memory ended: the code at least.
bool GiveUp(const AgentText& text) {
  EndWatch();
  RemoveOldFile(text.DataPath);
  return WriteLog(text, ResultCode::kNoAnswer);
}

std::optional<AgentText> SplitSurely(const std::string& text) {
  try {
    return SplitAgentText(text);
  } catch (const std::bad_alloc&) {
    return SplitAgentText(text);
  }
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

int RunFetch(const std::string& text) {
  const auto parts = SplitSurely(text);
  if (!parts) {
    std::fputs("dl: expected one argument: REQUEST|DATA FILE|LOG FILE\n", stderr);
    return 2;
  }
  try {
    return Run(*parts) ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::bad_alloc&) {
    return GiveUp(*parts) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
}

}  // namespace quillbox
