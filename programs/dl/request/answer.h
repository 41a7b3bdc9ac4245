// What a web server answered, and which result code that makes.
#pragma once

#include <chrono>
#include <string>

namespace quillbox {

// The numbers are the contract of the log file: they must not change.
enum class ResultCode {
  kSuccess = 0,
  kNoConnection = 1,  // could not resolve or connect
  kNoAnswer = 2,      // connected, but no complete and usable answer in time
  kRefused = 3,       // user name or password refused
  kNotSecure = 4,     // the secure connection failed
};

// How one exchange with a server went; kComplete says nothing about the status.
enum class Transfer { kComplete, kNoConnection, kNoAnswer, kNotSecure };

struct Answer {
  Transfer Outcome = Transfer::kNoAnswer;
  long Status = 0;          // of HTTP; the rest has meaning with kComplete alone
  std::string ContentType;  // as the server wrote it, empty if it didn't
  std::string Address;      // where the answer came from, after redirects
  std::string Redirect;     // where a redirect that was not followed leads, else empty
  std::string Body;
  std::chrono::seconds RetryAfter{};  // how long the server wants us to wait, 0 if it doesn't say
};

// What a run brings.
struct Fetched {
  ResultCode Code = ResultCode::kNoAnswer;
  std::string Body;  // as received; has meaning with kSuccess alone
};

// kSuccess when the answer's status is 200 to 299.
ResultCode JudgeAnswer(const Answer& answer);

// As JudgeAnswer, for what a signed-in request brought: a sign-in page, or any other HTML page in
// the place of a report, means that the service refused.
ResultCode JudgeReport(const Answer& answer);

}  // namespace quillbox
