#include "update/version_decision.h"

#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kLongestVersion = 20;

}  // namespace

std::optional<std::string> PublishedVersion(const std::optional<std::string>& file) {
  if (!file) return std::nullopt;
  std::string published(Trimmed(*file, kBlank));
  if (published.size() > kLongestVersion) return std::nullopt;
  return published;
}

VersionDecision DecideVersion(std::string_view installed, const std::optional<std::string>& file,
                              bool asked, std::string_view announced) {
  const std::optional<std::string> published = PublishedVersion(file);
  if (!published) return {};
  VersionDecision decision{VersionOutcome::kCurrent, *published, ""};
  const std::string digits = WithoutText(WithoutText(*published, "."), "\r\n");
  if (digits <= WithoutText(installed, ".")) return decision;
  if (!asked && announced == *published) {
    decision.Outcome = VersionOutcome::kSilent;
    return decision;
  }
  decision.Outcome = VersionOutcome::kAsk;
  decision.Question = "Quillbox v" + WithoutText(*published, "\r\n") +
                      " is available!  Would you like to download the setup now?";
  return decision;
}

}  // namespace quillbox
