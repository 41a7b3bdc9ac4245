// The program's windows, without a screen.
#pragma once

#include <string>
#include <vector>

#include "about/about_win.h"
#include "forms/controls.h"
#include "options/account.h"
#include "options/opts.h"
#include "platform/forms.h"
#include "reports/reports_win.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

class SimulatedForms final : public Forms {
 public:
  explicit SimulatedForms(SimulatedTrace& trace) : trace_(trace) {}

  // The forms that are loaded; null while they aren't.
  quillbox::AboutWin* AboutWin() const { return aboutWin_; }
  quillbox::Opts* Opts() const { return opts_; }
  quillbox::Account* Account() const { return account_; }
  quillbox::ReportsWin* ReportsWin() const { return reportsWin_; }

  // The person closes the window by its close box; nothing when it isn't loaded.
  void CloseBox(FormName form) { Unload(form); }

  // The process is gone, and its windows with it.
  void ProgramEnded();

  void Load(quillbox::AboutWin& form) override;
  void Load(quillbox::Opts& form) override;
  void Load(quillbox::Account& form) override;
  void Load(quillbox::ReportsWin& form) override;
  void Hide(FormName form) override;
  void Unload(FormName form) override;
  void UnloadAll() override;

 private:
  template <typename Form>
  void Show(Form*& place, Form& form, const char* name);
  template <typename Form>
  void Close(Form*& place, const char* name);

  SimulatedTrace& trace_;
  quillbox::AboutWin* aboutWin_ = nullptr;
  quillbox::Opts* opts_ = nullptr;
  quillbox::Account* account_ = nullptr;
  quillbox::ReportsWin* reportsWin_ = nullptr;
};

bool IsLoaded(const SimulatedForms& forms, FormName form);

// In the order in which they stand; those of all pages. None when the form isn't loaded. They live
// as long as the form.
std::vector<Control*> ControlsOf(const SimulatedForms& forms, FormName form);

// What the control shows, "True" or "False" for a tick box; empty for a button. Passwords and
// addresses of accounts are "...".
std::string ControlValue(const Control& control);

}  // namespace quillbox
