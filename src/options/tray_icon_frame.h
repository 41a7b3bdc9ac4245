// The page "Tray Icon" of the Options.
#pragma once

#include <string>

#include "forms/controls.h"
#include "options/change_mark.h"
#include "options/open_dialog.h"
#include "state/program_context.h"

namespace quillbox {

class TrayIconFrame {
 public:
  // The arguments must outlive the page.
  TrayIconFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog);

  // Tray Icon
  PictureField Image1{"Image1", "Tray Icon"};
  Button Command3{"Command3", "&Select Icon..."};
  Button Command4{"Command4", "&Reset Icon"};
  // Click Action
  ListField Combo5{"Combo5", "Left-Single-Click Action:"};
  ListField Combo1{"Combo1", "Left-Double-Click Action:"};
  ListField Combo2{"Combo2", "Show Tray Icon Balloon When:"};

  // The icon chosen since the form opened: a path, "default", or empty for no choice.
  std::string IconChoice;

  bool TrayIconChanged = false;

  // Throws StepFailed, with what follows still to fill, when a stored text is no entry of its list.
  void LoadTrayIconFrame();

  // Stores the page; picture and click actions follow at once.
  void Apply();

 private:
  void SelectIcon_Click();
  void ResetIcon_Click();

  const ProgramContext& program_;
  ChangeMark& mark_;
  OpenDialog& dialog_;
};

}  // namespace quillbox
