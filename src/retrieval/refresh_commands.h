// The command texts of one account's turn of a refresh.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/application_folder.h"

namespace quillbox {

// The three reports of a refresh, in the order in which they are fetched.
enum class Report { kContent, kSearch, kReferral };

struct ReportFiles {
  std::string Data;
  std::string Log;
};

// Full paths of the report's two working files.
ReportFiles ReportFilesOf(Report report, const ApplicationFolder& folder);

// The reports that a text of DataToDownload selects; none for an unknown text.
std::vector<Report> SelectedReports(std::string_view dataToDownload);

// The form data that signs an account in.
std::string SignInForm(std::string_view username, std::string_view password);

// Path and query of a report's address up to its dates, to which the caller adds the rest.
// `simpleDate` is the service's name of a range: "thismonth".
std::string ReportAddressPath(Report report, std::string_view simpleDate);

// What ends the address of a report with a line for each day.
inline constexpr std::string_view kByDay =
    "&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL";

// What the agent is given to fetch an address signed in: form data, address, data file and log
// file. The account's e-mail address and password are in the code page; `serviceHost` may carry a
// port; `path` begins with "/".
std::string SignedInCommand(std::string_view username, std::string_view password,
                            std::string_view serviceHost, std::string_view path,
                            const ReportFiles& files);

// What the agent is given to fetch one report (SignedInCommand). `showDataByPage` is the setting's
// text; it tells only in the content report.
std::string RefreshCommand(Report report, std::string_view showDataByPage,
                           std::string_view username, std::string_view password,
                           std::string_view serviceHost, const ApplicationFolder& folder);

}  // namespace quillbox
