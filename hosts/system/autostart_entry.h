// The entry by which the desktop starts the program with the person's session.
#pragma once

#include "config/application_folder.h"
#include "platform/files.h"
#include "platform/start_up_entry.h"

namespace quillbox {

// A desktop entry "quillbox.desktop" in the folder "autostart" of the person's configuration.
class AutostartEntry : public StartUpEntry {
 public:
  // Both must outlive the entry.
  AutostartEntry(Files& files, const ApplicationFolder& folder) : files_(files), folder_(folder) {}

  bool Present() override;
  void Make() override;
  void Remove() override;

 private:
  Files& files_;
  const ApplicationFolder& folder_;
};

}  // namespace quillbox
