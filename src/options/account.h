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

class Account {
 public:
  enum class Mode { kAdd, kEdit };

  // The arguments must outlive the form.
  Account(Mode mode, const ProgramContext& program, AdSenseFrame& accounts);

  const std::string Caption;  // tells the person the mode
  TextField Text1{"Text1", "Account Name:"};
  TextField Text2{"Text2", "E-mail Address:"};
  TextField Text3{"Text3", "Password:", TextField::Echo::kStars};
  Button Command1{"Command1", "OK"};
  Button Command2{"Command2", "Cancel"};
  // Asks for a grant and puts its name into Text3. If no account holds the grant in the end, it is
  // forgotten when the Options close.
  Button Connect{"Connect", "Co&nnect..."};
  // While a grant is asked for: what goes on, and the way out of it.
  NoteField Waiting{"Waiting", ""};
  Button StopWaiting{"StopWaiting", "&Stop"};

  std::int16_t AdSenseIndex = 0;  // of the account that is edited

  bool Loaded() const { return loaded_; }
  void Load();
  // The window has gone. A request for a grant is given up.
  void Closed();

 private:
  void OK_Click();
  void Connect_Click();
  void Answered(const GrantAnswer& answer);
  void BeginWaiting();
  void ShowTimeLeft();
  void EndWaiting();
  bool AccountNameExists(std::string_view name) const;
  bool Edits() const { return mode_ == Mode::kEdit; }
  std::size_t Index() const;          // of the edited or the new account
  AccountList ListWithEntry() const;  // as it would be; three lists of one length
  std::optional<std::string> Refusal(const AccountList& list) const;
  void Take(AccountList list);

  const Mode mode_;
  const ProgramContext& program_;
  AdSenseFrame& accounts_;
  bool loaded_ = false;
  std::unique_ptr<GrantAsking> asking_;
  int minutesLeft_ = 0;            // for the person's answer
  std::unique_ptr<Timer> minute_;  // while there are any
};

}  // namespace quillbox
