#include "options/general_frame.h"

#include "options/stored_field.h"
#include "platform/host.h"
#include "platform/process.h"

namespace quillbox {

GeneralFrame::GeneralFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {
  Check14.SetEnabled(false);
  for (CheckBox* box : {&Check11, &Check5}) {
    box->Clicked = [this] { StartUpFieldClicked(); };
  }
  for (CheckBox* box : {&Check14, &Check3, &Check1}) {
    box->Clicked = [this] { mark_.Set(GeneralChanged); };
  }
}

// There is nothing to pause before when neither of the two is to be done.
void GeneralFrame::StartUpFieldClicked() {
  mark_.Set(GeneralChanged);
  const bool either = Check5.Ticked() || Check11.Ticked();
  Check14.SetEnabled(either);
  if (!either) Check14.SetTicked(false);
}

void GeneralFrame::LoadGeneralFrame() {
  const SettingsStore& store = program_.Store;
  TickIfTrue(Check11, store, kCheckForNewVersion);
  TickIfTrue(Check5, store, kRefreshTooltip);
  if (Check14.Enabled()) TickIfTrue(Check14, store, kPause);
  if (program_.Host.StartUp.Present()) TickIfTrue(Check3, store, kLoad);
  TickIfTrue(Check1, store, kUse24Hour);
  GeneralChanged = false;
}

void GeneralFrame::Apply() {
  program_.Store.WriteBatch(SettingBatch()
                                .Write(kCheckForNewVersion, StoredText(Check11))
                                .Write(kRefreshTooltip, StoredText(Check5))
                                .Write(kPause, StoredText(Check14))
                                .Write(kLoad, StoredText(Check3)));
  if (Check3.Ticked()) {
    program_.Host.StartUp.Make();
  } else {
    program_.Host.StartUp.Remove();
  }
  program_.Store.WriteSetting(kUse24Hour, StoredText(Check1));
}

}  // namespace quillbox
