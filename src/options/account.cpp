#include "options/account.h"

#include <algorithm>
#include <chrono>

#include "config/account_entry_check.h"
#include "options/ad_sense_frame.h"
#include "options/entry_message.h"
#include "platform/forms.h"
#include "retrieval/fetch_agent.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr int kMinutesToAnswer = 5;  // of `dl authorize`

void MoveStats(SettingsStore& store, const std::string& oldName, const std::string& newName) {
  if (newName == oldName) return;
  const AccountKeys oldKeys(oldName), newKeys(newName);
  SettingBatch batch;
  batch.Write(newKeys.Stats(), store.ReadSetting(oldKeys.Stats())).Delete(oldKeys.Stats());
  store.WriteBatch(batch);
}

}  // namespace

Account::Account(std::string caption, const ProgramContext& program, AdSenseFrame& accounts)
    : Caption(std::move(caption)), program_(program), accounts_(accounts) {
  Command1.Clicked = [this] { OK_Click(); };
  Command2.Clicked = [this] { program_.Host.Windows.Unload(FormName::kAccount); };
  Connect.Clicked = [this] { Connect_Click(); };
  StopWaiting.SetEnabled(false);
  StopWaiting.Clicked = [this] {
    asking_.reset();
    EndWaiting();
  };
}

void Account::Load() {
  loaded_ = true;
  program_.Host.Windows.Load(*this);
}

void Account::Closed() {
  loaded_ = false;
  asking_.reset();
  minute_.reset();
}

void Account::Connect_Click() {
  BeginWaiting();
  asking_ = program_.Host.Grants.Ask({Text2.Text(), StoredProxyVariables(program_.Store)},
                                     [this](const GrantAnswer& answer) { Answered(answer); });
}

// The form may be gone when the box is: it comes last.
void Account::Answered(const GrantAnswer& answer) {
  EndWaiting();
  if (answer.Problem.empty()) {
    accounts_.Grants.Made(answer.Name);
    Text3.SetText(answer.Name);
  } else {
    program_.Host.Boxes.Show({.Text = answer.Problem, .Icon = BoxIcon::kExclamation});
  }
}

void Account::BeginWaiting() {
  Connect.SetEnabled(false);
  StopWaiting.SetEnabled(true);
  minutesLeft_ = kMinutesToAnswer;
  minute_ = program_.Host.TimerSource.NewTimer(std::chrono::minutes(1), [this] {
    --minutesLeft_;
    ShowTimeLeft();
    if (minutesLeft_ == 0) minute_->SetEnabled(false);
  });
  minute_->SetEnabled(true);
  ShowTimeLeft();
}

void Account::ShowTimeLeft() {
  const std::string left = minutesLeft_ > 1    ? std::to_string(minutesLeft_) + " minutes left"
                           : minutesLeft_ == 1 ? "1 minute left"
                                               : "less than a minute left";
  Waiting.Say("A browser window has opened. Waiting for you to allow access there: " + left + ".");
}

void Account::EndWaiting() {
  minute_.reset();
  Waiting.Say("");
  StopWaiting.SetEnabled(false);
  Connect.SetEnabled(true);
}

bool Account::AccountNameExists(std::string_view name) const {
  const std::string wanted = UpperCase(name);
  return std::ranges::any_of(program_.State.Accounts, [&](const std::string& account) {
    return UpperCase(account) == wanted;
  });
}

std::size_t Account::Index() const {
  return Edits() ? static_cast<std::size_t>(AdSenseIndex) : program_.State.Accounts.size();
}

AccountList Account::ListWithEntry() const {
  AccountList list = program_.State;
  const std::size_t index = Index();
  const std::size_t count = std::max(list.Accounts.size(), index + 1);
  list.Accounts.resize(count);
  list.Usernames.resize(count);
  list.Passwords.resize(count);
  list.Accounts[index] = Text1.Text();
  list.Usernames[index] = Text2.Text();
  list.Passwords[index] = Text3.Text();
  return list;
}

std::optional<std::string> Account::Refusal(const AccountList& list) const {
  for (const TextField* field : {&Text1, &Text2, &Text3}) {
    if (field->Text().empty()) return IncompleteMessage(*field);
  }
  const bool newName = !Edits() || Text1.Text() != program_.State.Accounts[Index()];
  if (newName && AccountNameExists(Text1.Text())) return std::string(kNameExistsMessage);

  const SettingsMode mode =
      program_.State.SettingsProfile.empty() ? SettingsMode::kPerUser : SettingsMode::kFile;
  const auto finding = FindEntryProblem(list, Index(), mode);
  if (finding) return EntryMessage(*finding, Text1.Text());
  return std::nullopt;
}

void Account::OK_Click() {
  if (Edits() && Index() >= program_.State.Accounts.size()) return;  // it has gone meanwhile
  AccountList list = ListWithEntry();
  if (const std::optional<std::string> refusal = Refusal(list)) {
    program_.Host.Boxes.Show({.Text = *refusal, .Icon = BoxIcon::kExclamation});
    return;
  }
  if (Edits()) MoveStats(program_.Store, program_.State.Accounts[Index()], Text1.Text());
  program_.Host.Windows.Hide(FormName::kAccount);
  Take(std::move(list));
  accounts_.AccountsEdited();
  program_.Host.Windows.Unload(FormName::kAccount);
}

void Account::Take(AccountList list) {
  ListField& names = accounts_.Combo3;
  if (Edits()) {
    if (names.Selected()) names.Replace(*names.Selected(), Text1.Text());
  } else {
    names.Add(Text1.Text());
    if (names.Items().size() == 1) names.ShowSelected(0);
  }
  static_cast<AccountList&>(program_.State) = std::move(list);
}

}  // namespace quillbox
