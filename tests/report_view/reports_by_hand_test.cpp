// A person makes a report: from the menu of the tray to the bars on the screen.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class ReportsByHand : public QuillboxOnDesktop {
 protected:
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    if (::geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    fs::copy_file(QUILLBOX_REPORT_VIEW, Path("quillbox-report-view"));
    for (const char* const name : {"graphs.js", "NiceTitle.js", "NiceTitleAutoWidth.css"}) {
      fs::copy_file(fs::path(QUILLBOX_REPORT_FILES) / name, Path(name));
    }
    SettingBatch settings;
    SaveAccountList(settings, {{"one"}, {"a@example.test"}, {"secret"}});
    Store(settings);
    WriteScript("dl",
                "log=${1##*|}; rest=${1%|*}; data=${rest##*|}\n"
                "printf 'h\\n1/1/2007\\t1,000\\t5\\t0.50%%\\t1.00\\t1.10\\n"
                "1/2/2007\\t2,000\\t6\\t0.30%%\\t1.00\\t2.20\\nt\\na\\n' > \"$data\"\n"
                "printf 0 > \"$log\"");
  }

  // "Reports..." is the fifth item.
  void ChooseReports() {
    PointElsewhere();
    PointAtIcon();
    Mouse("click 3");
    ASSERT_TRUE(MenuComes());
    Mouse("key Down Down Down Down Down Return");
  }

  bool WindowIsShown() {
    desktop_.NudgeWindowManager();
    return !desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^Quillbox Reports$"})
                .isEmpty();
  }

  // As two commands: in one, the keys would go to the window alone and not to its manager.
  void PressInWindow(const QString& keys) {
    Mouse("search --onlyvisible --name ^Quillbox\\sReports$ windowfocus --sync");
    Mouse("key " + keys);
  }

  // Pixels of the bars' colour on the screen.
  int Bars() {
    return desktop_
        .Output("sh", {"-c",
                       "import -window root png:- | convert png:- -fill black +opaque '#80D080' "
                       "-fill white -opaque '#80D080' -format '%[fx:round(mean*w*h)]' info:"})
        .toInt();
  }

  OwnedProcess quillbox_;
};

TEST_F(ReportsByHand, TheMenuOpensTheWindowAndTheButtonDrawsBars) {
  desktop_.StartTray();
  quillbox_ = StartQuillbox();
  ASSERT_TRUE(IconComes());
  for (int opening = 0; opening < 2; ++opening) {
    ChooseReports();
    ASSERT_TRUE(ComesAbout([this] { return WindowIsShown(); })) << opening;
    EXPECT_LT(Bars(), 200) << "an empty page at first; the icon has the colour, too";
    PressInWindow("Tab Tab Tab Tab space");
    EXPECT_TRUE(ComesAbout([this] { return Bars() > 2000; })) << opening << ": " << Bars();
    EXPECT_TRUE(fs::exists(Path("Report.html")));
    PressInWindow("alt+F4");
    EXPECT_TRUE(ComesAbout([this] { return !WindowIsShown(); })) << opening;
  }
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

}  // namespace
}  // namespace quillbox
