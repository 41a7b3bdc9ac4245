#include "retrieval/sign_in_address.h"

#include "text/escaping.h"

namespace quillbox {

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
