#include "request/sign_in_form.h"

#include "text/code_page.h"
#include "text/escaping.h"

namespace quillbox {
std::string SignInForm(const Credentials& credentials) {
  return "Email=" + PercentEncode(ToUtf8(credentials.Email)) +
         "&Passwd=" + PercentEncode(ToUtf8(credentials.Password));
}

}  // namespace quillbox
