// What hosts are told of the tray menu over the bus, and what they tell.
#include "qt_tray/dbus_menu.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QSignalSpy>

#include "desktop/fake_bus_service.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

constexpr char kInterface[] = "com.canonical.dbusmenu";

MenuItem Item(const char* caption, bool enabled = true) {
  MenuItem item;
  item.Caption = caption;
  item.Enabled = enabled;
  return item;
}

MenuItem Accounts(Menu items) {
  MenuItem item = Item("Accounts");
  item.Submenu = true;
  item.Items = std::move(items);
  return item;
}

class DBusMenuTest : public testing::Test {
 protected:
  DBusMenuTest() {
    for (const auto& [signal, counter] :
         {std::pair("LayoutUpdated", &layouts_), std::pair("ItemsPropertiesUpdated", &items_)}) {
      host_.connect(QDBusConnection::sessionBus().baseService(), DBusMenu::kPath, kInterface,
                    signal, counter, SLOT(trigger()));
    }
  }
  ~DBusMenuTest() override { QDBusConnection::disconnectFromBus("host"); }

  // The answer comes after all signals that were sent before it.
  QDBusMessage Ask(const char* method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(QDBusConnection::sessionBus().baseService(),
                                                       DBusMenu::kPath, kInterface, method);
    call.setArguments(arguments);
    QDBusPendingCallWatcher answer(host_.asyncCall(call));
    EXPECT_TRUE(ComesAbout([&] { return answer.isFinished(); }));
    return answer.reply();
  }
  QVariantList AboutToShow(int id) { return Ask("AboutToShow", {id}).arguments(); }
  QString Label(int id) {
    return Ask("GetProperty", {id, "label"})
        .arguments()
        .value(0)
        .value<QDBusVariant>()
        .variant()
        .toString();
  }
  void Click(int id) { Ask("Event", {id, "clicked", QVariant::fromValue(QDBusVariant(0)), 0U}); }

  QDBusConnection host_ =
      QDBusConnection::connectToBus(QString::fromUtf8(qgetenv("DBUS_SESSION_BUS_ADDRESS")), "host");
  QAction layouts_, items_;
  std::vector<std::string> chosen_;
  DBusMenu menu_{[this](const MenuItem& item) { chosen_.push_back(item.Caption); }};
};

TEST_F(DBusMenuTest, TellsOfWhatDiffersAndOfNothingElse) {
  const Menu first = {Item("Refresh"), Accounts({Item("one"), Item("two")}), Item("Exit")};
  static const struct Case {
    const char* name;
    Menu menu;
    int layouts, items;
  } kCases[] = {
      {"as it was", first, 0, 0},
      {"greyed",
       {Item("Refresh", false), Accounts({Item("one"), Item("two")}), Item("Exit")},
       0,
       1},
      {"as at first", first, 0, 1},
      {"figures", {Item("Refresh"), Accounts({Item("1"), Item("2")}), Item("Exit")}, 0, 1},
      {"one account less", {Item("Refresh"), Accounts({Item("1")}), Item("Exit")}, 1, 0},
      {"none", {Item("Refresh"), Accounts({}), Item("Exit")}, 1, 0},
  };
  menu_.Show(first);
  AboutToShow(0);
  for (const Case& c : kCases) {
    QSignalSpy layouts(&layouts_, &QAction::triggered), items(&items_, &QAction::triggered);
    menu_.Show(c.menu);
    for (const int id : {0, 2}) EXPECT_EQ(AboutToShow(id), QVariantList{false}) << c.name;
    EXPECT_EQ(layouts.count(), c.layouts) << c.name;
    EXPECT_EQ(items.count(), c.items) << c.name;
  }
}

TEST_F(DBusMenuTest, AClickIsTheItemsOfTodayAndNothingOnceThatIsGone) {
  menu_.Show({Item("a_b & c"), Accounts({Item("one"), Item("two")}), Item("off", false)});
  EXPECT_EQ(Label(1), "a__b & c");
  menu_.Show({Item("new"), Accounts({Item("one")}), Item("off", false)});
  for (const int id : {1, 2, 3, 5, 99}) Click(id);
  EXPECT_TRUE(ComesAbout([&] { return !chosen_.empty(); }));
  EXPECT_THAT(chosen_, ElementsAre("new"));
  EXPECT_EQ(Ask("GetLayout", {99, -1, QStringList()}).type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(Ask("GetLayout", {0, -1, QStringList()}).signature(), "u(ia{sv}av)");
  EXPECT_EQ(
      Ask("GetGroupProperties", {QVariant::fromValue(QList<int>()), QStringList()}).signature(),
      "a(ia{sv})");
}

}  // namespace
}  // namespace quillbox
