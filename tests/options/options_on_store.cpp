#include "options/options_on_store.h"

#include <cstdlib>
#include <string_view>

#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"
#include "tray/tray_menu.h"

namespace quillbox {

OptionsOnStore::OptionsOnStore(PerUserStore& userStore, Files& files, const std::string& folder,
                               const std::string& profile)
    : folder_(folder, folder, '/'), store_(userStore, files, folder_, state_.SettingsProfile) {
  state_.SettingsProfile = profile;
  state_.ShowBalloonWhen = kBalloonNever;  // as after the start
  BuildTraySubmenus(program_);
  form_.Load();
}

void OptionsOnStore::Apply(unsigned generation) {
  SetAccounts(generation);
  SetFields(generation);
  MarkAllPages();
  form_.Mark.ApplyButton.Click();
}

void OptionsOnStore::SetAccounts(unsigned generation) {
  ListField& names = form_.AdSenseFrame.Combo3;
  while (!names.Items().empty()) names.Remove(0);
  static_cast<AccountList&>(state_) = {};
  for (unsigned i = 0; i <= generation % 7; ++i) {
    const std::string account = std::to_string(generation) + "-" + std::to_string(i);
    state_.Accounts.push_back(account);
    state_.Usernames.push_back("mail " + account);
    state_.Passwords.push_back("secret " + account);
    names.Add(account);
  }
  names.Select(names.Items().size() - 1);
}

void OptionsOnStore::SetFields(unsigned generation) {
  const bool odd = generation % 2 == 1;
  GeneralFrame& general = form_.GeneralFrame;
  for (CheckBox* box :
       {&general.Check11, &general.Check5, &general.Check14, &general.Check3, &general.Check1,
        &form_.AutoUpdateFrame.Check7, &form_.TrayTooltipFrame.Check4, &form_.ProxyFrame.Check12}) {
    box->SetTicked(odd);
  }
  for (CheckBox* box : form_.TrayTooltipFrame.Values()) box->SetTicked(odd);
  for (ListField* list : {&form_.AutoUpdateFrame.Combo4, &form_.TrayIconFrame.Combo5,
                          &form_.TrayIconFrame.Combo1, &form_.TrayIconFrame.Combo2,
                          &form_.TrayTooltipFrame.Combo6, &form_.TrayTooltipFrame.Combo7}) {
    list->Select(generation % list->Items().size());
  }
  const std::string text = std::to_string(generation);
  form_.TrayIconFrame.IconChoice = text + ".ico";
  form_.SoundsFrame.SoundChoices.fill(text + ".wav");
  ProxyFrame& proxy = form_.ProxyFrame;
  for (TextField* field : {&proxy.Text1, &proxy.Text2, &proxy.Text3, &proxy.Text4}) {
    field->SetText(text);
  }
}

void OptionsOnStore::MarkAllPages() {
  for (bool* changed :
       {&form_.GeneralFrame.GeneralChanged, &form_.AdSenseFrame.AdSenseChanged,
        &form_.AutoUpdateFrame.AutoUpdateChanged, &form_.TrayIconFrame.TrayIconChanged,
        &form_.TrayTooltipFrame.TrayTooltipChanged, &form_.SoundsFrame.SoundsChanged,
        &form_.ProxyFrame.ProxyChanged}) {
    form_.Mark.Set(*changed);
  }
}

namespace {

// All settings after an Apply of this generation.
std::vector<SimulatedStore::Entry> SettingsOf(unsigned generation) {
  SimulatedStore store;
  SimulatedFiles files;
  OptionsOnStore(store, files, "/app", "").Apply(generation);
  return store.All();
}

}  // namespace

StoppedApply InspectStoppedApply(const SettingsStore& store) {
  StoppedApply found;
  // Written last.
  const std::string last = store.ReadSetting(kProxyPort);
  found.Generation = static_cast<unsigned>(std::strtoul(last.c_str(), nullptr, 10));
  const auto before = SettingsOf(found.Generation), after = SettingsOf(found.Generation + 1);
  bool oldAccounts = false, newAccounts = false;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::string value = store.ReadSetting({before[i].Section, before[i].Key});
    const bool isOld = value == before[i].Value, isNew = value == after.at(i).Value;
    if (!isOld && !isNew) found.Problem += before[i].Section + "/" + before[i].Key + "=" + value;
    if (isOld == isNew) continue;
    ++(isOld ? found.Old : found.New);
    if (before[i].Section == kAccounts.Section) (isOld ? oldAccounts : newAccounts) = true;
  }
  if (oldAccounts && newAccounts) found.Problem += " mixed accounts";
  return found;
}

}  // namespace quillbox
