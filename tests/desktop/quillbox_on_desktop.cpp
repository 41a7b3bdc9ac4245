#include "desktop/quillbox_on_desktop.h"

#include <QImage>
#include <QThread>
#include <cstdlib>
#include <utility>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "system/settings_file.h"
#include "system/system_files.h"

namespace quillbox {

namespace fs = std::filesystem;

void QuillboxOnDesktop::SetUp() {
  // A copy, so that the fetch program beside it is the test's own.
  fs::copy_file(QUILLBOX_PROGRAM, Path("quillbox"));
  fs::remove_all(SettingsFile().parent_path());
  SettingBatch settings;
  SaveAccountList(settings, {{"one"}, {"a@example.test"}, {"a\"b c#%41"}});
  Store(settings.Write(kPrimaryAccount, "one")
            .Write(kRuns, "1")
            .Write(kCheckForNewVersion, kFalse)
            .Write(kCheckPrompted, kTrue)
            .Write(kTraySingleAction, kActionVisit)
            .Write(kTrayAction, kActionOpenAccount));
  WriteScript("xdg-open", "printf '%s\\n' \"$1\" >> " + Path("opened"));
  // An account's address is handed to the fetch program, by its input.
  WriteScript("dl", "[ \"$1\" != open ] || cat >> " + Path("opened"));
  static const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QByteArray::fromStdString(folder_.Path()) + ":" + path);
}

void QuillboxOnDesktop::Store(const SettingBatch& settings) {
  SystemFiles files;
  ASSERT_TRUE(quillbox::SettingsFile(files).Apply(settings.Changes()));
}

fs::path QuillboxOnDesktop::SettingsFile() {
  return fs::path(std::getenv("XDG_CONFIG_HOME")) / "Quillbox" / "Quillbox.conf";
}

std::string QuillboxOnDesktop::Settings() {
  return SystemFiles().Read(SettingsFile()).value_or("");
}

bool QuillboxOnDesktop::IsStored(const std::string& text) {
  return ComesAbout([&] { return Settings().find(text) != std::string::npos; });
}

void QuillboxOnDesktop::DockIcon() {
  desktop_.StartTray();
  quillbox_ = StartQuillbox();
  ASSERT_TRUE(IconComes());
  EXPECT_TRUE(ComesAbout([&] { return IconIsDrawn(); })) << "the tray holds an empty window";
}

bool QuillboxOnDesktop::IconComes() {
  return ComesAbout([&] {
    desktop_.NudgeWindowManager();  // the tray is a window, too
    return DockedIcons(desktop_).size() == 1;
  });
}

bool QuillboxOnDesktop::IconIsDrawn() {
  const std::vector<QPoint> icons = DockedIcons(desktop_);
  if (icons.empty()) return false;
  const QString file = QString::fromStdString(Path("icon.png"));
  desktop_.Output("import", {"-window", "root", "-crop",
                             QString("16x16+%1+%2").arg(icons[0].x() - 8).arg(icons[0].y() - 8),
                             "+repage", file});
  const QImage picture(file);
  for (int i = 0; i < picture.width() * picture.height(); ++i) {
    const QColor dot = picture.pixelColor(i % picture.width(), i / picture.width());
    if (dot.green() > dot.red() + 60) return true;  // of the quill's feather
  }
  return false;
}

bool QuillboxOnDesktop::IconGoes() {
  return ComesAbout([&] { return DockedIcons(desktop_).empty(); });
}

QString QuillboxOnDesktop::WindowOf(const QString& title) {
  return desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^" + title + "$"})
      .section('\n', -2, -2);
}

bool QuillboxOnDesktop::WindowComes(const QString& title) {
  return ComesAbout([&] {
           desktop_.NudgeWindowManager();
           return !WindowOf(title).isEmpty();
         }) &&
         GetsKeys(title);
}
bool QuillboxOnDesktop::WindowGoes(const QString& title) {
  return ComesAbout([&] { return WindowOf(title).isEmpty(); }) && GetsKeys("Quillbox Options");
}

bool QuillboxOnDesktop::GetsKeys(const QString& title) {
  return ComesAbout([&] {
    return desktop_.Output("xdotool", {"getactivewindow", "getwindowname"}).trimmed() == title;
  });
}

// A tray moves an icon that it has just taken in.
void QuillboxOnDesktop::PointAtIcon() {
  std::vector<QPoint> before, now;
  ASSERT_TRUE(ComesAbout([&] {
    desktop_.NudgeWindowManager();  // the tray grows with the icon
    before = std::exchange(now, DockedIcons(desktop_));
    QThread::msleep(100);
    return now.size() == 1 && now == before;
  }));
  Mouse(QString("mousemove %1 %2").arg(now[0].x()).arg(now[0].y()));
}

bool QuillboxOnDesktop::TooltipComes() {
  return ComesAbout([&] { return TooltipIsShown(); });
}
bool QuillboxOnDesktop::TooltipGoes() {
  return ComesAbout([&] { return !TooltipIsShown(); });
}

void QuillboxOnDesktop::ExpectHoverWorks() {
  PointElsewhere();
  PointAtIcon();
  EXPECT_TRUE(TooltipComes());
  PointElsewhere();
  EXPECT_TRUE(TooltipGoes());
}

bool QuillboxOnDesktop::MenuComes() {
  return ComesAbout([&] { return MenuIsOpen(desktop_); });
}
bool QuillboxOnDesktop::MenuGoes() {
  return ComesAbout([&] { return !MenuIsOpen(desktop_); });
}

void QuillboxOnDesktop::OpenMenu() {
  PointAtIcon();
  Mouse("click 3");
  ASSERT_TRUE(MenuComes());
}

std::string QuillboxOnDesktop::OpenedBy(const std::function<void()>& act) {
  folder_.Put("opened", "");
  act();
  EXPECT_TRUE(ComesAbout([&] { return !folder_.Content("opened").empty(); }));
  Settle();
  return folder_.Content("opened");
}

void QuillboxOnDesktop::Settle() {
  QThread::msleep(500);
}

}  // namespace quillbox
