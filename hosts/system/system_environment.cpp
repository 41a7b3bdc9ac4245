#include "system/system_environment.h"

#include <unistd.h>

#include <cstdlib>
#include <optional>

#include "text/code_page.h"
#include "text/letter_case.h"

namespace quillbox {
namespace {

// The value of the first variable whose name `matches`.
template <class Predicate>
std::optional<std::string_view> FindVariable(Predicate matches) {
  for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || !matches(text.substr(0, equals))) continue;
    return text.substr(equals + 1);
  }
  return std::nullopt;
}

}  // namespace

std::string SystemEnvironment::Variable(std::string_view name) {
  auto value = FindVariable([&](std::string_view other) { return other == name; });
  if (!value) value = FindVariable([&](std::string_view o) { return EqualIgnoringCase(o, name); });
  return FromUtf8(value.value_or("")).value_or("");
}

std::string ConfigFolder() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return config;
  const char* const home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + "/.config" : "";
}

}  // namespace quillbox
