// The power goes in the middle of Apply: each setting is the old or the new one, and the account
// lists are of one piece.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "options/opts.h"
#include "simulated/context_on_state.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

// The dialog of a program that keeps its settings in the profile's file, or in the per-user store.
class FilledOptions : public ContextOnState {
 public:
  FilledOptions(const std::string& profile, std::uint64_t seed) : ContextOnState(seed) {
    state_.SettingsProfile = profile;
    state_.ShowBalloonWhen = kBalloonNever;  // as after the start
    BuildTraySubmenus(program_);
    form_.Load();
  }

  // Gives every field of every page a value that belongs to `generation`, one to seven accounts
  // among them, and presses "Apply": all pages are written.
  void Apply(unsigned generation) {
    SetAccounts(generation);
    SetFields(generation);
    for (bool* changed :
         {&form_.GeneralFrame.GeneralChanged, &form_.AdSenseFrame.AdSenseChanged,
          &form_.AutoUpdateFrame.AutoUpdateChanged, &form_.TrayIconFrame.TrayIconChanged,
          &form_.TrayTooltipFrame.TrayTooltipChanged, &form_.SoundsFrame.SoundsChanged,
          &form_.ProxyFrame.ProxyChanged}) {
      form_.Mark.Set(*changed);
    }
    form_.Mark.ApplyButton.Click();
  }

  SimulatedFiles& Disk() { return host_.Files; }
  std::vector<SimulatedStore::Entry> UserStore() const { return host_.Store.All(); }
  std::string Get(const SettingKey& key) const { return store_.ReadSetting(key); }

 private:
  void TestBody() override {}

  void SetAccounts(unsigned generation) {
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

  void SetFields(unsigned generation) {
    const std::string text = std::to_string(generation);
    for (Control* control : ControlsOf(host_.Windows, FormName::kOpts)) {
      if (auto* box = dynamic_cast<CheckBox*>(control)) box->SetTicked(generation % 2 == 1);
      if (auto* field = dynamic_cast<TextField*>(control)) field->SetText(text);
    }
    for (ListField* list : {&form_.AutoUpdateFrame.Combo4, &form_.TrayIconFrame.Combo5,
                            &form_.TrayIconFrame.Combo1, &form_.TrayIconFrame.Combo2,
                            &form_.TrayTooltipFrame.Combo6, &form_.TrayTooltipFrame.Combo7}) {
      list->Select(generation % list->Items().size());
    }
    form_.TrayIconFrame.IconChoice = text + ".ico";
    form_.SoundsFrame.SoundChoices.fill(text + ".wav");
  }

  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{host_.Chooser};
  Opts form_{program_, autoUpdate_, dialog_};
};

std::vector<SimulatedStore::Entry> SettingsOf(unsigned generation) {
  FilledOptions options("", 0);
  options.Apply(generation);
  return options.UserStore();
}

TEST(ApplyPower, StopsBetweenPages) {
  const auto before = SettingsOf(1), after = SettingsOf(2);
  int mixed = 0;
  for (std::uint64_t seed = 0; seed < 5; ++seed) {
    bool done = false;
    for (int step = 0; !done; ++step) {
      FilledOptions options("ann", seed);
      options.Apply(1);
      options.Disk().LosePowerAtStep(step);
      options.Apply(2);
      done = options.Disk().HasPower();
      options.Disk().PowerBack();
      int settings[2] = {}, accounts[2] = {};  // old ones and new ones
      for (std::size_t i = 0; i < before.size(); ++i) {
        const std::string value = options.Get({before[i].Section, before[i].Key});
        const bool isOld = value == before[i].Value, isNew = value == after.at(i).Value;
        EXPECT_TRUE(isOld || isNew) << before[i].Section << '/' << before[i].Key << '=' << value;
        if (isOld == isNew) continue;
        ++settings[isNew];
        if (before[i].Section == kAccounts.Section) ++accounts[isNew];
      }
      EXPECT_TRUE(accounts[0] == 0 || accounts[1] == 0) << "mixed lists";
      EXPECT_TRUE(!done || settings[0] == 0) << "a finished Apply outlives the power";
      if (settings[0] > 0 && settings[1] > 0) ++mixed;
      ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step;
    }
  }
  EXPECT_GE(mixed, 6);
}

}  // namespace
}  // namespace quillbox
