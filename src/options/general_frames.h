// The pages "General", "Auto Update" and "Internet" of the Options.
#pragma once

#include "forms/controls.h"
#include "options/page_parts.h"
#include "retrieval/auto_update.h"
#include "state/program_context.h"

namespace quillbox {

class GeneralFrame {
 public:
  // The arguments must outlive the page.
  GeneralFrame(const ProgramContext& program, ChangeMark& mark);

  // Startup
  CheckBox Check11{"Check11", "&Check for new version"};
  CheckBox Check5{"Check5", "&Refresh tooltip information"};
  CheckBox Check14{"Check14", "&Pause 30 seconds before checking for new version or"};
  // Miscellaneous
  CheckBox Check3{"Check3", "&Start Quillbox when Windows starts"};
  CheckBox Check1{"Check1", "&Use 24-hour time system"};

  bool GeneralChanged = false;

  void LoadGeneralFrame();

  // Stores the page.
  void Apply();

 private:
  void StartUpFieldClicked();

  const ProgramContext& program_;
  ChangeMark& mark_;
};

class AutoUpdateFrame {
 public:
  // The arguments must outlive the page.
  AutoUpdateFrame(const ProgramContext& program, ChangeMark& mark, AutoUpdate& autoUpdate);

  CheckBox Check7{"Check7", "&Enable auto update"};
  ListField Combo4{"Combo4", "Auto Update Rate:"};

  bool AutoUpdateChanged = false;

  void LoadAutoUpdateFrame();

  // Stores the page; rate and clock follow at once.
  void Apply();

 private:
  const ProgramContext& program_;
  ChangeMark& mark_;
  AutoUpdate& autoUpdate_;
};

// The page "Internet".
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
