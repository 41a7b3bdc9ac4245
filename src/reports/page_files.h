// The files that the report's page loads.
#pragma once

#include <array>
#include <string_view>

#include "config/application_folder.h"
#include "platform/storage.h"

namespace quillbox {

inline constexpr std::string_view kGraphScript = "graphs.js";
inline constexpr std::string_view kTipScript = "NiceTitle.js";
inline constexpr std::string_view kTipStyle = "NiceTitleAutoWidth.css";
inline constexpr std::array kPageFiles = {kGraphScript, kTipScript, kTipStyle};

// They come with the program and must lie beside the page, in the data folder. Where that is
// another folder each is copied that is missing there or differs. What can't be copied is left out.
void PutPageFiles(Files& files, const ApplicationFolder& folder);

}  // namespace quillbox
