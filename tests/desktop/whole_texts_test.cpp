// All windows in the fonts, colours and themes that people have: every text is seen whole, and what
// is ours stays ours. Run on screens of more dots and under a theme plug-in, too.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include "about/about_win.h"
#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/shown_window.h"
#include "options/opts.h"
#include "qt_windows/qt_forms.h"
#include "qt_windows/reports_window.h"
#include "reports/reports_win.h"
#include "simulated/context_on_state.h"

namespace quillbox {
namespace {

using testing::IsEmpty;

constexpr double kReportsPoints = 8.25;

bool IsWhole(const QWidget& widget) {
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  if (label != nullptr && label->wordWrap()) {
    return label->height() >= label->heightForWidth(label->width());
  }
  // A group is as large as what is in it wants; only its title is its own.
  const bool isGroup = qobject_cast<const QGroupBox*>(&widget) != nullptr;
  const QSize wanted = isGroup ? widget.minimumSizeHint() : widget.sizeHint();
  return widget.width() >= wanted.width() && widget.height() >= wanted.height();
}

bool ShowsCaption(const QWidget* widget) {
  return widget->isVisible() &&
         std::ranges::any_of(
             std::array{"QLabel", "QAbstractButton", "QComboBox", "QGroupBox", "QTabBar"},
             [&](const char* kind) { return widget->inherits(kind); });
}

bool TouchesAnother(const QWidget& widget) {
  const auto others = widget.parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  return std::ranges::any_of(others, [&](const QWidget* other) {
    return other != &widget && ShowsCaption(other) &&
           other->geometry().intersects(widget.geometry().adjusted(0, 0, 0, 1));
  });
}

// What is cut off, or stands in the way of another.
std::vector<std::string> Faults(QWidget* window) {
  std::vector<std::string> found;
  for (const auto* widget : window->findChildren<QWidget*>()) {
    if (!ShowsCaption(widget)) continue;
    const bool inside = widget->parentWidget()->rect().contains(widget->geometry());
    if (IsWhole(*widget) && inside && !TouchesAnother(*widget)) continue;
    found.push_back((window->objectName() + ": " + widget->objectName()).toStdString() +
                    widget->metaObject()->className());
  }
  return found;
}

QPalette Dark() {
  QPalette dark(QColor(53, 53, 53), QColor(40, 40, 40));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  return dark;
}

struct Look {
  const char* Name;
  double Points;  // 0: as it is
  bool IsDark = false;
  bool OfKinds = false;  // a theme's fonts for kinds of widgets
  const char* Sheet = "";
};
constexpr Look kLooks[] = {
    {"default", 0},
    {"dark", 0, true},
    {"8-dark", 8, true},
    {"11", 11},
    {"14", 14},
    {"14-kinds", 14, false, true},
    {"14-sheet", 14, true, true, "QToolTip { color: black; }"},
};

constexpr const char* kKinds[] = {"QLabel",      "QComboBox",       "QComboBoxListView",
                                  "QPushButton", "QAbstractButton", "QWidget"};

class WholeTexts : public ContextOnState {
 protected:
  WholeTexts() : ContextOnState(forms_, reports_) {
    state_.ShowBalloonWhen = kBalloonNever;
    state_.SoundFiles.fill(std::string(kNoSound));
    state_.Accounts[0] = std::string(80, 'w');
    OpenAll();
  }
  ~WholeTexts() override {
    forms_.UnloadAll();
    Wear(kLooks[0]);
  }

  void OpenAll() {
    forms_.UnloadAll();
    DeleteClosedWindows();
    opts_ = std::make_unique<Opts>(program_, autoUpdate_, dialog_);
    opts_->Load();
    opts_->AdSenseFrame.Command5.Click();
    about_.emplace(build_, host_.Opener, forms_);
    forms_.Load(*about_);
    reportsWin_.Load();
  }

  void Wear(const Look& look) {
    QFont font = font_;
    if (look.Points > 0) font.setPointSizeF(look.Points);
    QApplication::setFont(font);
    QFont ofKind = font;
    ofKind.setBold(look.OfKinds);
    for (const char* const kind : kKinds) {
      if (look.OfKinds) QApplication::setFont(ofKind, kind);
    }
    QApplication::setPalette(look.IsDark ? Dark() : palette_);
    qApp->setStyleSheet(look.Sheet);
  }

  // All that is wrong with the windows as they stand; and their pictures, for whoever asks.
  std::vector<std::string> LookAtAll(const std::string& name) {
    std::vector<std::string> found;
    for (const char* const window : {"Opts", "Account", "AboutWin", "ReportsWin"}) {
      QWidget* const shown = ShownWindow(window);
      if (shown == nullptr) return {std::string("no ") + window};
      auto* const tabs = shown->findChild<QTabWidget*>();
      for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
        if (tabs != nullptr) tabs->setCurrentIndex(page);
        Settle();
        for (const std::string& fault : Faults(shown)) found.push_back(fault);
        TakePicture(shown, name + "-" + window + (tabs ? std::to_string(page) : ""));
      }
    }
    return found;
  }

  // The frame stands out from what is behind it, at the middle of its left side.
  static bool GroupsAreSeen() {
    const auto* const group = ShownWindow("Opts")->findChild<QTabWidget*>()->currentWidget();
    auto* const box = group->findChild<QGroupBox*>();
    const QImage picture = box->grab().toImage();
    const int middle = picture.height() / 2;
    const int behind = qGray(picture.pixel(picture.width() / 2, picture.height() - 4));
    int farthest = 0;
    for (int x = 0; x < 6; ++x) {
      farthest = std::max(farthest, std::abs(qGray(picture.pixel(x, middle)) - behind));
    }
    return farthest >= 8;
  }

  static void Settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
  }

  static void TakePicture(QWidget* window, const std::string& name) {
    const QString folder = qEnvironmentVariable("QUILLBOX_PICTURES");
    if (!folder.isEmpty()) window->grab().save(folder + "/" + name.c_str() + ".png");
  }

  const QFont font_ = QApplication::font();
  const QPalette palette_ = QApplication::palette();
  ReportsWindow reports_{"/no/program/for/it", host_.Opener};
  QtForms forms_{&reports_};
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{host_.Chooser};
  std::unique_ptr<Opts> opts_;
  std::optional<AboutWin> about_;
  ReportsWin reportsWin_{program_};
};

TEST_F(WholeTexts, InEveryLookFromTheStartAndAfterAChange) {
  for (const Look& look : kLooks) {
    SCOPED_TRACE(look.Name);
    Wear(look);
    EXPECT_THAT(LookAtAll(std::string(look.Name) + "-changed"), IsEmpty());
    OpenAll();
    EXPECT_THAT(LookAtAll(look.Name), IsEmpty());

    const QWidget* const panel = ShownWindow("ReportsWin")->findChild<QWidget*>("Shape2");
    for (const QWidget* const child : panel->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      EXPECT_EQ(child->font().pointSizeF(), kReportsPoints) << child->objectName().toStdString();
      EXPECT_FALSE(child->font().bold()) << child->objectName().toStdString();
    }
    EXPECT_GT(panel->palette().color(QPalette::Window).lightness(), 240);
    EXPECT_TRUE(GroupsAreSeen());
    const auto* const product = ShownWindow("AboutWin")->findChild<QLabel*>("Product");
    EXPECT_GT(product->font().pointSizeF(), 1.3 * QApplication::font(product).pointSizeF());
  }
}

}  // namespace
}  // namespace quillbox
