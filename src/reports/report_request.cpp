#include "reports/report_request.h"

#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  return JoinText(SplitText(text, from), to);
}

Report KindOf(ReportFamily family) {
  switch (family) {
    case ReportFamily::kSearch:
      return Report::kSearch;
    case ReportFamily::kReferrals:
      return Report::kReferral;
    case ReportFamily::kAd:
    case ReportFamily::kChannel:
      break;
  }
  return Report::kContent;
}

std::string AddressPath(const ReportRequest& request) {
  std::string path = ReportAddressPath(KindOf(request.Family), request.SimpleDate);
  if (request.Family == ReportFamily::kReferrals) return path.append(kByDay);
  path += "&unitPref=" + request.UnitPref + "&outputFormat=TSV_EXCEL";
  if (request.Family != ReportFamily::kChannel) return path;
  return path + "&reportType=channel&allChannels=true&groupByPref=both";
}

}  // namespace

ReportRequest ReportRequestOf(const ReportTitle& title, std::string_view range,
                              std::string_view unit) {
  return {title.Family, Replaced(Replaced(unit, "Page", "page"), "Individual Ad Unit", "adunit"),
          WithoutText(LowerCase(range), " ")};
}

ReportFiles WindowReportFiles(const ApplicationFolder& folder) {
  return {folder.DataFile("Report.dat"), folder.DataFile("Report.log")};
}

std::string ReportCommand(const ReportRequest& request, std::string_view username,
                          std::string_view password, std::string_view serviceHost,
                          const ApplicationFolder& folder) {
  return SignedInCommand(username, password, serviceHost, AddressPath(request),
                         WindowReportFiles(folder));
}

}  // namespace quillbox
