#include "quillbox-replay/operations.h"

namespace quillbox {

const Operation* FindOperation(std::string_view name) {
  for (const auto group :
       {EvaluationOperations, ConvertOperations, SettingsOperations, RefreshOperations,
        ReportOperations, TooltipOperations, UpdateOperations}) {
    for (const Operation& operation : group()) {
      if (operation.Name == name) return &operation;
    }
  }
  return nullptr;
}

}  // namespace quillbox
