#include "about/about_win.h"

namespace quillbox {

AboutWin::AboutWin(const BuildValues& build, AddressOpener& opener, Forms& forms)
    : Caption("About Quillbox"),
      Product("Quillbox " + build.Version),
      Credits("Made by Tarnwick Works for people who publish."),
      WebAddress(build.MakerAddress),
      Email(build.MakerEmail),
      opener_(opener),
      forms_(forms) {}

void AboutWin::WebAddress_Click() {
  opener_.Open(WebAddress);
}

void AboutWin::Email_Click() {
  opener_.Open("mailto:" + Email);
}

void AboutWin::OK_Click() {
  forms_.Unload(FormName::kAboutWin);
}

}  // namespace quillbox
