#include "options/tray_frames.h"

#include "evaluation/tray_stats.h"
#include "options/page_parts.h"
#include "platform/host.h"
#include "platform/tray.h"
#include "text/code_page.h"
#include "tray/tray_icon.h"

namespace quillbox {
namespace {

char LetterOf(std::size_t value) {
  return static_cast<char>('A' + value);
}

}  // namespace

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
  const std::optional<std::string> path =
      dialog_.OpenFileDialog({.Title = "Select Icon",
                              .FilterName = "Icon Files (*.ico)",
                              .Pattern = "*.ICO",
                              .Folder = program_.Folder.SharedFile(""),
                              .File = {}});
  if (!path) return;
  mark_.Set(TrayIconChanged);
  if (program_.Host.Tray.CanShowPicture(*path)) Image1.Show(*path);
  IconChoice = *path;
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

TrayTooltipFrame::TrayTooltipFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {
  const auto changed = [this] { mark_.Set(TrayTooltipChanged); };
  for (CheckBox* box : Values()) box->Clicked = changed;
  Combo6.Clicked = changed;
  Combo7.Clicked = changed;
  Check4.Clicked = changed;
}

std::array<CheckBox*, 13> TrayTooltipFrame::Values() {
  return {&Check34, &Check33, &Check32, &Check31, &Check35, &Check36, &Check40,
          &Check41, &Check2,  &Check6,  &Check8,  &Check9,  &Check10};
}

void TrayTooltipFrame::LoadTrayTooltipFrame() {
  LoadValues();
  AddAll(Combo6, std::array{kByAdUnit, kByPage});
  AddAll(Combo7, kDownloads);
  const std::string showDataBy = program_.Store.ReadSetting(kShowDataByPage);
  SelectEntry(Combo6, showDataBy.empty() ? kByAdUnit : showDataBy);
  if (program_.Store.ReadSetting(kDataToDownload) == kDownloadAllFormerly) {
    program_.Store.WriteSetting(kDataToDownload, kDownloadAll);
  }
  SelectStored(Combo7, program_.Store, kDataToDownload, kDownloadContent);
  TickIfTrue(Check4, program_.Store, kDisplayAllStats);
  TrayTooltipChanged = false;
}

void TrayTooltipFrame::LoadValues() {
  std::string letters = program_.Store.ReadSetting(kTooltipValues);
  if (letters.empty()) {
    letters = kDefaultTooltipValues;
    program_.Store.WriteSetting(kTooltipValues, letters);
  }
  letters = UpperCase(letters);
  const auto values = Values();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (letters.find(LetterOf(i)) != std::string::npos) values[i]->SetTicked(true);
  }
}

void TrayTooltipFrame::Apply(const ListField& primaryAccount) {
  std::string letters;
  const auto values = Values();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i]->Ticked()) letters += LetterOf(i);
  }
  program_.Store.WriteBatch(SettingBatch()
                                .Write(kTooltipValues, letters)
                                .Write(kShowDataByPage, Combo6.Text())
                                .Write(kDataToDownload, Combo7.Text())
                                .Write(kDisplayAllStats, StoredText(Check4)));
  if (!primaryAccount.Items().empty()) UpdateTrayStats(program_, primaryAccount.Text());
}

}  // namespace quillbox
