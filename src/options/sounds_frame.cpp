#include "options/sounds_frame.h"

#include <set>
#include <vector>

#include "config/application_folder.h"
#include "options/page_parts.h"
#include "platform/host.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

// The person's own sounds hide the program's of the same name, as they do when they are played.
std::vector<std::string> SoundNames(Files& files, const ApplicationFolder& folder) {
  std::vector<std::string> names = files.List(folder.DataFolder(), "*.wav");
  const std::set<std::string, LessIgnoringCase> own(names.begin(), names.end());
  for (std::string& name : files.List(folder.SharedFolder(), "*.wav")) {
    if (!own.contains(name)) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

SoundsFrame::SoundsFrame(const ProgramContext& program, ChangeMark& mark, OpenDialog& dialog)
    : program_(program), mark_(mark), dialog_(dialog) {
  Command9.SetEnabled(false);
  Combo10.Clicked = [this] { Event_Click(); };
  Combo11.Clicked = [this] { Sound_Click(); };
  Command9.Clicked = [this] { Preview_Click(); };
  Command10.Clicked = [this] { Browse_Click(); };
}

std::string* SoundsFrame::Choice() {
  const auto event = Combo10.Selected();
  return event ? &SoundChoices[*event] : nullptr;
}

// Looking at another event counts as a change.
void SoundsFrame::Event_Click() {
  mark_.Set(SoundsChanged);
  const std::string* choice = Choice();
  const bool chosen = choice != nullptr && !choice->empty();
  Combo11.ShowText(chosen ? FileNameOf(*choice, program_.Folder.Separator())
                          : std::string(kNoSound));
  Command9.SetEnabled(Combo11.Text() != kNoSound);
}

void SoundsFrame::Sound_Click() {
  mark_.Set(SoundsChanged);
  Command9.SetEnabled(Combo11.Text() != kNoSound);
  if (std::string* choice = Choice()) *choice = Combo11.Text();
}

// Without an event, as on a page that could not be filled, there is nothing to choose a file for.
void SoundsFrame::Browse_Click() {
  std::string* choice = Choice();
  if (choice == nullptr) return;
  const std::optional<std::string> path =
      dialog_.OpenFileDialog({.Title = "Select Sound",
                              .FilterName = "WAV Files",
                              .Pattern = "*.wav",
                              .Folder = program_.Folder.SharedFile(""),
                              .File = {}});
  if (!path) return;
  *choice = *path;
  Event_Click();
}

void SoundsFrame::Preview_Click() {
  const std::string* choice = Choice();
  if (choice == nullptr) return;
  if (!FindSoundFile(program_.Host.Disk, program_.Folder, *choice)) return;
  program_.Host.Speaker.PlaySoundFile(*choice);
}

void SoundsFrame::LoadSoundsFrame() {
  AddAll(Combo10, kSoundEvents);
  Combo10.ShowSelected(0);
  Combo11.Add(std::string(kNoSound));
  Combo11.ShowText(std::string(kNoSound));
  for (std::string& name : SoundNames(program_.Host.Disk, program_.Folder)) {
    Combo11.Add(std::move(name));
  }
  SoundChoices = program_.State.SoundFiles;
  Event_Click();
}

void SoundsFrame::Apply() {
  SettingBatch batch;
  for (std::size_t i = 0; i < kSounds.size(); ++i) batch.Write(kSounds[i], SoundChoices[i]);
  program_.Store.WriteBatch(batch);
  program_.State.SoundFiles = SoundChoices;
}

}  // namespace quillbox
