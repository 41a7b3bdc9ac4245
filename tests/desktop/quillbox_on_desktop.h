// The real program on a desktop of its own.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <string>
#include <vector>

#include "config/settings_store.h"
#include "desktop/private_desktop.h"

namespace quillbox {

// No settings are left from an earlier test, and nothing is asked for at the program's start.
class QuillboxOnDesktop : public testing::Test {
 protected:
  void SetUp() override;

  void Store(const SettingBatch& settings);
  static std::filesystem::path SettingsFile();
  static std::string Settings();
  // Whether the program has begun its run: it counts the second one.
  static bool HasBegun() { return Settings().find("Runs=2") != std::string::npos; }

  std::string Path(const char* name) const { return folder_.filePath(name).toStdString(); }
  void WriteScript(const char* name, const std::string& text) const;

  OwnedProcess StartQuillbox() { return desktop_.Start(folder_.filePath("quillbox")); }

  bool IconComes();
  bool IconGoes();

  // What the mouse does, in the words of xdotool.
  void Mouse(const QString& words) { desktop_.Output("xdotool", words.split(' ')); }
  void PointAtIcon();
  void PointElsewhere() { Mouse("mousemove 400 200"); }
  bool TooltipIsShown();
  bool MenuComes();
  bool MenuGoes();

  // The addresses that were handed to the desktop so far.
  std::vector<std::string> Opened() const;

  const QTemporaryDir folder_;
  PrivateDesktop desktop_;
};

}  // namespace quillbox
