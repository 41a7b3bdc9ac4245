// Which result code an answer makes.
#include "request/answer.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

Answer Complete(long status, const char* type, const char* address, const char* body) {
  return {Transfer::kComplete, status, type, address, "", body};
}

TEST(Answer, TheStatusDecides) {
  struct Case {
    long status;
    ResultCode code;
  };
  const Case kCases[] = {
      {199, ResultCode::kNoAnswer}, {200, ResultCode::kSuccess},  {204, ResultCode::kSuccess},
      {299, ResultCode::kSuccess},  {300, ResultCode::kNoAnswer}, {302, ResultCode::kNoAnswer},
      {400, ResultCode::kNoAnswer}, {401, ResultCode::kRefused},  {403, ResultCode::kRefused},
      {404, ResultCode::kNoAnswer}, {500, ResultCode::kNoAnswer}, {0, ResultCode::kNoAnswer}};
  for (const Case& c : kCases) {
    const Answer answer = Complete(c.status, "text/plain", "https://h/r", "x\ty\n");
    EXPECT_EQ(JudgeAnswer(answer), c.code) << c.status;
    EXPECT_EQ(JudgeReport(answer), c.code) << c.status;
  }
}

TEST(Answer, AFailedTransferHasItsOwnCodeWhateverTheStatus) {
  Answer answer = Complete(200, "text/plain", "https://h/r", "x");
  answer.Outcome = Transfer::kNoConnection;
  EXPECT_EQ(JudgeReport(answer), ResultCode::kNoConnection);
  answer.Outcome = Transfer::kNoAnswer;
  EXPECT_EQ(JudgeReport(answer), ResultCode::kNoAnswer);
  answer.Outcome = Transfer::kNotSecure;
  EXPECT_EQ(JudgeReport(answer), ResultCode::kNotSecure);
}

TEST(Answer, APageInThePlaceOfAReportIsARefusal) {
  const Answer kPages[] = {
      Complete(200, "text/html; charset=utf-8", "https://h/r", "x\ty\n"),
      Complete(200, "Application/XHTML+xml", "https://h/r", "x"),
      Complete(200, "text/plain", "https://h/r", " \r\n<!DOCTYPE HTML><title>"),
      Complete(200, "", "https://h/r", "<HTML>"),
      Complete(200, "text/plain", "https://h/accounts/ServiceLogin?x", "sign in"),
  };
  for (const Answer& page : kPages) {
    EXPECT_EQ(JudgeReport(page), ResultCode::kRefused) << page.Body << " of " << page.Address;
    EXPECT_EQ(JudgeAnswer(page), ResultCode::kSuccess) << page.Body << " of " << page.Address;
  }
  EXPECT_EQ(JudgeReport(Complete(200, "text/plain", "https://h/r", "")), ResultCode::kSuccess);
  EXPECT_EQ(JudgeReport(Complete(200, "text/plain", "https://h/r", " \n")), ResultCode::kSuccess);
}

}  // namespace
}  // namespace quillbox
