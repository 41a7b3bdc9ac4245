// The operations that a batch knows.
#pragma once

#include <span>
#include <string_view>

#include "quillbox-replay/formats/json_writer.h"
#include "quillbox-replay/request.h"

namespace quillbox {

// Writes the members of its answer. Throws RequestError when the request can't be answered; what it
// has written by then is dropped.
struct Operation {
  std::string_view Name;
  void (*Run)(const Request& request, JsonWriter& answer);
};

// One group a file.
std::span<const Operation> ConvertOperations();
std::span<const Operation> SettingsOperations();
std::span<const Operation> EvaluationOperations();
std::span<const Operation> FetchOperations();
std::span<const Operation> TooltipOperations();

}  // namespace quillbox
