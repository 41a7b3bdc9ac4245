#include "qt_tray/tray_menu.h"

#include <gmock/gmock.h>

#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

std::vector<std::string> Captions(const QMenu& menu) {
  std::vector<std::string> captions;
  for (const QAction* const action : menu.actions()) {
    captions.push_back(action->isSeparator() ? "-" : action->text().toStdString());
  }
  return captions;
}

MenuItem Item(const char* name, const char* caption) {
  MenuItem item;
  item.Name = name;
  item.Caption = caption;
  return item;
}

Menu TestMenu() {
  MenuItem account = Item("", "Fish & Ch\xefps");
  account.Command = 500;
  Menu menu = {Item("RefreshNow", "Refresh now"), Item("OpenAccount", "Open"), Item("", ""),
               Item("Options", "Options")};
  menu[0].Enabled = false;
  menu[1].Submenu = true;
  menu[2].Separator = true;
  menu[1].Items = {account};
  menu[3].Default = true;
  return menu;
}

TEST(TrayMenuView, ShowsTheMenuAsItIsNow) {
  QMenu menu;
  FillMenu(menu, TestMenu(), [](const MenuItem&) {});
  EXPECT_THAT(Captions(menu), ElementsAre("Refresh now", "Open", "-", "Options"));
  EXPECT_FALSE(menu.actions()[0]->isEnabled());
  EXPECT_THAT(Captions(*menu.actions()[1]->menu()), ElementsAre("Fish && Ch\xc3\xafps"));
  EXPECT_EQ(menu.defaultAction(), menu.actions()[3]);
}

TEST(TrayMenuView, TellsWhatWasChosen) {
  QMenu menu;
  std::vector<std::string> chosen;
  FillMenu(menu, TestMenu(), [&](const MenuItem& item) {
    chosen.push_back(item.Name + std::to_string(item.Command));
  });
  menu.actions()[1]->menu()->actions()[0]->trigger();
  EXPECT_THAT(chosen, ElementsAre("500"));
}

}  // namespace
}  // namespace quillbox
