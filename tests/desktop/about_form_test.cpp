// The About box with real widgets.
#include <gmock/gmock.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

#include "about/about_win.h"
#include "qt_windows/qt_forms.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

class RememberingOpener : public AddressOpener {
 public:
  void Open(const std::string& target) override { Opened.push_back(target); }
  std::vector<std::string> Opened;
};

QWidget* Window() {
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == "AboutWin" && widget->isVisible()) return widget;
  }
  return nullptr;
}

void Press(QWidget* widget, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
  QApplication::sendEvent(widget, &press);
  QApplication::sendEvent(widget, &release);
}

void ClickAtBeginning(QWidget* widget) {
  const QPointF place(6, widget->height() / 2.0);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }
}

class AboutFormTest : public testing::Test {
 protected:
  AboutFormTest() {
    forms_.Load(about_);
    window_ = Window();
  }

  template <class Control>
  Control* Find(const char* name) {
    return window_->findChild<Control*>(name);
  }

  // Whether the window is closed, and gone once the event loop comes round.
  bool IsGone() {
    if (Window() != nullptr) return false;
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return window_ == nullptr;
  }

  RememberingOpener opener_;
  QtForms forms_;
  BuildValues build_{"", "", "https://maker.example.test", "a<b@maker.example.test", "1.3.0"};
  AboutWin about_{build_, opener_, forms_};
  QPointer<QWidget> window_;
};

TEST_F(AboutFormTest, ShowsWhatTheModelSays) {
  ASSERT_NE(window_, nullptr);
  EXPECT_EQ(window_->windowTitle(), "About Quillbox");
  EXPECT_EQ(window_->minimumSize(), window_->maximumSize()) << "fixed";
  EXPECT_FALSE(window_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(Find<QLabel>("Product")->text(), "Quillbox 1.3.0");
  EXPECT_EQ(Find<QLabel>("Picture")->pixmap().deviceIndependentSize(), QSizeF(64, 64));
  EXPECT_THAT(Find<QLabel>("Email")->text().toStdString(), testing::HasSubstr(">a&lt;b@"));
}

TEST_F(AboutFormTest, LinksOpenSiteAndLetter) {
  ClickAtBeginning(Find<QLabel>("WebAddress"));
  ClickAtBeginning(Find<QLabel>("Email"));
  EXPECT_THAT(opener_.Opened,
              ElementsAre("https://maker.example.test", "mailto:a<b@maker.example.test"));
  EXPECT_NE(Window(), nullptr);
}

TEST_F(AboutFormTest, ASecondLoadLeavesTheOneThatIsThere) {
  forms_.Load(about_);
  EXPECT_EQ(Window(), window_);
}

TEST_F(AboutFormTest, OkClosesItAndTheNextLoadBuildsItAnew) {
  Find<QPushButton>("OK")->click();
  EXPECT_EQ(Window(), nullptr);
  forms_.Load(about_);
  EXPECT_NE(Window(), nullptr);
  EXPECT_NE(Window(), window_);
}

TEST_F(AboutFormTest, ReturnAndEscapeCloseIt) {
  for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
    forms_.Load(about_);
    window_ = Window();
    ASSERT_NE(window_, nullptr);
    Press(window_, key);
    EXPECT_TRUE(IsGone()) << key;
  }
}

TEST_F(AboutFormTest, ClosesWithTheProgram) {
  forms_.UnloadAll();
  EXPECT_TRUE(IsGone());
}

}  // namespace
}  // namespace quillbox
