// Asking the maker's site whether a newer version is out.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/program_context.h"

namespace quillbox {

enum class VersionOutcome {
  kFailed,   // no version was published that one could read
  kCurrent,  // the installed version is not older
  kSilent,   // newer, but the person knows and did not ask
  kAsk,      // newer: tell the person
};

struct VersionDecision {
  VersionOutcome Outcome = VersionOutcome::kFailed;
  std::string Published;  // trimmed of blanks; a line end stays
  std::string Question;   // with kAsk alone
};

// What the published version means to the person. `file` is the published file's content, nothing
// when it is missing; one that is too long for a version counts as missing. `announced` is the
// published version that the person was told of last, as the store gives it. Versions are compared
// as texts without their points, not as numbers.
VersionDecision DecideVersion(std::string_view installed, const std::optional<std::string>& file,
                              bool asked, std::string_view announced);

enum class CheckedFor {
  kPerson,   // who asked for the check and is told of any result
  kProgram,  // at its start: tells of nothing but a version that is newly out
};

// Events are pumped while it waits. A check during another one starts no second download; when the
// person asks for it, the running check tells them what it finds.
void CheckForUpdate(const ProgramContext& program, CheckedFor whom);

}  // namespace quillbox
