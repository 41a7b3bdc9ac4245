#include "service_questions.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "api/patience.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

template <typename Ask>
ServiceReply AskPatiently(const Session& session, Ask ask) {
  for (int repeat = 1;; ++repeat) {
    Answer answer = ask();
    ServiceReply reply{JudgeServiceAnswer(answer), std::move(answer.Body)};
    if (!reply.Verdict.WorthRepeating) return reply;
    const auto pause =
        PauseBefore(repeat, session.WholeTime(), session.TimeLeft(), answer.RetryAfter);
    if (!pause) return reply;
    std::this_thread::sleep_for(*pause);
  }
}

}  // namespace

ServiceReply AskForToken(Session& session, const std::string& address, const std::string& form) {
  ServiceReply reply = AskPatiently(session, [&] { return session.PostForm(address, form); });
  std::string& words = reply.Verdict.Words;
  words.resize(std::min(words.size(), words.find(": ")));
  return reply;
}

ServiceReply AskWithToken(Session& session, const std::string& address, const std::string& token) {
  ServiceReply reply = AskPatiently(session, [&] { return session.GetWithToken(address, token); });
  reply.Verdict.Words = WithoutText(reply.Verdict.Words, token);
  return reply;
}

}  // namespace quillbox
