// The page "Internet" of the Options.
#pragma once

#include "forms/controls.h"
#include "options/change_mark.h"
#include "state/program_context.h"

namespace quillbox {

class ProxyFrame {
 public:
  // The arguments must outlive the page.
  ProxyFrame(const ProgramContext& program, ChangeMark& mark);

  // Connection
  CheckBox Check12{"Check12", "&Only attempt to download data when an Internet"};
  // Proxy Server
  TextField Text3{"Text3", "Server:"};
  TextField Text4{"Text4", "Port:"};
  TextField Text1{"Text1", "Username:"};
  TextField Text2{"Text2", "Password:", TextField::Echo::kStars};

  bool ProxyChanged = false;

  void LoadProxyFrame();

  // Stores the page.
  void Apply();

 private:
  const ProgramContext& program_;
  ChangeMark& mark_;
};

}  // namespace quillbox
