#include "options/tray_icon_frame.h"

#include "options/stored_field.h"
#include "platform/host.h"
#include "platform/tray.h"
#include "tray/tray_icon.h"

namespace quillbox {

TrayIconFrame::TrayIconFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog)
    : program_(program), mark_(mark), dialog_(dialog) {
  Command3.Clicked = [this] { SelectIcon_Click(); };
  Command4.Clicked = [this] { ResetIcon_Click(); };
  for (ListField* list : {&Combo5, &Combo1, &Combo2}) {
    list->Clicked = [this] { mark_.Set(TrayIconChanged); };
  }
}

// A file that holds no picture is the choice all the same: it may hold one at the next start.
void TrayIconFrame::SelectIcon_Click() {
  const FileDialogResult result = dialog_.OpenFileDialog({.Title = "Select Icon",
                                                          .FilterName = "Icon Files (*.ico)",
                                                          .Pattern = "*.ICO",
                                                          .Folder = program_.Folder.ProgramFile(""),
                                                          .File = {}});
  if (result.Cancelled) return;
  mark_.Set(TrayIconChanged);
  const std::string path = result.Folder + result.Files.front();
  if (program_.Host.Tray.CanShowPicture(path)) Image1.Show(path);
  IconChoice = path;
}

void TrayIconFrame::ResetIcon_Click() {
  mark_.Set(TrayIconChanged);
  Image1.Show("");
  IconChoice = kOwnIcon;
}

void TrayIconFrame::LoadTrayIconFrame() {
  SettingsStore& store = program_.Store;
  Image1.Show(program_.State.IconImage);
  AddAll(Combo5, kActions);
  AddAll(Combo1, kActions);
  SelectStored(Combo5, store, kTraySingleAction, kActionNone);
  if (store.ReadSetting(kTrayAction) == kActionOpenAccountFormerly) {
    SelectEntry(Combo1, kActionOpenAccount);
  } else {
    SelectStored(Combo1, store, kTrayAction, kActionOptions);
  }
  AddAll(Combo2, kBalloonConditions);
  SelectEntry(Combo2, program_.State.ShowBalloonWhen);
  TrayIconChanged = false;
}

void TrayIconFrame::Apply() {
  AppState& state = program_.State;
  if (!IconChoice.empty()) {
    program_.Store.WriteSetting(kTrayIcon, IconChoice);
    state.IconImage = Image1.File();
    UpdateTrayIcon(program_);
  }
  state.TraySingleAction = Combo5.Text();
  state.TrayAction = Combo1.Text();
  state.ShowBalloonWhen = Combo2.Text();
  program_.Store.WriteBatch(SettingBatch()
                                .Write(kTraySingleAction, state.TraySingleAction)
                                .Write(kTrayAction, state.TrayAction)
                                .Write(kShowBalloonWhen, state.ShowBalloonWhen));
}

}  // namespace quillbox
