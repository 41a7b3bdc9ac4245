// The Options dialog on a state that the test owns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/setting_keys.h"
#include "shell/form_on_state.h"
#include "simulated/simulated_forms.h"
#include "text/text_list.h"

namespace quillbox {

class OpenOptions : public FormOnState {
 protected:
  OpenOptions() { StartAfresh(); }

  // As after a first start.
  void StartAfresh() {
    for (const auto& entry : host_.Store.All()) host_.Store.Put(entry.Section, entry.Key, "");
    state_.ShowBalloonWhen = kBalloonNever;
    state_.SoundFiles.fill(std::string(kNoSound));
  }

  // Opens the dialog anew with these settings besides: "General/Pause=True; Misc/LastOption=x".
  // Whatever the trace held is gone.
  Opts& Open(const std::string& settings = "") {
    host_.Windows.Unload(FormName::kOpts);
    for (const std::string& setting : SplitText(settings, "; ")) {
      const std::size_t slash = setting.find('/'), equals = setting.find('=');
      host_.Store.Put(setting.substr(0, slash), setting.substr(slash + 1, equals - slash - 1),
                      setting.substr(equals + 1));
    }
    host_.Effects.Clear();
    form_.Options_Click();
    return Form();
  }

  Opts& Form() { return *host_.Windows.Opts(); }
  void PressApply() { Form().Mark.ApplyButton.Click(); }
  std::string Get(const SettingKey& key) { return store_.ReadSetting(key); }

  Control& Named(std::string_view name) {
    for (Control* control : ControlsOf(host_.Windows, FormName::kOpts)) {
      if (control->Name() == name) return *control;
    }
    throw std::out_of_range(std::string(name));
  }

  // What these controls show, in order: "True|Every hour, disabled".
  std::string Shown(const std::string& names) {
    std::vector<std::string> shown;
    for (const std::string& name : SplitText(names, " ")) {
      const Control& control = Named(name);
      shown.push_back(ControlValue(control) + (control.Enabled() ? "" : ", disabled"));
    }
    return JoinText(shown, "|");
  }
};

}  // namespace quillbox
