#include "reports/report_request.h"

#include "text/letter_case.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  return JoinText(SplitText(text, from), to);
}

std::string_view ProductOf(ReportFamily family) {
  switch (family) {
    case ReportFamily::kSearch:
      return "afs";
    case ReportFamily::kReferrals:
      return "ref";
    case ReportFamily::kAd:
    case ReportFamily::kChannel:
      break;
  }
  return "afc";
}

std::string AddressPath(const ReportRequest& request) {
  const bool referrals = request.Family == ReportFamily::kReferrals;
  std::string path = referrals ? "/adsense/report/referrals" : "/adsense/report/aggregate";
  path += "?product=";
  path += ProductOf(request.Family);
  path += "&dateRange.dateRangeType=simple&dateRange.simpleDate=" + request.SimpleDate;
  if (referrals) return path + "&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL";
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
  const ReportFiles files = WindowReportFiles(folder);
  std::string command = SignInForm(username, password) + "%#%https://";
  command += serviceHost;
  command += AddressPath(request);
  return command + "|" + files.Data + "|" + files.Log;
}

}  // namespace quillbox
