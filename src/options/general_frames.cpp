#include "options/general_frames.h"

#include "config/account_list.h"
#include "options/page_parts.h"
#include "platform/host.h"
#include "platform/process.h"
#include "region/failure_rule.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string TrimmedText(const TextField& field) {
  return std::string(Trimmed(field.Text(), kBlank));
}

}  // namespace

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

ProxyFrame::ProxyFrame(const ProgramContext& program, ChangeMark& mark)
    : program_(program), mark_(mark) {
  const auto changed = [this] { mark_.Set(ProxyChanged); };
  for (TextField* field : {&Text1, &Text2, &Text3, &Text4}) field->TextChanged = changed;
  Check12.Clicked = changed;
}

void ProxyFrame::LoadProxyFrame() {
  const AppState& state = program_.State;
  Text1.SetText(state.ProxyUsername);
  Text2.SetText(state.ProxyPassword);
  Text3.SetText(state.ProxyServer);
  Text4.SetText(state.ProxyPort);
  TickIfTrue(Check12, program_.Store, kAutoUpdateWhenConnected);
  ProxyChanged = false;
}

void ProxyFrame::Apply() {
  AppState& state = program_.State;
  SettingsStore& store = program_.Store;
  state.ProxyUsername = TrimmedText(Text1);
  SaveProxyUsername(store, state.ProxyUsername);
  state.ProxyPassword = TrimmedText(Text2);
  SaveProxyPassword(store, state.ProxyPassword);
  state.ProxyServer = TrimmedText(Text3);
  state.ProxyPort = TrimmedText(Text4);
  store.WriteBatch(SettingBatch()
                       .Write(kProxyServer, state.ProxyServer)
                       .Write(kProxyPort, state.ProxyPort)
                       .Write(kAutoUpdateWhenConnected, StoredText(Check12)));
}

}  // namespace quillbox
