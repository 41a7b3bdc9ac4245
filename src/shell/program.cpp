#include "shell/program.h"

#include <utility>

#include "platform/forms.h"
#include "shell/mod_main.h"

namespace quillbox {

Program::Program(const Host& host, ApplicationFolder folder, RegionalSettings region,
                 BuildValues build)
    : host_(host),
      folder_(std::move(folder)),
      region_(std::move(region)),
      build_(std::move(build)),
      store_(host_.Store, host_.Disk, folder_, state_.SettingsProfile),
      context_{state_, store_, host_, folder_, region_, build_},
      form_(context_) {}

Program::~Program() {
  host_.Windows.UnloadAll();
}

void Program::Main() {
  quillbox::Main(context_, form_);
}

}  // namespace quillbox
