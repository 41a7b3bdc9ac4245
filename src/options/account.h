// The form that adds or edits one account.
#pragma once

#include <cstdint>
#include <string>

#include "forms/button.h"
#include "forms/text_field.h"
#include "state/program_context.h"

namespace quillbox {

class AdSenseFrame;

class Account {
 public:
  // `caption` tells the form its mode: "Add AdSense Account" or "Edit AdSense Account". The other
  // arguments must outlive the form.
  Account(std::string caption, const ProgramContext& program, AdSenseFrame& accounts);

  const std::string Caption;
  TextField Text1{"Text1", "Account Name:"};
  TextField Text2{"Text2", "E-mail Address:"};
  TextField Text3{"Text3", "Password:", TextField::Echo::kStars};
  Button Command1{"Command1", "OK"};
  Button Command2{"Command2", "Cancel"};

  std::int16_t AdSenseIndex = 0;  // of the account that is edited

  bool Loaded() const { return loaded_; }
  void Load();
  // The window has gone.
  void Closed() { loaded_ = false; }

 private:
  void OK_Click();
  bool AccountNameExists(std::string_view name) const;

  const ProgramContext& program_;
  AdSenseFrame& accounts_;
  bool loaded_ = false;
};

}  // namespace quillbox
