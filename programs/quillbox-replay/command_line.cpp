#include "quillbox-replay/command_line.h"

#include <algorithm>

#include "evaluation/regions.h"

namespace quillbox {
namespace {

bool Holds(std::initializer_list<std::string_view> names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

Options::Options(Arguments arguments, std::initializer_list<std::string_view> withValue,
                 std::initializer_list<std::string_view> flags) {
  while (!arguments.empty()) {
    const std::string_view option = arguments.front();
    const bool takesValue = Holds(withValue, option);
    if (!takesValue && !Holds(flags, option)) {
      throw UsageError("unknown option " + std::string(option));
    }
    if (takesValue && arguments.size() < 2) {
      throw UsageError("option " + std::string(option) + " needs a value");
    }
    if (!values_.emplace(option, takesValue ? arguments[1] : std::string_view()).second) {
      throw UsageError("option " + std::string(option) + " is given twice");
    }
    arguments = arguments.subspan(takesValue ? 2 : 1);
  }
}

std::optional<std::string> Options::Value(std::string_view option) const {
  const auto found = values_.find(option);
  if (found == values_.end()) return std::nullopt;
  return std::string(found->second);
}

std::string Options::Needed(std::string_view option) const {
  const std::optional<std::string> value = Value(option);
  if (!value) throw UsageError("option " + std::string(option) + " is missing");
  return *value;
}

RegionalSettings RegionNamed(const std::string& name) {
  std::optional<RegionalSettings> region = BuiltInRegion(name);
  if (!region) throw UsageError("unknown region " + name);
  return *std::move(region);
}

}  // namespace quillbox
