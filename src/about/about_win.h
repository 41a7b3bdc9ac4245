// The About box.
#pragma once

#include <string>

#include "platform/forms.h"
#include "platform/surroundings.h"
#include "state/program_context.h"

namespace quillbox {

// What the window says and does; the host shows it. Texts: code page.
class AboutWin {
 public:
  // `opener` and `forms` must outlive the model.
  AboutWin(const BuildValues& build, AddressOpener& opener, Forms& forms);

  std::string Caption;
  std::string Product;     // name and version
  std::string Credits;     // one line
  std::string WebAddress;  // of the maker's site
  std::string Email;       // the maker's, without "mailto:"

  // Opens the maker's site.
  void WebAddress_Click();

  // Begins a letter to the maker.
  void Email_Click();

  // Closes the window.
  void OK_Click();

 private:
  AddressOpener& opener_;
  Forms& forms_;
};

}  // namespace quillbox
