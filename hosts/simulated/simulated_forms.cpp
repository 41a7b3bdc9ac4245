#include "simulated/simulated_forms.h"

namespace quillbox {
namespace {

constexpr char kOptsName[] = "Opts";
constexpr char kReportsWinName[] = "ReportsWin";
constexpr char kAboutWinName[] = "AboutWin";
constexpr char kAccountName[] = "Account";

const char* NameOf(FormName form) {
  switch (form) {
    case FormName::kOpts:
      return kOptsName;
    case FormName::kReportsWin:
      return kReportsWinName;
    case FormName::kAboutWin:
      return kAboutWinName;
    case FormName::kAccount:
      return kAccountName;
  }
  return "";
}

void TellClosed(AboutWin&) {}

template <typename Form>
void TellClosed(Form& form) {
  form.Closed();
}

}  // namespace

template <typename Form>
void SimulatedForms::Show(Form*& place, Form& form, const char* name) {
  if (place != nullptr) return;
  place = &form;
  trace_.Add("form", name);
}

template <typename Form>
void SimulatedForms::Close(Form*& place, const char* name) {
  if (place == nullptr) return;
  Form& form = *place;
  place = nullptr;
  trace_.Add("close", name);
  TellClosed(form);
}

void SimulatedForms::Load(quillbox::AboutWin& form) {
  Show(aboutWin_, form, kAboutWinName);
}

void SimulatedForms::Load(quillbox::Opts& form) {
  Show(opts_, form, kOptsName);
}

void SimulatedForms::Load(quillbox::Account& form) {
  Show(account_, form, kAccountName);
}

void SimulatedForms::Load(quillbox::ReportsWin& form) {
  Show(reportsWin_, form, kReportsWinName);
}

void SimulatedForms::Hide(FormName form) {
  trace_.Add("hide", NameOf(form));
}

void SimulatedForms::Unload(FormName form) {
  switch (form) {
    case FormName::kOpts:
      return Close(opts_, kOptsName);
    case FormName::kReportsWin:
      return Close(reportsWin_, kReportsWinName);
    case FormName::kAboutWin:
      return Close(aboutWin_, kAboutWinName);
    case FormName::kAccount:
      return Close(account_, kAccountName);
  }
}

void SimulatedForms::UnloadAll() {
  for (const FormName form :
       {FormName::kAccount, FormName::kOpts, FormName::kReportsWin, FormName::kAboutWin}) {
    Unload(form);
  }
}

void SimulatedForms::ProgramEnded() {
  aboutWin_ = nullptr;
  opts_ = nullptr;
  account_ = nullptr;
  reportsWin_ = nullptr;
}

}  // namespace quillbox
