// The files in which grants are kept, one a grant, for their owner alone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "api/tokens.h"
#include "system/own_files.h"

namespace quillbox {

// Quillbox/grants in the person's folder for data; empty when there is none (DataFolder).
std::string GrantFolder();

// Of a grant's file. `name` must be a grant's name (IsGrantName).
std::string GrantPath(const std::string& folder, std::string_view name);

// Nothing for a name that is no grant's. A file that is a link, belongs to somebody else or is open
// to others is not read.
std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name);

// Where a grant's file will come to stand: room for it is on the disk before the service makes the
// grant, which may be the end of the one before. Goes again if no grant comes.
class GrantPlace {
 public:
  // Makes the folder if it isn't there. What earlier runs left of such places goes.
  GrantPlace(std::string folder, std::string_view name);

  // False when there is no room, or no such file can be made.
  bool IsMade() const { return place_ && place_->IsMade(); }

  // The file has the whole grant or isn't changed; false then. To be called once.
  bool Keep(const Grant& grant);

 private:
  const std::string folder_;
  std::optional<ComingFile> place_;
};

// Whether a file in the folder, other than that of `name`, may hold a grant to the client: one that
// can't be read may hold any. True also when the folder can't be read.
bool MayHoldAnother(const std::string& folder, std::string_view name, const std::string& clientId);

// Takes the file away, be it readable or not, with what runs that were killed left of it; a link
// goes, not what it leads to. Whether none is left, also when there was none.
bool RemoveGrant(const std::string& folder, std::string_view name);

}  // namespace quillbox
