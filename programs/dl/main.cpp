// The fetch program: one run fetches one address and leaves a data file and a log file.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>

#include "curl_library.h"
#include "fetch.h"
#include "request/agent_text.h"
#include "request/limits.h"
#include "result_files.h"
#include "secrecy.h"
#include "session.h"

namespace quillbox {
namespace {

std::string EnvironmentText(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

// The variables that users of OpenSSL and of the curl command know; libcurl itself reads neither.
std::string AuthorityFile() {
  const std::string file = EnvironmentText("SSL_CERT_FILE");
  return file.empty() ? EnvironmentText("CURL_CA_BUNDLE") : file;
}

Fetched FetchText(const std::string& text) {
  const std::optional<AgentRequest> request = ParseAgentRequest(text);
  const CurlLibrary curl = LoadCurl();
  if (!request || !curl.Loaded()) return {ResultCode::kNoConnection, {}};
  Session session(curl, ShortenedLimits(EnvironmentText("QUILLBOX_DL_LIMITS")), AuthorityFile());
  return Fetch(session, *request);
}

Fetched FetchOrFail(const std::string& text) {
  try {
    return FetchText(text);
  } catch (const std::bad_alloc&) {
    return {ResultCode::kNoAnswer, {}};
  }
}

bool WriteLog(const AgentText& text, ResultCode code) {
  return WriteWholeFile(text.LogPath, std::to_string(static_cast<int>(code)));
}

// The log goes first and comes last: whoever finds one finds the data of the same run.
bool Run(const AgentText& text) {
  RemoveOldFile(text.LogPath);
  RemoveOldFile(text.DataPath);
  const Fetched fetched = FetchOrFail(text.Request);
  ResultCode code = fetched.Code;
  if (code == ResultCode::kSuccess && !WriteWholeFile(text.DataPath, fetched.Body)) {
    code = ResultCode::kNoAnswer;
  }
  if (WriteLog(text, code)) return true;
  // On a full disk the data may stand where the log should; the log matters more.
  RemoveOldFile(text.DataPath);
  return WriteLog(text, code == ResultCode::kSuccess ? ResultCode::kNoAnswer : code);
}

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  quillbox::NarrowFileMask();
  const std::string text = quillbox::TakeArguments(argc, argv);
  quillbox::GuardProcess();
  const auto parts = quillbox::SplitAgentText(text);
  if (!parts) {
    std::fputs("dl: expected one argument: REQUEST|DATA FILE|LOG FILE\n", stderr);
    return 2;
  }
  return quillbox::Run(*parts) ? EXIT_SUCCESS : EXIT_FAILURE;
}
