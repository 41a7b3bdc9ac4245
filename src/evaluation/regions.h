// The regional settings that are built in.
#pragma once

#include <optional>
#include <string_view>

#include "platform/regional_settings.h"

namespace quillbox {

// By their names: en-US, en-GB, de-DE, fr-FR, de-CH, sv-SE, pt-BR. Nothing for any other name. The
// value is built anew at each call: keep it.
std::optional<RegionalSettings> BuiltInRegion(std::string_view name);

}  // namespace quillbox
