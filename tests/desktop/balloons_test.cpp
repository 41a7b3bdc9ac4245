#include "qt_tray/balloons.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QPixmap>

#include "desktop/fake_bus_service.h"

namespace quillbox {
namespace {

class NotificationServiceTest : public testing::Test {
 protected:
  QVariantList Answer(const QDBusMessage& call) {
    if (call.member() == "GetCapabilities") {
      server_.Be(then_);
      return {capabilities_};
    }
    return {++lastNumber_};
  }

  // The arguments of the call that shows it.
  QVariantList Show(const char* text) {
    const std::size_t before = server_.Calls("Notify").size();
    service_.Show({"Quillbox", text, 30000}, [](const Balloon&) { ADD_FAILURE(); });
    EXPECT_TRUE(ComesAbout([&] { return server_.Calls("Notify").size() == before + 1; }));
    ComesAbout([] { return true; });  // the answer to it
    return server_.Calls("Notify").back().arguments();
  }

  QStringList capabilities_ = {"body"};
  uint lastNumber_ = 40;
  FakeBusService::Mood then_ = FakeBusService::Mood::kAnswers;  // when the balloon comes
  FakeBusService server_{QString::fromUtf8(qgetenv("DBUS_SESSION_BUS_ADDRESS")),
                         "org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                         [this](const QDBusMessage& call) { return Answer(call); }};
  NotificationService service_;
};

TEST_F(NotificationServiceTest, ARepeatReplacesItselfAndMarkupIsReadByNoService) {
  server_.Appear();
  static const struct Case {
    const char *text, *shown;
    uint replaced;
    const char* capability = "";  // from then on
  } kCases[] = {
      {"one", "one", 0},
      {"two", "two", 0},
      {"one", "one", 41},
      {"<b>1 & 2</b>", "<b>1 & 2</b>", 0},
      {"two", "two", 42},
      {"<b>1 & 2</b>", "&lt;b&gt;1 &amp; 2&lt;/b&gt;", 44, "body-markup"},
      {"\"it's\"", "\"it's\"", 0},
  };
  for (const Case& c : kCases) {
    capabilities_.append(c.capability);
    const QVariantList shown = Show(c.text);
    EXPECT_EQ(shown.at(1).toUInt(), c.replaced) << c.text;
    EXPECT_EQ(shown.at(4).toString(), c.shown) << c.text;
    EXPECT_EQ(shown.at(7).toInt(), 30000) << c.text;
  }
}

TEST_F(NotificationServiceTest, GetsThePictureItself) {
  server_.Appear();
  QPixmap picture(64, 64);
  picture.fill(Qt::red);
  service_.Show({"Quillbox", "one", 30000, QIcon(picture)}, [](const Balloon&) {});
  ASSERT_TRUE(ComesAbout([&] { return server_.Calls("Notify").size() == 1; }));
  const QVariantMap hints = qdbus_cast<QVariantMap>(server_.Calls("Notify")[0].arguments().at(6));
  const auto data = hints["image-data"].value<QDBusArgument>();
  ASSERT_EQ(data.currentSignature(), "(iiibiiay)");
  int width = 0, height = 0, line = 0, bits = 0, channels = 0;
  bool alpha = false;
  QByteArray pixels;
  data.beginStructure();
  data >> width >> height >> line >> alpha >> bits >> channels >> pixels;
  EXPECT_EQ(width, 64);
  EXPECT_EQ(line * height, pixels.size());
  EXPECT_EQ(pixels.left(4), QByteArray("\xFF\0\0\xFF", 4));
}

TEST_F(NotificationServiceTest, GivesBackABalloonThatNoServiceShows) {
  using Mood = FakeBusService::Mood;
  static const struct Case {
    const char* text;
    bool there;
    Mood then;
  } kCases[] = {{"none", false, Mood::kAnswers},
                {"refuses", true, Mood::kRefuses},
                {"silent", true, Mood::kSilent},
                {"dies", true, Mood::kDies}};
  for (const Case& c : kCases) {
    if (c.there) server_.Appear();
    server_.Be(Mood::kAnswers);
    then_ = c.then;
    QString refused;
    service_.Show({"Quillbox", c.text, 30000},
                  [&](const Balloon& balloon) { refused = balloon.Text; });
    EXPECT_TRUE(ComesAbout([&] { return refused == c.text; })) << c.text;
  }
}

}  // namespace
}  // namespace quillbox
