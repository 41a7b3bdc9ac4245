// The fetch program's one argument, taken apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// What the argument says before anything in it is understood: enough to leave a result code.
struct AgentText {
  std::string Request;   // signed in or plain, see ParseAgentRequest
  std::string DataPath;  // bytes of the host's file system
  std::string LogPath;   // likewise
};

// Cut at the last two "|", so that one in a password stays where it is. Nothing when there are not
// two of them or a path is empty.
std::optional<AgentText> SplitAgentText(std::string_view text);

struct Credentials {
  std::string Email;     // code page, decoded
  std::string Password;  // code page, decoded
};

struct AgentRequest {
  std::optional<Credentials> SignIn;  // absent: the address is fetched without signing in
  std::string Address;
};

// Signed in: "Email=", a value, "&Passwd=", a value, "%#%" and the address; plain: the address.
// The cut is at the last "%#%", so that one in a password stays where it is. Nothing when the form
// data lack one of their two names or there is no address.
std::optional<AgentRequest> ParseAgentRequest(std::string_view request);

// The body of the sign-in, as a form that any web service can read.

// "Email=...&Passwd=..." with both values in UTF-8, all bytes but letters, digits and - . _ ~ as
// "%" and two capital hexadecimal digits.
std::string SignInForm(const Credentials& credentials);

}  // namespace quillbox
