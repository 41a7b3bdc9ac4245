// The entry by which the desktop starts the program with the person's session.
#pragma once

#include <string>
#include <string_view>

#include "config/application_folder.h"
#include "platform/process.h"
#include "platform/storage.h"

namespace quillbox {

// For the program of this full path, in whose bytes nothing is forbidden.
std::string AutostartText(std::string_view program);

// Whether the entry with this text, whoever wrote it, starts something when the person signs in.
bool StartsSomething(const std::string& text);

// The entry by which the desktop starts the program with the person's session.
// A desktop entry "quillbox.desktop" in the folder "autostart" of the person's configuration.
class AutostartEntry : public StartUpEntry {
 public:
  // Both must outlive the entry.
  AutostartEntry(Files& files, const ApplicationFolder& folder) : files_(files), folder_(folder) {}

  bool Present() override;
  void Make() override;
  void Remove() override;

  // Makes an entry anew that starts a program which isn't there any more, as after a move of the
  // program's folder.
  void FollowProgram();

 private:
  Files& files_;
  const ApplicationFolder& folder_;
};

}  // namespace quillbox
