// What the published version means to the person.
#pragma once

#include <optional>
#include <string>
#include <string_view>

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

// The content of the published file with the blanks at both ends taken off. Nothing when it is
// missing or too long for a version.
std::optional<std::string> PublishedVersion(const std::optional<std::string>& file);

// `announced` is the published version that the person was told of last, as the store gives it.
// Versions are compared as texts without their points, not as numbers.
VersionDecision DecideVersion(std::string_view installed, const std::optional<std::string>& file,
                              bool asked, std::string_view announced);

}  // namespace quillbox
