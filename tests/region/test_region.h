// The built-in regions, built once each, for the tables of the tests.
#pragma once

#include <map>
#include <string>

#include "region/failure_rule.h"
#include "region/regional_settings.h"

namespace quillbox {

inline const RegionalSettings& Region(const std::string& name) {
  static std::map<std::string, RegionalSettings> regions;
  const auto known = regions.find(name);
  if (known != regions.end()) return known->second;
  return regions.emplace(name, BuiltInRegion(name).value()).first->second;
}

// What the conversion gives, or nothing when it refuses.
template <typename Conversion>
auto OrNone(Conversion convert) -> std::optional<decltype(convert())> {
  std::optional<decltype(convert())> result;
  Attempt([&] { result = convert(); });
  return result;
}

}  // namespace quillbox
