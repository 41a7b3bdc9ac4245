#include "fetch_run.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>

#include "curl_library.h"
#include "environment.h"
#include "fetch.h"
#include "request/agent_text.h"
#include "result_files.h"
#include "session.h"
#include "watchdog.h"

namespace quillbox {
namespace {

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
