#include "simulated/simulated_forms.h"

#include "config/setting_keys.h"
#include "forms/controls.h"

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

namespace {

using Controls = std::vector<Control*>;

Controls Of(GeneralFrame& page) {
  return {&page.Check11, &page.Check5, &page.Check14, &page.Check3, &page.Check1};
}

Controls Of(AdSenseFrame& page) {
  return {&page.Combo3, &page.Command5, &page.Command7, &page.Command6};
}

Controls Of(AutoUpdateFrame& page) {
  return {&page.Check7, &page.Combo4};
}

Controls Of(TrayIconFrame& page) {
  return {&page.Image1, &page.Command3, &page.Command4, &page.Combo5, &page.Combo1, &page.Combo2};
}

Controls Of(TrayTooltipFrame& page) {
  const auto values = page.Values();
  Controls controls(values.begin(), values.end());
  controls.insert(controls.end(), {&page.Combo6, &page.Combo7, &page.Check4});
  return controls;
}

Controls Of(SoundsFrame& page) {
  return {&page.Combo10, &page.Combo11, &page.Command9, &page.Command10};
}

Controls Of(ProxyFrame& page) {
  return {&page.Check12, &page.Text3, &page.Text4, &page.Text1, &page.Text2};
}

Controls Of(Opts& form) {
  Controls controls = {&form.Tabs};
  for (const Controls& page :
       {Of(form.GeneralFrame), Of(form.AdSenseFrame), Of(form.AutoUpdateFrame),
        Of(form.TrayIconFrame), Of(form.TrayTooltipFrame), Of(form.SoundsFrame),
        Of(form.ProxyFrame),
        Controls{&form.Command1, &form.Command2, &form.Mark.ApplyButton, &form.Command8}}) {
    controls.insert(controls.end(), page.begin(), page.end());
  }
  return controls;
}

Controls Of(Account& form) {
  return {&form.Text1,       &form.Text2,    &form.Text3,   &form.Connect,
          &form.StopWaiting, &form.Command1, &form.Command2};
}

Controls Of(ReportsFields& fields) {
  return {&fields.Combo1, &fields.Combo2, &fields.Combo3, &fields.Combo4, &fields.Command1};
}

// What a person types into such a field must not go into a trace, which people hand on.
bool HoldsSecret(const TextField& field) {
  const std::string& caption = field.Caption();
  return field.Shows() == TextField::Echo::kStars || caption == "Username:" ||
         caption == "E-mail Address:";
}

std::string TextOf(const TextField& field) {
  return HoldsSecret(field) && !field.Text().empty() ? "..." : field.Text();
}

}  // namespace

bool IsLoaded(const SimulatedForms& forms, FormName form) {
  switch (form) {
    case FormName::kOpts:
      return forms.Opts() != nullptr;
    case FormName::kAccount:
      return forms.Account() != nullptr;
    case FormName::kReportsWin:
      return forms.ReportsWin() != nullptr;
    case FormName::kAboutWin:
      return forms.AboutWin() != nullptr;
  }
  return false;
}

Controls ControlsOf(const SimulatedForms& forms, FormName form) {
  if (!IsLoaded(forms, form)) return {};
  switch (form) {
    case FormName::kOpts:
      return Of(*forms.Opts());
    case FormName::kAccount:
      return Of(*forms.Account());
    case FormName::kReportsWin:
      return Of(forms.ReportsWin()->Fields());
    case FormName::kAboutWin:
      return {};
  }
  return {};
}

std::string ControlValue(const Control& control) {
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
    return std::string(BooleanText(box->Ticked()));
  }
  if (const auto* list = dynamic_cast<const ListField*>(&control)) return list->Text();
  if (const auto* list = dynamic_cast<const EditableList*>(&control)) return list->Text();
  if (const auto* text = dynamic_cast<const TextField*>(&control)) return TextOf(*text);
  if (const auto* picture = dynamic_cast<const PictureField*>(&control)) return picture->File();
  return {};
}

}  // namespace quillbox
