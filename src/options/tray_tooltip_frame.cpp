#include "options/tray_tooltip_frame.h"

#include "evaluation/tray_stats.h"
#include "options/stored_field.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

char LetterOf(std::size_t value) {
  return static_cast<char>('A' + value);
}

}  // namespace

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
