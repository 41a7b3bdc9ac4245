#include "options/auto_update_frame.h"

#include "options/stored_field.h"
#include "region/failure_rule.h"

namespace quillbox {

AutoUpdateFrame::AutoUpdateFrame(const ProgramContext& program, ChangeMark& mark,
                                 AutoUpdate& autoUpdate)
    : program_(program), mark_(mark), autoUpdate_(autoUpdate) {
  Check7.Clicked = [this] {
    mark_.Set(AutoUpdateChanged);
    Combo4.SetEnabled(Check7.Ticked());
  };
  Combo4.Clicked = [this] { mark_.Set(AutoUpdateChanged); };
}

void AutoUpdateFrame::LoadAutoUpdateFrame() {
  SettingsStore& store = program_.Store;
  for (const UpdateRate& rate : kUpdateRates) Combo4.Add(std::string(rate.Text));
  Attempt([&] { SelectStored(Combo4, store, kAutoUpdateRate, kDefaultUpdateRate); });
  const std::string enable = store.ReadSetting(kAutoUpdateEnable);
  if (enable == kTrue) Check7.SetTicked(true);
  Combo4.SetEnabled(enable == kTrue);
  if (enable != kTrue && enable != kDisabledAsItIs) store.WriteSetting(kAutoUpdateEnable, kFalse);
  AutoUpdateChanged = false;
}

void AutoUpdateFrame::Apply() {
  program_.Store.WriteBatch(SettingBatch()
                                .Write(kAutoUpdateRate, Combo4.Text())
                                .Write(kAutoUpdateEnable, StoredText(Check7)));
  if (!Check7.Ticked()) {
    autoUpdate_.Stop();
    return;
  }
  autoUpdate_.SetAutoUpdateRate();
  if (!autoUpdate_.Running()) autoUpdate_.Start();
}

}  // namespace quillbox
