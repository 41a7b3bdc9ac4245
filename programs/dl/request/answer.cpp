#include "request/answer.h"

#include <string_view>

#include "request/web_address.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

bool BeginsWith(std::string_view text, std::string_view beginning) {
  return EqualIgnoringCase(text.substr(0, beginning.size()), beginning);
}

bool IsHtml(const Answer& answer) {
  if (BeginsWith(answer.ContentType, "text/html")) return true;
  if (BeginsWith(answer.ContentType, "application/xhtml")) return true;
  std::string_view body = answer.Body;
  body.remove_prefix(std::min(body.find_first_not_of(" \t\r\n"), body.size()));
  return BeginsWith(body, "<!doctype html") || BeginsWith(body, "<html");
}

}  // namespace

ResultCode JudgeAnswer(const Answer& answer) {
  switch (answer.Outcome) {
    case Transfer::kNoConnection:
      return ResultCode::kNoConnection;
    case Transfer::kNoAnswer:
      return ResultCode::kNoAnswer;
    case Transfer::kNotSecure:
      return ResultCode::kNotSecure;
    case Transfer::kComplete:
      break;
  }
  if (answer.Status == 401 || answer.Status == 403) return ResultCode::kRefused;
  return answer.Status >= 200 && answer.Status <= 299 ? ResultCode::kSuccess
                                                      : ResultCode::kNoAnswer;
}

ResultCode JudgeReport(const Answer& answer) {
  const ResultCode code = JudgeAnswer(answer);
  if (code != ResultCode::kSuccess) return code;
  return AsksForSignIn(answer.Address) || IsHtml(answer) ? ResultCode::kRefused : code;
}

}  // namespace quillbox
