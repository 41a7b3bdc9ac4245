// What the refresh cycle asks of the agent, what it makes of the agent's codes, and the address
// that opens an account.
#include "config/setting_keys.h"
#include "quillbox-replay/operations.h"
#include "quillbox-replay/settings_argument.h"
#include "retrieval/refresh_commands.h"
#include "retrieval/refresh_outcome.h"
#include "retrieval/sign_in_address.h"

namespace quillbox {
namespace {

void RefreshCommands(const Request& request, JsonWriter& answer) {
  MemoryStore store = SettingsOf(request);
  const auto read = [&store](const SettingKey& key) { return store.Read(key.Section, key.Key); };
  const std::string& folderName = request.Text("folder");
  const ApplicationFolder folder(folderName, folderName, '/');
  const std::string& username = request.Text("username");
  const std::string& password = request.Text("password");
  const std::string& host = request.Text("host");

  answer.Name("commands");
  answer.BeginArray();
  for (const Report report : SelectedReports(read(kDataToDownload))) {
    answer.Text(RefreshCommand(report, read(kShowDataByPage), username, password, host, folder));
  }
  answer.EndArray();
}

void RefreshOutcomeOf(const Request& request, JsonWriter& answer) {
  const RefreshOutcome outcome =
      DecideRefreshOutcome(request.Text("contentCode"), request.Text("otherCode"),
                           request.Text("username"), request.Text("domain"));
  answer.Name("evaluate");
  answer.Truth(outcome.Evaluate);
  answer.Name("balloon");
  answer.TextOrNull(outcome.Balloon);
}

void SignInAddressOf(const Request& request, JsonWriter& answer) {
  answer.Name("address");
  answer.Text(
      SignInAddress(request.Text("username"), request.Text("password"), request.Text("host")));
}

constexpr Operation kOperations[] = {
    {"refreshCommands", RefreshCommands},
    {"refreshOutcome", RefreshOutcomeOf},
    {"signInAddress", SignInAddressOf},
};

}  // namespace

std::span<const Operation> RefreshOperations() {
  return kOperations;
}

}  // namespace quillbox
