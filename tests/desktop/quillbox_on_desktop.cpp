#include "desktop/quillbox_on_desktop.h"

#include <QThread>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/settings_per_user_store.h"
#include "system/system_files.h"

namespace quillbox {

namespace fs = std::filesystem;

void QuillboxOnDesktop::SetUp() {
  // A copy, so that the fetch program beside it is the test's own.
  fs::copy_file(QUILLBOX_PROGRAM, Path("quillbox"));
  fs::remove_all(SettingsFile().parent_path());
  SettingBatch settings;
  settings.Write(kRuns, "1").Write(kCheckForNewVersion, kFalse).Write(kCheckPrompted, kTrue);
  Store(settings);
  WriteScript("xdg-open", "printf '%s\\n' \"$1\" >> " + Path("opened"));
  static const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder_.path().toUtf8() + ":" + path);
}

void QuillboxOnDesktop::Store(const SettingBatch& settings) {
  SettingsPerUserStore().Apply(settings.Changes());
}

fs::path QuillboxOnDesktop::SettingsFile() {
  return fs::path(std::getenv("XDG_CONFIG_HOME")) / "Quillbox" / "Quillbox.conf";
}

std::string QuillboxOnDesktop::Settings() {
  return SystemFiles().Read(SettingsFile()).value_or("");
}

void QuillboxOnDesktop::WriteScript(const char* name, const std::string& text) const {
  std::ofstream(Path(name)) << "#!/bin/sh\n" << text << "\n";
  fs::permissions(Path(name), fs::perms::owner_all);
}

bool QuillboxOnDesktop::IconComes() {
  return ComesAbout([&] { return DockedIcons(desktop_.Display()).size() == 1; });
}
bool QuillboxOnDesktop::IconGoes() {
  return ComesAbout([&] { return DockedIcons(desktop_.Display()).empty(); });
}

// A tray moves an icon that it has just taken in, and Qt puts it in once more when the tray is new.
void QuillboxOnDesktop::PointAtIcon() {
  std::vector<QPoint> before, now;
  ASSERT_TRUE(ComesAbout([&] {
    before = std::exchange(now, DockedIcons(desktop_.Display()));
    QThread::msleep(100);
    return now.size() == 1 && now == before;
  }));
  Mouse(QString("mousemove %1 %2").arg(now[0].x()).arg(now[0].y()));
}

bool QuillboxOnDesktop::TooltipIsShown() {
  return !desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^TooltipWin$"})
              .isEmpty();
}

bool QuillboxOnDesktop::MenuComes() {
  return ComesAbout([&] { return MenuIsOpen(desktop_.Display()); });
}
bool QuillboxOnDesktop::MenuGoes() {
  return ComesAbout([&] { return !MenuIsOpen(desktop_.Display()); });
}

std::vector<std::string> QuillboxOnDesktop::Opened() const {
  std::vector<std::string> addresses;
  std::ifstream file(Path("opened"));
  for (std::string line; std::getline(file, line);) addresses.push_back(line);
  return addresses;
}

}  // namespace quillbox
