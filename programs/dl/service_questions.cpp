#include "service_questions.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "api/patience.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

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

// The status, and the kind of error where it is letters and "_" alone: no secret looks like that.
std::string ShortWords(const std::string& words) {
  const std::string kind = words.substr(0, words.find(": "));
  const std::size_t cut = std::min(kind.find(' '), kind.size());
  const bool isName = std::all_of(kind.begin() + static_cast<std::ptrdiff_t>(cut), kind.end(),
                                  [](char c) { return IsLetter(c) || c == '_' || c == ' '; });
  return isName ? kind : kind.substr(0, cut);
}

}  // namespace

ServiceReply AskForToken(Session& session, const std::string& address, const std::string& form) {
  ServiceReply reply = AskPatiently(session, [&] { return session.PostForm(address, form); });
  reply.Verdict.Words = ShortWords(reply.Verdict.Words);
  return reply;
}

ServiceReply AskWithToken(Session& session, const std::string& address, const std::string& token) {
  ServiceReply reply = AskPatiently(session, [&] { return session.GetWithToken(address, token); });
  reply.Verdict.Words = WithoutText(reply.Verdict.Words, token);
  return reply;
}

}  // namespace quillbox
