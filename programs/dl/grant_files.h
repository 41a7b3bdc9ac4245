// The files in which grants are kept, one a grant, for their owner alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "grant/grant.h"

namespace quillbox {

// Quillbox/grants in the person's folder for data; empty when the environment names none
// (XDG_DATA_HOME, if it is absolute, else HOME).
std::string GrantFolder();

// Of a grant's file. `name` must be a grant's name (IsGrantName).
std::string GrantPath(const std::string& folder, std::string_view name);

// Nothing for a name that is no grant's. A file that is a link, belongs to somebody else or is open
// to others is not read.
std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name);

// Makes the folder if it isn't there. The file has the whole grant or isn't changed; false then.
bool SaveGrant(const std::string& folder, std::string_view name, const Grant& grant);

// Takes the file away, be it readable or not; a link goes, not what it leads to. Whether none is
// left, also when there was none.
bool RemoveGrant(const std::string& folder, std::string_view name);

}  // namespace quillbox
