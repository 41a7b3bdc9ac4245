#include "consent_page.h"

#include <utility>

#include "error_answers.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

constexpr const char* kNotToBeTrusted = "This program is not known here, or leads elsewhere.";

std::string HiddenField(const std::string& name, const std::string& value) {
  return "<input type=\"hidden\" name=\"" + HtmlText(name) + "\" value=\"" + HtmlText(value) +
         "\">";
}

std::string FormOf(const FormFields& fields, const std::string& email) {
  std::string form = "<form method=\"post\" action=\"/authorize\">";
  for (const auto& [name, value] : fields) form += HiddenField(name, value);
  return form + HiddenField("account", email) + "<p>" + HtmlText(email) +
         " <button name=\"decision\" value=\"allow\">Allow</button>"
         " <button name=\"decision\" value=\"deny\">Deny</button></p></form>\n";
}

GoodAnswer Redirect(const std::string& address) {
  return {302, "", "text/plain", {{"Location", address}, {"Cache-Control", "no-store"}}};
}

GoodAnswer RefusedWith(const Authorization& wish, const std::string& error) {
  return Redirect(RedirectWith(wish, "error", error));
}

}  // namespace

ConsentPage::ConsentPage(const ApiOptions& options, std::set<std::string> emails, Grants& grants)
    : options_(options), emails_(std::move(emails)), grants_(grants) {}

GoodAnswer ConsentPage::Ask(const FormFields& fields) {
  const auto wish = ParseAuthorization(fields, options_.ClientId);
  if (!wish) return PlainPage(400, kNotToBeTrusted);
  if (!wish->Error.empty()) return RefusedWith(*wish, wish->Error);
  if (options_.Asks == Consent::kDeny) return RefusedWith(*wish, "access_denied");
  if (options_.Asks == Consent::kAuto) {
    const bool hinted = !wish->LoginHint.empty() || emails_.empty();
    return Allow(*wish, hinted ? wish->LoginHint : *emails_.begin());
  }
  std::string forms;
  for (const std::string& email : emails_) forms += FormOf(fields, email);
  return {200,
          "<html><head><meta charset=\"utf-8\"><title>Allow access?</title></head><body>"
          "<h1>Quillbox wants to read your reports</h1>\n" +
              forms + "</body></html>\n",
          "text/html; charset=utf-8"};
}

GoodAnswer ConsentPage::Decide(const FormFields& fields) {
  const auto wish = ParseAuthorization(fields, options_.ClientId);
  if (!wish) return PlainPage(400, kNotToBeTrusted);
  if (!wish->Error.empty()) return RefusedWith(*wish, wish->Error);
  if (FieldOf(fields, "decision") != "allow") return RefusedWith(*wish, "access_denied");
  return Allow(*wish, FieldOf(fields, "account"));
}

GoodAnswer ConsentPage::Allow(const Authorization& wish, const std::string& email) {
  if (!emails_.contains(email)) return RefusedWith(wish, "access_denied");
  return Redirect(RedirectWith(wish, "code", grants_.NewCode(email, wish)));
}

}  // namespace quillbox
