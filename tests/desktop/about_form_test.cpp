// The About box with real widgets.
#include <gmock/gmock.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include "about/about_win.h"
#include "desktop/shown_window.h"
#include "qt_windows/qt_forms.h"

namespace quillbox {
namespace {

class RememberingOpener : public AddressOpener {
 public:
  void Open(const std::string& target) override { Opened.push_back(target); }
  void OpenPrivately(const std::string&) override {}
  std::vector<std::string> Opened;
};

class AboutFormTest : public testing::Test {
 protected:
  AboutFormTest() { Open(); }

  void Open() {
    forms_.Load(about_);
    window_ = ShownWindow("AboutWin");
  }

  template <class Control>
  Control* Find(const char* name) {
    return window_->findChild<Control*>(name);
  }

  void ClickAtBeginning(const char* link) {
    auto* const label = Find<QLabel>(link);
    QTest::mouseClick(label, Qt::LeftButton, {}, {6, label->height() / 2});
  }

  RememberingOpener opener_;
  QtForms forms_;
  BuildValues build_{"", "", "https://maker.example.test", "a<b@maker.example.test", "1.3.0"};
  AboutWin about_{build_, opener_, forms_};
  QPointer<QWidget> window_;
};

TEST_F(AboutFormTest, ShowsWhatTheModelSaysAndItsLinksOpenSiteAndLetter) {
  ASSERT_NE(window_, nullptr);
  EXPECT_EQ(window_->windowTitle(), "About Quillbox");
  EXPECT_EQ(window_->minimumSize(), window_->maximumSize()) << "fixed";
  EXPECT_FALSE(window_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(Find<QLabel>("Product")->text(), "Quillbox 1.3.0");
  EXPECT_EQ(Find<QLabel>("Picture")->pixmap().deviceIndependentSize(), QSizeF(64, 64));
  EXPECT_THAT(Find<QLabel>("Email")->text().toStdString(), testing::HasSubstr(">a&lt;b@"));

  ClickAtBeginning("WebAddress");
  ClickAtBeginning("Email");
  EXPECT_THAT(opener_.Opened,
              testing::ElementsAre("https://maker.example.test", "mailto:a<b@maker.example.test"));
  EXPECT_EQ(ShownWindow("AboutWin"), window_);
}

TEST_F(AboutFormTest, IsThereOnceUntilItIsClosed) {
  const struct Case {
    const char* end;
    std::function<void()> act;
  } kCases[] = {{"OK", [&] { Find<QPushButton>("OK")->click(); }},
                {"Return", [&] { QTest::keyClick(window_, Qt::Key_Return); }},
                {"Escape", [&] { QTest::keyClick(window_, Qt::Key_Escape); }},
                {"Ctrl+W",
                 [&] {
                   ASSERT_TRUE(QTest::qWaitForWindowActive(window_)) << "for shortcuts";
                   QTest::keyClick(window_, Qt::Key_W, Qt::ControlModifier);
                 }},
                {"end of the program", [&] { forms_.UnloadAll(); }}};
  for (const Case& c : kCases) {
    const QPointer<QWidget> first = window_;
    Open();
    EXPECT_EQ(window_, first) << c.end;
    c.act();
    EXPECT_EQ(ShownWindow("AboutWin"), nullptr) << c.end;
    Open();
    ASSERT_NE(window_, nullptr) << c.end;
    EXPECT_NE(window_, first) << c.end << ": the closed one again";
    DeleteClosedWindows();
    EXPECT_EQ(first, nullptr) << c.end;
  }
}

}  // namespace
}  // namespace quillbox
