// Asking the maker's site whether a newer version is out.
#pragma once

#include <string_view>

#include "state/program_context.h"

namespace quillbox {

// `asked` is "Yes" when the person asked for the check and "No" when it came by itself, which tells
// of nothing but a version that is newly out. Events are pumped while it waits; a check that comes
// during another one starts none of its own, but when the person asks for it they are told what the
// waiting one finds.
void CheckForUpdate(const ProgramContext& program, std::string_view asked);

}  // namespace quillbox
