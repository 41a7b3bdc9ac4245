#include "retrieval/refresh_commands.h"

#include "config/setting_keys.h"
#include "text/code_page.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

std::string_view NameOf(Report report) {
  switch (report) {
    case Report::kContent:
      return "Content";
    case Report::kSearch:
      return "Search";
    case Report::kReferral:
      break;
  }
  return "Referral";
}

std::string_view ProductOf(Report report) {
  switch (report) {
    case Report::kContent:
      return "afc";
    case Report::kSearch:
      return "afs";
    case Report::kReferral:
      break;
  }
  return "ref";
}

std::string AddressPath(Report report, std::string_view showDataByPage) {
  std::string path = ReportAddressPath(report, "thismonth");
  path += kByDay;
  if (report == Report::kContent) {
    path += LowerCase(showDataByPage) == "page" ? "&unitPref=page" : "&unitPref=adunit";
  }
  return path;
}

}  // namespace

ReportFiles ReportFilesOf(Report report, const ApplicationFolder& folder) {
  const std::string name(NameOf(report));
  return {folder.DataFile(name + ".dat"), folder.DataFile(name + ".log")};
}

std::vector<Report> SelectedReports(std::string_view dataToDownload) {
  if (dataToDownload == kDownloadContent) return {Report::kContent};
  if (dataToDownload == kDownloadSearch) return {Report::kSearch};
  if (dataToDownload == kDownloadReferrals) return {Report::kReferral};
  if (dataToDownload == kDownloadAll) {
    return {Report::kContent, Report::kSearch, Report::kReferral};
  }
  return {};
}

std::string SignInForm(std::string_view username, std::string_view password) {
  return "Email=" + EncodeFormValue(username) + "&Passwd=" + EncodeFormValue(password);
}

std::string ReportAddressPath(Report report, std::string_view simpleDate) {
  std::string path =
      report == Report::kReferral ? "/adsense/report/referrals" : "/adsense/report/aggregate";
  path += "?product=";
  path += ProductOf(report);
  path += "&dateRange.dateRangeType=simple&dateRange.simpleDate=";
  return path += simpleDate;
}

std::string SignedInCommand(std::string_view username, std::string_view password,
                            std::string_view serviceHost, std::string_view path,
                            const ReportFiles& files) {
  std::string command = SignInForm(username, password) + "%#%https://";
  command += serviceHost;
  command += path;
  return command + "|" + files.Data + "|" + files.Log;
}

std::string RefreshCommand(Report report, std::string_view showDataByPage,
                           std::string_view username, std::string_view password,
                           std::string_view serviceHost, const ApplicationFolder& folder) {
  return SignedInCommand(username, password, serviceHost, AddressPath(report, showDataByPage),
                         ReportFilesOf(report, folder));
}

}  // namespace quillbox
