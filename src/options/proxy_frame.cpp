#include "options/proxy_frame.h"

#include "config/account_list.h"
#include "options/stored_field.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string TrimmedText(const TextField& field) {
  return std::string(Trimmed(field.Text(), kBlank));
}

}  // namespace

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
