// The environment of this process.
#pragma once

#include "platform/environment.h"

namespace quillbox {

// Values are taken as UTF-8. A variable whose name has exactly the asked letters comes before one
// in another case.
class SystemEnvironment : public Environment {
 public:
  std::string Variable(std::string_view name) override;
};

// The person's folder for configuration: XDG_CONFIG_HOME if it is absolute, else ".config" in HOME.
// Bytes as the system has them; empty when there is none.
std::string ConfigFolder();

}  // namespace quillbox
