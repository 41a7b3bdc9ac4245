// The Options dialog.
#pragma once

#include <string>
#include <string_view>

#include "forms/controls.h"
#include "options/ad_sense_frame.h"
#include "options/general_frames.h"
#include "options/page_parts.h"
#include "options/sounds_frame.h"
#include "options/tray_frames.h"
#include "state/program_context.h"

namespace quillbox {

// One opening of the dialog: each begins with a new object.
class Opts {
 public:
  // The arguments must outlive the form.
  Opts(const ProgramContext& program, AutoUpdate& autoUpdate, OpenDialog& dialog);

  const std::string Caption = "Quillbox Options";
  ListField Tabs{"Tabs", "Pages"};  // the pages' captions; the selected one is the shown page
  ChangeMark Mark;                  // with the button "Apply"
  Button Command1{"Command1", "OK"};
  Button Command2{"Command2", "Cancel"};
  Button Command8{"Command8", "Help"};

  quillbox::GeneralFrame GeneralFrame;
  quillbox::AdSenseFrame AdSenseFrame;
  quillbox::AutoUpdateFrame AutoUpdateFrame;
  quillbox::TrayIconFrame TrayIconFrame;
  quillbox::TrayTooltipFrame TrayTooltipFrame;
  quillbox::SoundsFrame SoundsFrame;
  quillbox::ProxyFrame ProxyFrame;

  bool Loaded() const { return loaded_; }

  // Fills the pages and shows the form.
  void Load();

  // The window has gone. By its close box nothing is applied, and the account list stays as edited.
  // Grants that no account holds any more are forgotten.
  void Closed();

  // Notes the page as the one to show at the next opening. `caption` is that of a tab.
  void ShowFrame(std::string_view caption);

 private:
  void LoadActiveFrame(std::string_view activeFrame);
  void LoadRemainingFrames(std::string_view activeFrame);
  void ApplyButton_Click();
  void OK_Click();
  void Cancel_Click();
  void Help_Click();

  const ProgramContext& program_;
  bool loaded_ = false;
};

}  // namespace quillbox
