// The real program on a desktop of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "config/settings_store.h"
#include "desktop/private_desktop.h"
#include "system/temporary_folder.h"

namespace quillbox {

// No settings are left from an earlier test, and nothing is asked for at the program's start. There
// is one account; a single click on the icon visits the maker's site, a double click opens the
// account.
class QuillboxOnDesktop : public testing::Test {
 protected:
  void SetUp() override;

  void Store(const SettingBatch& settings);
  static std::filesystem::path SettingsFile();
  static std::string Settings();
  static bool IsStored(const std::string& text);
  // Whether the program has begun its run: it counts the second one.
  static bool HasBegun() { return Settings().find("Runs=2") != std::string::npos; }

  // In the program's folder.
  std::string Path(const char* name) const { return folder_.File(name); }
  void WriteScript(const char* name, const std::string& text) const {
    folder_.PutProgram(name, text);
  }

  OwnedProcess StartQuillbox() { return desktop_.Start(QString::fromStdString(Path("quillbox"))); }
  // Starts a tray, and the program in it.
  void DockIcon();

  bool IconComes();
  bool IconIsDrawn();
  bool IconGoes();

  // Windows of any program, by their whole title. One comes when it is shown and gets the keys; one
  // above the Options goes when they get the keys again.
  QString WindowOf(const QString& title);
  bool WindowComes(const QString& title);
  bool WindowGoes(const QString& title);
  bool GetsKeys(const QString& title);

  // What mouse and keyboard do, in the words of xdotool.
  void Mouse(const QString& words) { desktop_.Output("xdotool", words.split(' ')); }
  void Keys(const QString& keys) { Mouse("key " + keys); }
  void Type(const QString& text) { desktop_.Output("xdotool", {"type", text}); }
  void PointAtIcon();
  void PointElsewhere() { Mouse("mousemove 400 200"); }
  bool TooltipIsShown() { return !WindowOf("TooltipWin").isEmpty(); }
  bool TooltipComes();
  bool TooltipGoes();
  void ExpectHoverWorks();
  bool MenuComes();
  bool MenuGoes();
  void OpenMenu();

  // Patterns of what is handed to the desktop.
  static constexpr const char* kVisit = "https://quillbox\\.example\\.test\n";
  static constexpr const char* kOpenAccount = "[^\n]*/accounts/ServiceLoginAuth\\?[^\n]*\n";
  // What was handed to it after `act`, until a second address would have come, too.
  std::string OpenedBy(const std::function<void()>& act);
  // Of an action that is one too many, to be seen.
  static void Settle();

  const TemporaryFolder folder_;
  PrivateDesktop desktop_;
  OwnedProcess quillbox_;
};

}  // namespace quillbox
