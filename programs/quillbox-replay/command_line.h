// The program's arguments.
#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/regional_settings.h"

namespace quillbox {

// What ends the program with exit code 2; what() is one line for standard error.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

using Arguments = std::span<const std::string_view>;

class Options {
 public:
  // `arguments` are options alone, each at most once. Throws UsageError on any other argument.
  Options(Arguments arguments, std::initializer_list<std::string_view> withValue,
          std::initializer_list<std::string_view> flags);

  bool Has(std::string_view option) const { return values_.contains(option); }
  std::optional<std::string> Value(std::string_view option) const;

  // Throws UsageError when the option is missing.
  std::string Needed(std::string_view option) const;

 private:
  std::map<std::string_view, std::string_view> values_;
};

// The built-in region. Throws UsageError when there is none of that name.
RegionalSettings RegionNamed(const std::string& name);

}  // namespace quillbox
