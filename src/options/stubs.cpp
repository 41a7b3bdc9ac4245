// To be replaced, file by file.
#include "options/opts.h"
#include "platform/forms.h"
#include "platform/host.h"

namespace quillbox {
GeneralFrame::GeneralFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {}
void GeneralFrame::LoadGeneralFrame() {}
void GeneralFrame::Apply() {}
AdSenseFrame::AdSenseFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {}
void AdSenseFrame::LoadAdSenseFrame() {}
void AdSenseFrame::Apply() {}
void AdSenseFrame::AccountsEdited() {}
Account::Account(std::string caption, const ProgramContext& program, AdSenseFrame& accounts)
    : Caption(std::move(caption)), program_(program), accounts_(accounts) {}
void Account::Load() {}
AutoUpdateFrame::AutoUpdateFrame(const ProgramContext& program, ChangeMark& mark,
                                 AutoUpdate& autoUpdate)
    : program_(program), mark_(mark), autoUpdate_(autoUpdate) {}
void AutoUpdateFrame::LoadAutoUpdateFrame() {}
void AutoUpdateFrame::Apply() {}
TrayIconFrame::TrayIconFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog)
    : program_(program), mark_(mark), dialog_(dialog) {}
void TrayIconFrame::LoadTrayIconFrame() {}
void TrayIconFrame::Apply() {}
TrayTooltipFrame::TrayTooltipFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {}
void TrayTooltipFrame::LoadTrayTooltipFrame() {}
void TrayTooltipFrame::Apply(const ListField&) {}
SoundsFrame::SoundsFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog)
    : program_(program), mark_(mark), dialog_(dialog) {}
void SoundsFrame::LoadSoundsFrame() {}
void SoundsFrame::Apply() {}
ProxyFrame::ProxyFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {}
void ProxyFrame::LoadProxyFrame() {}
void ProxyFrame::Apply() {}
Opts::Opts(const ProgramContext& program, AutoUpdate& autoUpdate, OpenDialog& dialog)
    : GeneralFrame(program, Mark),
      AdSenseFrame(program, Mark),
      AutoUpdateFrame(program, Mark, autoUpdate),
      TrayIconFrame(program, Mark, dialog),
      TrayTooltipFrame(program, Mark),
      SoundsFrame(program, Mark, dialog),
      ProxyFrame(program, Mark),
      program_(program) {
  for (const char* caption :
       {"General", "AdSense", "Auto Update", "Tray Icon", "Tray Tooltip", "Sounds", "Internet"}) {
    Tabs.Add(caption);
  }
  Tabs.ShowSelected(0);
  Mark.ApplyButton.SetEnabled(false);
}
void Opts::Load() {
  loaded_ = true;
  program_.Host.Windows.Load(*this);
}
void Opts::ShowFrame(std::string_view) {}
}  // namespace quillbox
