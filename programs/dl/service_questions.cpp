#include "service_questions.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "request/limits.h"
#include "request/web_address.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostLetters = 300;

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

std::string Plain(std::string_view text) {
  std::string plain(text.substr(0, kMostLetters));
  for (char& c : plain) c = static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? ' ' : c;
  // U+0080 to U+009F, two bytes each.
  for (std::size_t i = plain.find('\xC2'); i < plain.size(); i = plain.find('\xC2', i + 1)) {
    const bool control = i + 1 < plain.size() && static_cast<unsigned char>(plain[i + 1]) < 0xA0;
    if (control) plain.replace(i, 2, "  ");
  }
  return plain;
}

std::string WordsFor(const ServiceVerdict& verdict, const std::string& address) {
  const auto parsed = ParseWebAddress(address);
  const std::string host = parsed ? parsed->Host : address;
  const std::string said =
      verdict.Words.empty() ? "" : "\n" + host + " said: " + Plain(verdict.Words);
  switch (verdict.Code) {
    case ResultCode::kSuccess:
      return "Sign-in works.";
    case ResultCode::kNoConnection:
      return verdict.Words.empty() ? "Could not connect to " + host + "." : verdict.Words;
    case ResultCode::kNoAnswer:
      return "No usable answer came from " + host + "." + said;
    case ResultCode::kRefused:
      return host + " refused the sign-in." + said;
    case ResultCode::kNotSecure:
      return "The connection to " + host + " is not secure: nothing was sent.";
  }
  return "";
}

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
