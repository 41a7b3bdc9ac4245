#include "qt_tray/notification_service.h"

#include <gtest/gtest.h>

#include "desktop/fake_bus_service.h"

namespace quillbox {
namespace {

const QString kName = "org.freedesktop.Notifications";

class NotificationServiceTest : public testing::Test {
 protected:
  QVariantList Answer(const QDBusMessage& call) {
    if (call.member() == "GetCapabilities") return {capabilities_};
    return {++lastNumber_};
  }

  // The call that shows it; the arguments are app, replaced number, icon, title, text.
  QVariantList Show(const QString& text) {
    const std::size_t before = server_.Calls("Notify").size();
    service_.Show({"Quillbox", text, 30000}, [](const Balloon&) { ADD_FAILURE(); });
    EXPECT_TRUE(ComesAbout([&] { return server_.Calls("Notify").size() == before + 1; }));
    ComesAbout([] { return true; });  // the answer to it
    return server_.Calls("Notify").back().arguments();
  }

  QStringList capabilities_ = {"body"};
  uint lastNumber_ = 40;
  FakeBusService server_{QString::fromUtf8(qgetenv("DBUS_SESSION_BUS_ADDRESS")), kName,
                         "/org/freedesktop/Notifications",
                         [this](const QDBusMessage& call) { return Answer(call); }};
  NotificationService service_;
};

TEST_F(NotificationServiceTest, ARepeatReplacesItselfAndNothingElse) {
  server_.Appear();
  EXPECT_EQ(Show("one").at(1).toUInt(), 0U);
  EXPECT_EQ(Show("two").at(1).toUInt(), 0U);
  EXPECT_EQ(Show("one").at(1).toUInt(), 41U);
  EXPECT_EQ(Show("three").at(1).toUInt(), 0U);
  EXPECT_EQ(Show("two").at(1).toUInt(), 42U);
}

TEST_F(NotificationServiceTest, TextIsShownAsItIsWhetherOrNotMarkupIsRead) {
  server_.Appear();
  EXPECT_EQ(Show("<b>1 & 2</b>").at(4).toString(), "<b>1 & 2</b>");
  capabilities_.append("body-markup");
  EXPECT_EQ(Show("<b>1 & 2</b>").at(4).toString(), "&lt;b&gt;1 &amp; 2&lt;/b&gt;");
  EXPECT_EQ(Show("\"it's\"").at(4).toString(), "\"it's\"");
  EXPECT_EQ(Show("x").at(7).toInt(), 30000);
}

TEST_F(NotificationServiceTest, GivesTheBalloonBackWhenThereIsNoService) {
  QString refused;
  service_.Show({"Quillbox", "one", 30000},
                [&](const Balloon& balloon) { refused = balloon.Text; });
  EXPECT_TRUE(ComesAbout([&] { return refused == "one"; }));
}

}  // namespace
}  // namespace quillbox
