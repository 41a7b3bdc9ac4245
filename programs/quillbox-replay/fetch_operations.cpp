// What the program asks of the fetch program and the browser, and what it makes of the answers.
#include "config/setting_keys.h"
#include "quillbox-replay/request.h"
#include "region/date_text.h"
#include "reports/report_data.h"
#include "reports/report_page.h"
#include "reports/report_request.h"
#include "retrieval/open_account.h"
#include "retrieval/refresh_commands.h"
#include "retrieval/refresh_cycle.h"
#include "update/version_check.h"

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

const ReportTitle& TitleOf(const Request& request) {
  const ReportTitle* const title = FindReportTitle(request.Text("title"));
  if (title == nullptr) throw RequestError("unknown report title");
  return *title;
}

void ReportCommandOf(const Request& request, JsonWriter& answer) {
  const std::string& folder = request.Text("folder");
  const ReportRequest report =
      ReportRequestOf(TitleOf(request), request.Text("range"), request.Text("unit"));
  answer.Name("command");
  answer.Text(ReportCommand(report, request.Text("username"), request.Text("password"),
                            request.Text("host"), ApplicationFolder(folder, folder, '/')));
}

void ReportDataOf(const Request& request, JsonWriter& answer) {
  const std::optional<ReportData> data = BuildReportData(
      request.Text("text"), TitleOf(request), RegionOf(request), YearOf(TimeOf(request)));
  if (!data) {
    answer.Name("noData");
    answer.Truth(true);
    return;
  }
  answer.Name("labels");
  answer.Text(data->Labels);
  answer.Name("values");
  answer.Text(data->Values);
  answer.Name("channels");
  answer.Text(data->Channels);
}

void ReportPageOf(const Request& request, JsonWriter& answer) {
  const ReportData data{request.Text("labels"), request.Text("values"), request.Text("channels")};
  answer.Name("page");
  answer.Text(
      BuildReportPage(data, request.Text("title"), request.Text("period"), request.Text("comma")));
}

std::string_view NameOf(VersionOutcome outcome) {
  switch (outcome) {
    case VersionOutcome::kFailed:
      return "failed";
    case VersionOutcome::kCurrent:
      return "current";
    case VersionOutcome::kSilent:
      return "silent";
    case VersionOutcome::kAsk:
      break;
  }
  return "ask";
}

bool AskedFor(const Request& request) {
  const std::string& asked = request.Text("asked");
  if (asked != "Yes" && asked != "No") {
    throw RequestError("member \"asked\" must be \"Yes\" or \"No\"");
  }
  return asked == "Yes";
}

std::optional<std::string> FileOf(const Request& request) {
  if (request.Member("file").Kind == JsonValue::Type::kNull) return std::nullopt;
  return request.Text("file");
}

void VersionCheck(const Request& request, JsonWriter& answer) {
  const VersionDecision decision = DecideVersion(request.Text("installed"), FileOf(request),
                                                 AskedFor(request), request.Text("announced"));
  answer.Name("outcome");
  answer.Text(NameOf(decision.Outcome));
  if (decision.Outcome != VersionOutcome::kAsk) return;
  answer.Name("text");
  answer.Text(decision.Question);
}

constexpr Operation kFetchOperations[] = {
    {"refreshCommands", RefreshCommands}, {"refreshOutcome", RefreshOutcomeOf},
    {"signInAddress", SignInAddressOf},   {"reportCommand", ReportCommandOf},
    {"reportData", ReportDataOf},         {"reportPage", ReportPageOf},
    {"versionCheck", VersionCheck},
};

}  // namespace

std::span<const Operation> FetchOperations() {
  return kFetchOperations;
}

}  // namespace quillbox
