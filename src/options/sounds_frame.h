// The page "Sounds" of the Options.
#pragma once

#include <array>
#include <string>

#include "forms/controls.h"
#include "options/page_parts.h"
#include "state/program_context.h"

namespace quillbox {

class SoundsFrame {
 public:
  // The arguments must outlive the page.
  SoundsFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog);

  ListField Combo10{"Combo10", "Events:"};
  EditableList Combo11{"Combo11", "Sounds:"};
  Button Command9{"Command9", "Preview"};  // shows a picture; the caption is for screen readers
  Button Command10{"Command10", "&Browse..."};

  // Working copy of SoundFiles.
  std::array<std::string, 6> SoundChoices;

  bool SoundsChanged = false;

  // Leaves SoundsChanged set.
  void LoadSoundsFrame();

  // Stores the page; the sounds are used from now on.
  void Apply();

 private:
  // The entry of SoundChoices for the selected event; null when none is selected.
  std::string* Choice();
  void Event_Click();
  void Sound_Click();
  void Browse_Click();
  void Preview_Click();

  const ProgramContext& program_;
  ChangeMark& mark_;
  OpenDialog& dialog_;
};

}  // namespace quillbox
