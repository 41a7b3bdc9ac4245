// What a published version leads to.
#include "quillbox-replay/operations.h"
#include "update/version_decision.h"

namespace quillbox {
namespace {

std::string_view NameOf(VersionOutcome outcome) {
  switch (outcome) {
    case VersionOutcome::kFailed:
      return "failed";
    case VersionOutcome::kCurrent:
      return "current";
    case VersionOutcome::kSilent:
      return "silent";
    case VersionOutcome::kAsk:
      break;
  }
  return "ask";
}

bool AskedFor(const Request& request) {
  const std::string& asked = request.Text("asked");
  if (asked != "Yes" && asked != "No") {
    throw RequestError("member \"asked\" must be \"Yes\" or \"No\"");
  }
  return asked == "Yes";
}

std::optional<std::string> FileOf(const Request& request) {
  if (request.Member("file").Kind == JsonValue::Type::kNull) return std::nullopt;
  return request.Text("file");
}

void VersionCheck(const Request& request, JsonWriter& answer) {
  const VersionDecision decision = DecideVersion(request.Text("installed"), FileOf(request),
                                                 AskedFor(request), request.Text("announced"));
  answer.Name("outcome");
  answer.Text(NameOf(decision.Outcome));
  if (decision.Outcome != VersionOutcome::kAsk) return;
  answer.Name("text");
  answer.Text(decision.Question);
}

constexpr Operation kOperations[] = {{"versionCheck", VersionCheck}};

}  // namespace

std::span<const Operation> UpdateOperations() {
  return kOperations;
}

}  // namespace quillbox
