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

// What the agent is given to fetch one report: form data, address, data file and log file.
// `showDataByPage` is the setting's text; it tells only in the content report.
std::string RefreshCommand(Report report, std::string_view showDataByPage,
                           std::string_view username, std::string_view password,
                           std::string_view serviceHost, const ApplicationFolder& folder);

}  // namespace quillbox
