#include "options/account.h"

#include <algorithm>
#include <chrono>

#include "config/account_list.h"
#include "options/ad_sense_frame.h"
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

constexpr std::string_view kNameExistsMessage = "The entered account name already exists!";

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

std::string NameOf(AccountField field) {
  switch (field) {
    case AccountField::kName:
      return Quoted("Account Name");
    case AccountField::kUsername:
      return Quoted("E-mail Address");
    case AccountField::kSecret:
      break;
  }
  return Quoted("Password");
}

// The field is empty.
std::string IncompleteMessage(const TextField& field) {
  const std::string& label = field.Caption();  // ends in a colon
  return "You must complete the " + Quoted(label.substr(0, label.size() - 1)) + " field!";
}

// `account`: the name that was entered.
std::string EntryMessage(const EntryFinding& finding, std::string_view account) {
  const std::string field = NameOf(finding.Field);
  const std::string refused =
      "The " + field + " of the account " + Quoted(account) + " can't be stored: ";
  switch (finding.Problem) {
    case EntryProblem::kCharacter:
      return "The " + field + " field holds a character that can't be stored!";
    case EntryProblem::kKeyTaken:
      return std::string(kNameExistsMessage);
    case EntryProblem::kNoKey:
      return "The " + field +
             " field can't hold \"=\", begin with \"[\" or \";\", or begin or end with a blank!";
    case EntryProblem::kPasswordRange:
      return refused + "it is too long, or an accented letter stands too far back in it!";
    case EntryProblem::kThreeBars:
      return refused + "it would hold three bars in a row!";
    case EntryProblem::kBarAtEnd:
      return refused +
             "it would get a bar at its end. Please change its last character or its length!";
    case EntryProblem::kTooLong:
      break;
  }
  return "The " + field + " fields of all accounts together are too long to be stored!";
}

}  // namespace

Account::Account(Mode mode, const ProgramContext& program, AdSenseFrame& accounts)
    : Caption(mode == Mode::kEdit ? "Edit AdSense Account" : "Add AdSense Account"),
      mode_(mode),
      program_(program),
      accounts_(accounts) {
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
