// The form that adds or edits one account.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/controls.h"
#include "platform/agents.h"
#include "platform/timing.h"
#include "state/program_context.h"

namespace quillbox {

class AdSenseFrame;

// The two captions; they tell the form its mode.
inline constexpr std::string_view kAddAccountCaption = "Add AdSense Account";
inline constexpr std::string_view kEditAccountCaption = "Edit AdSense Account";

class Account {
 public:
  // `caption` is one of the two above. The other arguments must outlive the form.
  Account(std::string caption, const ProgramContext& program, AdSenseFrame& accounts);

  const std::string Caption;
  TextField Text1{"Text1", "Account Name:"};
  TextField Text2{"Text2", "E-mail Address:"};
  TextField Text3{"Text3", "Password:", TextField::Echo::kStars};
  Button Command1{"Command1", "OK"};
  Button Command2{"Command2", "Cancel"};
  // Asks for a grant, whose name then stands in Text3. Should it come to stand in no account, it is
  // forgotten with the Options.
  Button Connect{"Connect", "Co&nnect..."};
  // While a grant is asked for: what goes on, and the way out of it.
  NoteField Waiting{"Waiting", ""};
  Button StopWaiting{"StopWaiting", "&Stop"};

  std::int16_t AdSenseIndex = 0;  // of the account that is edited

  bool Loaded() const { return loaded_; }
  void Load();
  // The window has gone. An asking for a grant is given up.
  void Closed();

 private:
  void OK_Click();
  void Connect_Click();
  void Answered(const GrantAnswer& answer);
  void BeginWaiting();
  void ShowTimeLeft();
  void EndWaiting();
  bool AccountNameExists(std::string_view name) const;
  bool Edits() const { return Caption == kEditAccountCaption; }
  std::size_t Index() const;          // of the edited or the new account
  AccountList ListWithEntry() const;  // as it would be; three lists of one length
  std::optional<std::string> Refusal(const AccountList& list) const;
  void Take(AccountList list);

  const ProgramContext& program_;
  AdSenseFrame& accounts_;
  bool loaded_ = false;
  std::unique_ptr<GrantAsking> asking_;
  int minutesLeft_ = 0;            // for the person's answer
  std::unique_ptr<Timer> minute_;  // while there are any
};

}  // namespace quillbox
