// Evaluating reports, and the texts made of stored statistics.
#include <algorithm>

#include "evaluation/account_evaluation.h"
#include "quillbox-replay/memory_stores.h"
#include "quillbox-replay/request.h"

namespace quillbox {
namespace {

SoundFileNames SoundFilesOf(const Request& request) {
  std::vector<std::string> texts = request.Texts("soundFiles");
  SoundFileNames files;
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
  const ReportPaths paths{"Content.dat", "Search.dat", "Referral.dat"};
  const RegionalSettings region = RegionOf(request);
  MemoryStore settings = SettingsOf(request);
  MemoryFiles files = ReportFilesOf(request, paths);
  StoreOnSettings store(settings);
  const std::chrono::local_seconds now = request.Time("now");
  const std::vector<std::string> accounts = request.Texts("accounts");
  const SoundFileNames sounds = SoundFilesOf(request);
  const Evaluation evaluation = EvaluateAndStore(
      {store.Store, files, accounts, sounds, region, now}, paths, request.Text("account"));
  StoreLastDate(store.Store, evaluation.Decision);
  answer.Name("settings");
  WriteSettings(answer, settings);
  answer.Name("tooltip");
  answer.TextOrNull(evaluation.Effects.Tooltip);
  answer.Name("balloon");
  answer.TextOrNull(evaluation.Effects.Balloon);
  answer.Name("sounds");
  answer.Texts(evaluation.Effects.Sounds);
}

void WriteStatsText(const Request& request, JsonWriter& answer) {
  const RegionalSettings region = RegionOf(request);
  MemoryStore settings = SettingsOf(request);
  const StoreOnSettings store(settings);
  const std::vector<std::string> accounts = request.Texts("accounts");
  std::string account = request.Text("account");
  answer.Name("text");
  answer.Text(BuildStatsText({store.Store, accounts, region, TimeOf(request)}, account));
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
  MemoryStore settings = SettingsOf(request);
  const StoreOnSettings store(settings);
  const std::vector<std::string> accounts = request.Texts("accounts");
  Menu menu;
  InsertStatsPopups(menu, accounts, StoredRecords(store.Store, accounts), region);
  answer.Name("popups");
  answer.BeginArray();
  for (const MenuItem& popup : menu) WritePopup(answer, popup);
  answer.EndArray();
}

constexpr Operation kEvaluationOperations[] = {
    {"evaluate", Evaluate},
    {"statsText", WriteStatsText},
    {"accountMenus", AccountMenus},
};

}  // namespace

std::span<const Operation> EvaluationOperations() {
  return kEvaluationOperations;
}

}  // namespace quillbox
