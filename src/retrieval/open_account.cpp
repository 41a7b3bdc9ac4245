#include "retrieval/open_account.h"

#include <algorithm>

#include "config/setting_keys.h"
#include "platform/forms.h"
#include "platform/surroundings.h"
#include "text/escaping.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

// The name of a grant is no password: the sign-in page gets nothing, and the person signs in there.
void OpenAt(const ProgramContext& program, std::size_t index) {
  const std::string& host = program.Build.ServiceHost;
  const std::string password = program.State.PasswordAt(index);
  AddressOpener& opener = program.Host.Opener;
  if (IsGrantName(password)) return opener.Open("https://" + host + "/");
  opener.OpenPrivately(SignInAddress(program.State.UsernameAt(index), password, host));
}

}  // namespace

void OpenAccount(const ProgramContext& program, std::string name) {
  const AppState& state = program.State;
  if (state.Accounts.empty()) {
    program.Host.Boxes.Show({.Text = "You must complete the \"AdSense\" section of the Quillbox\r\n"
                                     "Options before attempting to log into your AdSense account!",
                             .Icon = BoxIcon::kInformation});
    return;
  }
  if (name.empty()) name = program.Store.ReadSetting(kPrimaryAccount);
  const auto found = std::find(state.Accounts.begin(), state.Accounts.end(), name);
  if (found == state.Accounts.end()) return;
  OpenAt(program, static_cast<std::size_t>(found - state.Accounts.begin()));
}

std::string SignInAddress(std::string_view username, std::string_view password,
                          std::string_view serviceHost) {
  const std::string service = "https://" + std::string(serviceHost);
  const std::string landing = service + "/adsense/gaiaauth";
  return service + "/accounts/ServiceLoginAuth?ltmpl=login&continue=" + landing +
         "&followup=" + landing +
         "&service=adsense&nui=3&ifr=true&rm=hide&ltmpl=login&hl=en-US&alwf=true&Email=" +
         EncodeFormValue(username) + "&Passwd=" + EncodeFormValue(password) + "&null=Sign+in";
}

}  // namespace quillbox
