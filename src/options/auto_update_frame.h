// The page "Auto Update" of the Options.
#pragma once

#include "forms/controls.h"
#include "options/change_mark.h"
#include "retrieval/auto_update.h"
#include "state/program_context.h"

namespace quillbox {

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

}  // namespace quillbox
