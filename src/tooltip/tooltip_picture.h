// The tooltip window as it is built each time it comes up.
#pragma once

#include <string>
#include <string_view>

#include "platform/storage.h"
#include "platform/tooltip_window.h"

namespace quillbox {

// `skinFile` and `pictureFile` are the full paths of skin.ini and Skin.gif, which need not be
// there.
TooltipPicture BuildTooltipPicture(std::string_view text, Files& files, const std::string& skinFile,
                                   const std::string& pictureFile, TooltipWindow& window);

}  // namespace quillbox
