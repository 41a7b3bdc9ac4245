// Any argument of the fetch program: taken apart it loses nothing, and what the program encodes
// comes back whatever else stands in the text.
#include "fuzz/fuzz_input.h"
#include "request/agent_text.h"
#include "request/limits.h"
#include "request/web_address.h"
#include "text/escaping.h"

namespace {

using namespace quillbox;

void CheckSplit(std::string_view text) {
  const auto parts = SplitAgentText(text);
  if (!parts) return;
  Require(parts->Request + "|" + parts->DataPath + "|" + parts->LogPath == text);
  Require((parts->DataPath + parts->LogPath).find('|') == std::string::npos);
}

bool IsFormText(const std::string& form) {
  constexpr std::string_view kMarks = "%-._~&=";
  for (const char c : form) {
    const bool letter = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (!letter && kMarks.find(c) == std::string_view::npos) return false;
  }
  return true;
}

void CheckRequest(std::string_view text) {
  const auto request = ParseAgentRequest(text);
  if (!request) return;
  Require(!request->Address.empty() && text.ends_with(request->Address));
  if (request->SignIn) Require(IsFormText(SignInForm(*request->SignIn)));
  const auto address = ParseWebAddress(request->Address);
  if (!address) return;
  Require(request->Address.ends_with(address->Host + address->Path));
  const auto signIn = ParseWebAddress(SignInAddress(address->Host));
  Require(signIn && signIn->Host == address->Host && signIn->Protocol == Scheme::kHttps);
}

// `text` halved gives an e-mail address and a password.
void CheckRoundTrip(std::string_view text) {
  const std::string email(text.substr(0, text.size() / 2));
  const std::string password(text.substr(text.size() / 2));
  const std::string address = "https://service.example.test/report?product=afc";
  const auto parts =
      SplitAgentText("Email=" + EncodeFormValue(email) + "&Passwd=" + EncodeFormValue(password) +
                     "%#%" + address + "|/a b/d|/a b/l");
  Require(parts && parts->DataPath == "/a b/d" && parts->LogPath == "/a b/l");
  const auto request = ParseAgentRequest(parts->Request);
  Require(request && request->SignIn && request->Address == address);
  Require(request->SignIn->Email == email && request->SignIn->Password == password);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  CheckSplit(text);
  CheckRequest(text);
  CheckRoundTrip(text);
  Require(ShortenedLimits(text).Total <= Limits{}.Total);
  return 0;
}
