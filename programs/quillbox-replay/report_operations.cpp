// What the Reports window asks of the agent, and what becomes of the report.
#include "evaluation/date_text.h"
#include "quillbox-replay/operations.h"
#include "quillbox-replay/region_argument.h"
#include "quillbox-replay/time_argument.h"
#include "reports/report_data.h"
#include "reports/report_page.h"
#include "reports/report_request.h"

namespace quillbox {
namespace {

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

constexpr Operation kOperations[] = {
    {"reportCommand", ReportCommandOf},
    {"reportData", ReportDataOf},
    {"reportPage", ReportPageOf},
};

}  // namespace

std::span<const Operation> ReportOperations() {
  return kOperations;
}

}  // namespace quillbox
