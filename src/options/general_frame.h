// The page "General" of the Options.
#pragma once

#include "forms/controls.h"
#include "options/change_mark.h"
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

}  // namespace quillbox
