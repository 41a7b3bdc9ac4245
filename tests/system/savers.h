// All that saves something of the person's, as one table: for tests in which the disk fails.
#pragma once

#include <stdlib.h>

#include <string>

#include "config/atomic_write.h"
#include "config/profile_file.h"
#include "system/autostart_entry.h"
#include "system/own_files.h"
#include "system/settings_file.h"
#include "system/system_files.h"

namespace quillbox {

struct Saver {
  const char* Name;
  const char* File;  // below the folder
  // Puts `text` in place of what an earlier save put there. Whether it says that this went well.
  bool (*Save)(const std::string& folder, const std::string& text);
};

inline bool SaveSettings(const std::string& folder, const std::string& text) {
  ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  SystemFiles files;
  const SettingChange changes[] = {
      {"AdSense", "Accounts", text}, {"AdSense", "Passwords", text}, {"Misc", "Runs", text}};
  return SettingsFile(files).Apply(changes);
}

inline bool SaveProfile(const std::string& folder, const std::string& text) {
  SystemFiles files;
  const SettingChange changes[] = {{"AdSense", "Accounts", text}, {"AdSense", "Passwords", text}};
  return IniWrite(files, changes, folder + "/Default.ini");
}

inline bool SavePage(const std::string& folder, const std::string& text) {
  SystemFiles files;
  return WriteAtomically(files, folder + "/Report.html", text);
}

// The port has no answer; the desktop sees the entry or it doesn't. Our own look at it may be the
// one that fails.
inline bool SaveAutostart(const std::string& folder, const std::string& text) {
  ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
  SystemFiles files;
  const ApplicationFolder program("/" + text, folder, '/');
  AutostartEntry(files, program).Make();
  const std::string file = folder + "/autostart/quillbox.desktop";
  const auto looked = files.Read(file);
  const auto entry = looked ? looked : files.Read(file);
  return entry && entry->find(text) != std::string::npos;
}

// Reports, their codes and grants.
inline bool SaveFetched(const std::string& folder, const std::string& text) {
  return WriteWholeFile(folder + "/Report.dat", text);
}

inline constexpr Saver kSavers[] = {
    {"settings", "Quillbox/Quillbox.conf", SaveSettings},
    {"fall-back", "Default.ini", SaveProfile},
    {"page", "Report.html", SavePage},
    {"autostart", "autostart/quillbox.desktop", SaveAutostart},
    {"fetched", "Report.dat", SaveFetched},
};

}  // namespace quillbox
