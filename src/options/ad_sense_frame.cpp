#include "options/ad_sense_frame.h"

#include <algorithm>
#include <utility>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "evaluation/tray_stats.h"
#include "platform/agents.h"
#include "platform/forms.h"
#include "retrieval/fetch_agent.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

void ForgetStatistics(SettingsStore& store, const std::string& account) {
  const AccountKeys keys(account);
  SettingBatch batch;
  batch.Delete(keys.Stats()).Delete(keys.Impressions());
  store.WriteBatch(batch);
}

// Without the accounts that have no name.
AccountList Named(const AccountList& old) {
  AccountList list;
  for (std::size_t i = 0; i < old.Accounts.size(); ++i) {
    if (old.Accounts[i].empty()) continue;
    list.Accounts.push_back(old.Accounts[i]);
    list.Usernames.push_back(old.UsernameAt(i));
    list.Passwords.push_back(old.PasswordAt(i));
  }
  return list;
}

void AddGrantsOf(const AccountList& list, std::set<std::string>& names) {
  for (const std::string& password : list.Passwords) {
    if (IsGrantName(password)) names.insert(password);
  }
}

// Opening the Options wrote the page to open with: a store without it keeps nothing or can't be
// read. A list without its passwords could not be unscrambled.
bool IsCertain(const AccountList& stored, const SettingsStore& store) {
  return !store.ReadSetting(kLastOption).empty() &&
         stored.Passwords.size() == stored.Accounts.size();
}

}  // namespace

AdSenseFrame::AdSenseFrame(const ProgramContext& program, ChangeMark& mark)
    : Grants(program), program_(program), mark_(mark) {
  Command7.SetEnabled(false);
  Command6.SetEnabled(false);
  Combo3.Clicked = [this] { mark_.Set(AdSenseChanged); };
  Command5.Clicked = [this] { Add_Click(); };
  Command7.Clicked = [this] { Edit_Click(); };
  Command6.Clicked = [this] { Remove_Click(); };
}

void AdSenseFrame::LoadAdSenseFrame() {
  Grants.Opened();
  for (const std::string& account : program_.State.Accounts) Combo3.Add(account);
  if (!Combo3.Items().empty()) {
    const std::string primary = program_.Store.ReadSetting(kPrimaryAccount);
    if (primary.empty()) {
      Combo3.Select(0);
    } else {
      Combo3.SelectText(primary);
    }
    Command7.SetEnabled(true);
    Command6.SetEnabled(true);
  }
  AdSenseChanged = false;
}

void AdSenseFrame::Apply() {
  AccountList& accounts = program_.State;
  accounts = InStorableOrder(accounts);
  SettingBatch batch;
  batch.Write(kPrimaryAccount, Combo3.Text());
  SaveAccountList(batch, program_.State);
  program_.Store.WriteBatch(batch);
  RebuildAccountMenus(program_);
}

std::optional<std::size_t> AdSenseFrame::AccountIndexOf(std::string_view name) const {
  const std::vector<std::string>& accounts = program_.State.Accounts;
  const auto found = std::find(accounts.begin(), accounts.end(), name);
  if (found == accounts.end()) return std::nullopt;
  return static_cast<std::size_t>(found - accounts.begin());
}

void AdSenseFrame::AccountsEdited() {
  Command7.SetEnabled(true);
  Command6.SetEnabled(true);
  mark_.Set(AdSenseChanged);
}

void AdSenseFrame::Add_Click() {
  if (AccountForm && AccountForm->Loaded()) return;
  AccountForm = std::make_unique<Account>(Account::Mode::kAdd, program_, *this);
  AccountForm->Load();
}

void AdSenseFrame::Edit_Click() {
  if (AccountForm && AccountForm->Loaded()) return;
  if (!Combo3.Selected()) return;
  const std::optional<std::size_t> index = AccountIndexOf(Combo3.Text());
  if (!index) return;
  AccountForm = std::make_unique<Account>(Account::Mode::kEdit, program_, *this);
  AccountForm->AdSenseIndex = static_cast<std::int16_t>(*index);
  AccountForm->Text1.SetText(program_.State.Accounts[*index]);
  AccountForm->Text2.SetText(program_.State.UsernameAt(*index));
  AccountForm->Text3.SetText(program_.State.PasswordAt(*index));
  AccountForm->Load();
}

void AdSenseFrame::Remove_Click() {
  if (!Combo3.Selected()) return;
  const BoxAnswer answer =
      program_.Host.Boxes.Show({.Text = "Are you want to remove the selected AdSense account?",
                                .Buttons = BoxButtons::kYesNo});
  if (answer == BoxAnswer::kYes && Combo3.Selected()) RemoveSelected(*Combo3.Selected());
}

void AdSenseFrame::RemoveSelected(std::size_t entry) {
  const std::string name = Combo3.Items()[entry];
  AccountList& list = program_.State;
  if (const auto index = AccountIndexOf(name)) list.Accounts[*index].clear();
  ForgetStatistics(program_.Store, name);
  Combo3.Remove(entry);

  const std::size_t left = Combo3.Items().size();
  list = left == 0 ? AccountList() : Named(list);
  if (left > 0) {
    Combo3.ShowSelected(left - 1);
  } else {
    Command7.SetEnabled(false);
    Command6.SetEnabled(false);
  }
  mark_.Set(AdSenseChanged);
}

void GrantKeeping::Opened() {
  AddGrantsOf(program_.State, noted_);
  AddGrantsOf(LoadAccountList(program_.Store), noted_);
}

void GrantKeeping::Closed() {
  const std::set<std::string> noted = std::exchange(noted_, {});
  const AccountList stored = LoadAccountList(program_.Store);
  if (!IsCertain(stored, program_.Store)) return;
  std::set<std::string> inUse;
  AddGrantsOf(program_.State, inUse);
  AddGrantsOf(stored, inUse);
  for (const std::string& name : noted) {
    if (inUse.contains(name)) continue;
    program_.Host.Grants.Forget(name, StoredProxyVariables(program_.Store));
  }
}

}  // namespace quillbox
