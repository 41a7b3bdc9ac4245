// Evaluating reports, and the texts made of stored statistics.
#include <algorithm>

#include "evaluation/evaluate_account_reports.h"
#include "evaluation/tray_stats.h"
#include "quillbox-replay/evaluation_run.h"
#include "quillbox-replay/memory_stores.h"
#include "quillbox-replay/operations.h"
#include "quillbox-replay/request.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

std::array<std::string, 6> SoundFilesOf(const Request& request) {
  std::vector<std::string> texts = request.Texts("soundFiles");
  std::array<std::string, 6> files;
  if (texts.size() != files.size()) {
    throw RequestError("member \"soundFiles\" must hold six texts");
  }
  std::move(texts.begin(), texts.end(), files.begin());
  return files;
}

void PutFile(MemoryFiles& files, const Request& request, std::string_view name,
             const std::string& path) {
  if (request.Member(name).Kind != JsonValue::Type::kNull) files.Put(path, request.Text(name));
}

MemoryFiles ReportFilesOf(const Request& request, const ReportPaths& paths) {
  const Request reports = request.Object("files");
  MemoryFiles files;
  PutFile(files, reports, "content", paths.Content);
  PutFile(files, reports, "search", paths.Search);
  PutFile(files, reports, "referral", paths.Referral);
  return files;
}

void Evaluate(const Request& request, JsonWriter& answer) {
  const ReportPaths paths;
  const RegionalSettings region = RegionOf(request);
  MemoryStore store = SettingsOf(request);
  MemoryFiles files = ReportFilesOf(request, paths);
  EvaluationHost host(store, files, region, request.Time("now"));
  host.State.Accounts = request.Texts("accounts");
  host.State.SoundFiles = SoundFilesOf(request);

  const EvaluationEffects effects = RunEvaluation(host, paths, request.Text("account"));
  answer.Name("settings");
  WriteSettings(answer, store);
  answer.Name("tooltip");
  answer.TextOrNull(effects.Tooltip);
  answer.Name("balloon");
  answer.TextOrNull(effects.Balloon);
  answer.Name("sounds");
  answer.Texts(effects.Sounds);
}

void StatsText(const Request& request, JsonWriter& answer) {
  const RegionalSettings region = RegionOf(request);
  MemoryStore store = SettingsOf(request);
  MemoryFiles files;
  EvaluationHost host(store, files, region, TimeOf(request));
  host.State.Accounts = request.Texts("accounts");
  std::string account = request.Text("account");
  answer.Name("text");
  answer.Text(BuildStatsText(host.Program, account));
}

void WritePopup(JsonWriter& answer, const MenuItem& popup) {
  answer.BeginObject();
  answer.Name("caption");
  answer.Text(popup.Caption);
  answer.Name("items");
  answer.BeginArray();
  for (const MenuItem& item : popup.Items) answer.Text(item.Caption);
  answer.EndArray();
  answer.EndObject();
}

void AccountMenus(const Request& request, JsonWriter& answer) {
  const RegionalSettings region = RegionOf(request);
  MemoryStore store = SettingsOf(request);
  MemoryFiles files;
  EvaluationHost host(store, files, region, TimeOf(request));
  host.State.Accounts = request.Texts("accounts");
  BuildTraySubmenus(host.Program);
  BuildAccountStatsMenus(host.Program);
  answer.Name("popups");
  answer.BeginArray();
  for (const MenuItem& popup : AccountsMenu(host.State)) WritePopup(answer, popup);
  answer.EndArray();
}

constexpr Operation kOperations[] = {
    {"evaluate", Evaluate},
    {"statsText", StatsText},
    {"accountMenus", AccountMenus},
};

}  // namespace

std::span<const Operation> EvaluationOperations() {
  return kOperations;
}

}  // namespace quillbox
