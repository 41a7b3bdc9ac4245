#include "options/opts.h"

#include "platform/forms.h"
#include "platform/host.h"
#include "platform/surroundings.h"
#include "region/failure_rule.h"

namespace quillbox {
namespace {

struct Page {
  std::string_view Caption;
  std::string_view Name;     // in LastOption: the caption without its blanks
  std::string_view LoadKey;  // differs from the name for one page
  void (*Load)(Opts&);
};

constexpr Page kPages[] = {
    {"General", "General", "General", [](Opts& form) { form.GeneralFrame.LoadGeneralFrame(); }},
    {"AdSense", "AdSense", "AdSense", [](Opts& form) { form.AdSenseFrame.LoadAdSenseFrame(); }},
    {"Auto Update", "AutoUpdate", "AutoUpdate",
     [](Opts& form) { form.AutoUpdateFrame.LoadAutoUpdateFrame(); }},
    {"Tray Icon", "TrayIcon", "TrayIcon",
     [](Opts& form) { form.TrayIconFrame.LoadTrayIconFrame(); }},
    {"Tray Tooltip", "TrayTooltip", "TrayTooltip",
     [](Opts& form) { form.TrayTooltipFrame.LoadTrayTooltipFrame(); }},
    {"Sounds", "Sounds", "Sounds", [](Opts& form) { form.SoundsFrame.LoadSoundsFrame(); }},
    {"Internet", "Internet", "Proxy", [](Opts& form) { form.ProxyFrame.LoadProxyFrame(); }},
};

// The first page for a name that is none.
std::size_t PageNamed(std::string_view name) {
  for (std::size_t i = 0; i < std::size(kPages); ++i) {
    if (kPages[i].Name == name) return i;
  }
  return 0;
}

}  // namespace

Opts::Opts(const ProgramContext& program, AutoUpdate& autoUpdate, OpenDialog& dialog)
    : GeneralFrame(program, Mark),
      AdSenseFrame(program, Mark),
      AutoUpdateFrame(program, Mark, autoUpdate),
      TrayIconFrame(program, Mark, dialog),
      TrayTooltipFrame(program, Mark),
      SoundsFrame(program, Mark, dialog),
      ProxyFrame(program, Mark),
      program_(program) {
  for (const Page& page : kPages) Tabs.Add(std::string(page.Caption));
  Tabs.ShowSelected(0);
  Mark.ApplyButton.SetEnabled(false);
  Tabs.Clicked = [this] { ShowFrame(Tabs.Text()); };
  Mark.ApplyButton.Clicked = [this] { ApplyButton_Click(); };
  Command1.Clicked = [this] { OK_Click(); };
  Command2.Clicked = [this] { Cancel_Click(); };
  Command8.Clicked = [this] { Help_Click(); };
}

// The page to be shown is filled first. A page that can't be filled to its end doesn't keep the
// form from opening.
void Opts::Load() {
  loaded_ = true;
  std::string activeFrame = program_.Store.ReadSetting(kLastOption);
  if (activeFrame.empty()) activeFrame = kPages[0].Name;
  Attempt([&] { LoadActiveFrame(activeFrame); });
  Attempt([&] { LoadRemainingFrames(activeFrame); });
  Mark.ApplyButton.SetEnabled(false);
  program_.Host.Windows.Load(*this);
}

// The form of an account that is still open closes too: its entry must not be accepted later, when
// its grant is gone.
void Opts::Closed() {
  loaded_ = false;
  program_.Host.Windows.Unload(FormName::kAccount);
  AdSenseFrame.Grants.Closed();
}

void Opts::LoadActiveFrame(std::string_view activeFrame) {
  const std::size_t index = PageNamed(activeFrame);
  Tabs.ShowSelected(index);
  ShowFrame(kPages[index].Name);
  kPages[index].Load(*this);
}

// The active page is filled a second time when its key is not its name; that changes nothing.
void Opts::LoadRemainingFrames(std::string_view activeFrame) {
  for (const Page& page : kPages) {
    if (page.LoadKey != activeFrame) page.Load(*this);
  }
}

void Opts::ShowFrame(std::string_view caption) {
  std::string name(caption);
  std::erase(name, ' ');
  program_.Store.WriteSetting(kLastOption, name);
}

// The pages' flags stay: a page once changed is written again each time.
void Opts::ApplyButton_Click() {
  if (!Mark.OptionsChanged) return;
  if (GeneralFrame.GeneralChanged) GeneralFrame.Apply();
  if (AdSenseFrame.AdSenseChanged) AdSenseFrame.Apply();
  if (AutoUpdateFrame.AutoUpdateChanged) AutoUpdateFrame.Apply();
  if (TrayIconFrame.TrayIconChanged) TrayIconFrame.Apply();
  if (TrayTooltipFrame.TrayTooltipChanged) TrayTooltipFrame.Apply(AdSenseFrame.Combo3);
  if (SoundsFrame.SoundsChanged) SoundsFrame.Apply();
  if (ProxyFrame.ProxyChanged) ProxyFrame.Apply();
  Mark.OptionsChanged = false;
  Mark.ApplyButton.SetEnabled(false);
}

void Opts::OK_Click() {
  program_.Host.Windows.Hide(FormName::kOpts);
  Mark.ApplyButton.Click();
  program_.Host.Windows.Unload(FormName::kOpts);
}

void Opts::Cancel_Click() {
  if (AdSenseFrame.AdSenseChanged) {
    static_cast<AccountList&>(program_.State) = LoadAccountList(program_.Store);
  }
  program_.Host.Windows.Unload(FormName::kOpts);
}

void Opts::Help_Click() {
  program_.Host.Opener.Open(program_.Build.ForumAddress());
}

}  // namespace quillbox
