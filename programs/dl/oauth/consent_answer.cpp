#include "oauth/consent_answer.h"

namespace quillbox {

std::optional<ConsentAnswer> ReadConsent(const QueryFields& query) {
  ConsentAnswer answer{FieldOf(query, "state"), FieldOf(query, "code"), FieldOf(query, "error")};
  const bool whole = !answer.State.empty() && answer.Code.empty() != answer.Error.empty();
  return whole ? std::optional(std::move(answer)) : std::nullopt;
}

}  // namespace quillbox
