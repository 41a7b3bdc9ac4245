// The page that draws a report's graph, and the files that it loads.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "config/application_folder.h"
#include "platform/storage.h"
#include "reports/report_data.h"

namespace quillbox {

// One line, without a line end. `title` is the report's title; `period` and `comma` are the
// region's decimal mark and group mark. Nothing is escaped. All in the code page.
std::string BuildReportPage(const ReportData& data, std::string_view title, std::string_view period,
                            std::string_view comma);

inline constexpr std::string_view kGraphScript = "graphs.js";
inline constexpr std::string_view kTipScript = "NiceTitle.js";
inline constexpr std::string_view kTipStyle = "NiceTitleAutoWidth.css";
inline constexpr std::array kPageFiles = {kGraphScript, kTipScript, kTipStyle};

// Puts the files that the page loads beside it, in the data folder. They come with the program.
// Where its folder is another one, each file that is missing or differs is copied; what can't be
// copied is left out.
void PutPageFiles(Files& files, const ApplicationFolder& folder);

}  // namespace quillbox
