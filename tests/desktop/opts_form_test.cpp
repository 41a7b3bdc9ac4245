// The Options dialog and the Account form with real widgets. What they do is the models' and is
// tested there; here is whether the widgets show it all, and bring it all to the models.
#include "qt_windows/opts_form.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <set>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/shown_window.h"
#include "options/opts.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/qt_forms.h"
#include "simulated/context_on_state.h"
#include "simulated/simulated_forms.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

// The letters behind "&" in the captions of what the page itself holds.
std::multiset<QChar> Mnemonics(const QWidget* page) {
  std::multiset<QChar> letters;
  const auto add = [&](const QString& caption) {
    const auto mark = caption.indexOf('&');
    if (mark >= 0) letters.insert(caption[mark + 1].toUpper());
  };
  for (const auto* button : page->findChildren<QAbstractButton*>()) add(button->text());
  for (const auto* label : page->findChildren<QLabel*>()) add(label->text());
  return letters;
}

// Two accounts; the settings are those of a first start.
class OptsFormTest : public ContextOnState {
 protected:
  OptsFormTest() : ContextOnState(forms_) {
    state_.ShowBalloonWhen = kBalloonNever;
    state_.SoundFiles.fill(std::string(kNoSound));
    Store({{"one", "two"}, {"ann", "bob"}, {"x", "y"}});
    BuildTraySubmenus(program_);
    Open();
  }
  ~OptsFormTest() override { forms_.UnloadAll(); }

  void Store(const AccountList& accounts) {
    SettingBatch settings;
    SaveAccountList(settings, accounts);
    store_.WriteBatch(settings);
  }

  // With the accounts as they are stored.
  void Open() {
    forms_.UnloadAll();
    DeleteClosedWindows();
    static_cast<AccountList&>(state_) = LoadAccountList(store_);
    model_ = std::make_unique<Opts>(program_, autoUpdate_, dialog_);
    model_->Load();
    window_ = ShownWindow("Opts");
    ASSERT_NE(window_, nullptr);
  }

  template <class Widget>
  Widget* Find(const std::string& name) {
    return window_->findChild<Widget*>(QString::fromStdString(name));
  }

  QtForms forms_;
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{host_.Chooser};
  std::unique_ptr<Opts> model_;
  QPointer<QWidget> window_;
};

TEST_F(OptsFormTest, EveryControlHasAWidgetThatTellsWhatItIsInTheOrderOfTheTabKey) {
  host_.Windows.Load(*model_);
  std::vector<QString> expected, found;
  for (const Control* const control : ControlsOf(host_.Windows, FormName::kOpts)) {
    SCOPED_TRACE(control->Name());
    const auto widgets = window_->findChildren<QWidget*>(QString::fromStdString(control->Name()));
    ASSERT_EQ(widgets.size(), 1);
    const QWidget* const widget = widgets.first();
    EXPECT_EQ(widget->isEnabled(), control->Enabled());
    const QString caption = ToUnicode(control->Caption());
    EXPECT_TRUE(widget->accessibleName().startsWith(QString(caption).remove('&')));
    if (qobject_cast<const QComboBox*>(widget) || qobject_cast<const QLineEdit*>(widget)) {
      const auto labels = window_->findChildren<QLabel*>();
      EXPECT_TRUE(std::ranges::any_of(labels, [&](const QLabel* label) {
        return label->buddy() == widget && label->text() == caption;
      }));
    }
    if (widget->focusPolicy() & Qt::TabFocus) expected.push_back(widget->objectName());
  }
  EXPECT_GT(expected.size(), 40U);
  const QWidget* widget = window_->nextInFocusChain();
  for (; widget != window_; widget = widget->nextInFocusChain()) {
    if (std::ranges::count(expected, widget->objectName()) > 0) {
      found.push_back(widget->objectName());
    }
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(Find<QCheckBox>("Check14")->accessibleName(),
            "Pause 30 seconds before checking for new version or refreshing tooltip");
  EXPECT_EQ(Find<QTabWidget>("Tabs")->count(), 7);
}

TEST_F(OptsFormTest, MnemonicsAreUniqueWithinAPage) {
  const auto* const tabs = Find<QTabWidget>("Tabs");
  std::size_t found = 0;
  for (int page = 0; page < tabs->count(); ++page) {
    const auto letters = Mnemonics(tabs->widget(page));
    for (const QChar letter : letters) EXPECT_EQ(letters.count(letter), 1U) << page;
    found += letters.size();
  }
  EXPECT_EQ(found, 14U);
}

TEST_F(OptsFormTest, LongNamesDontWidenIt) {
  const QSize usual = window_->size();
  Store({{std::string(500, 'w')}, {"ann"}, {"x"}});
  Open();
  EXPECT_EQ(window_->size(), usual);
  const auto* const names = Find<QComboBox>("Combo3");
  EXPECT_EQ(names->itemText(0), QString(30, 'w') + QChar(0x2026) + QString(29, 'w'));
  EXPECT_EQ(names->itemData(0, Qt::ToolTipRole), QString(500, 'w'));
  EXPECT_EQ(names->toolTip(), QString(500, 'w'));
  EXPECT_EQ(model_->AdSenseFrame.Combo3.Text(), std::string(500, 'w'));
}

TEST_F(OptsFormTest, KeysInAnOpenListAreTheLists) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_)) << "for shortcuts";
  Find<QTabWidget>("Tabs")->setCurrentIndex(3);
  auto* const list = Find<QComboBox>("Combo5");
  Find<QPushButton>("Command4")->click();
  for (const auto& keys : {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::Key_Escape)}) {
    list->showPopup();
    QTest::keySequence(list->view(), keys);
    EXPECT_TRUE(model_->Loaded());
    EXPECT_EQ(Find<QTabWidget>("Tabs")->currentIndex(), 3);
  }
  EXPECT_FALSE(list->view()->isVisible());
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_FALSE(model_->Loaded());
}

TEST_F(OptsFormTest, WithoutAnAccountTheirPageLeadsToAdd) {
  auto* tabs = Find<QTabWidget>("Tabs");
  tabs->setCurrentIndex(1);
  EXPECT_NE(window_->focusWidget(), Find<QPushButton>("Command5"));
  Store({});
  Open();  // on the page that was shown last
  EXPECT_EQ(window_->focusWidget(), Find<QPushButton>("Command5"));
  tabs = Find<QTabWidget>("Tabs");
  tabs->setCurrentIndex(0);
  tabs->setCurrentIndex(1);
  EXPECT_EQ(window_->focusWidget(), Find<QPushButton>("Command5"));
}

TEST_F(OptsFormTest, ListsOfAPageBeginAndEndAtTheSameLines) {
  const auto ends = [&](const char* name) {
    const auto* const list = Find<QComboBox>(name);
    return std::pair(list->geometry().left(), list->geometry().right());
  };
  Find<QTabWidget>("Tabs")->setCurrentIndex(5);
  EXPECT_EQ(ends("Combo10"), ends("Combo11"));
  Find<QTabWidget>("Tabs")->setCurrentIndex(3);
  EXPECT_EQ(ends("Combo5"), ends("Combo1"));
  EXPECT_EQ(ends("Combo5"), ends("Combo2"));
}

TEST_F(OptsFormTest, WhatThePersonDoesReachesTheModel) {
  EXPECT_FALSE(Find<QPushButton>("ApplyButton")->isEnabled());
  Find<QCheckBox>("Check1")->click();
  EXPECT_TRUE(model_->GeneralFrame.Check1.Ticked());
  EXPECT_TRUE(Find<QPushButton>("ApplyButton")->isEnabled());
  Find<QPushButton>("ApplyButton")->click();
  EXPECT_EQ(store_.ReadSetting(kUse24Hour), kTrue);
  EXPECT_FALSE(Find<QPushButton>("ApplyButton")->isEnabled());

  QTest::keyClick(Find<QComboBox>("Combo3"), Qt::Key_Down);
  EXPECT_EQ(model_->AdSenseFrame.Combo3.Text(), "two");
  EXPECT_TRUE(model_->AdSenseFrame.AdSenseChanged);

  Find<QTabWidget>("Tabs")->setCurrentIndex(6);
  EXPECT_EQ(store_.ReadSetting(kLastOption), "Internet");
  Find<QPushButton>("Command8")->click();
  EXPECT_THAT(host_.Trace({"open"}), ElementsAre(testing::HasSubstr("/Forum/index.php?c=19")));
}

TEST_F(OptsFormTest, LinesAreForTheCodePageButKeepWhatItLacks) {
  auto* const line = Find<QLineEdit>("Text3");
  line->insert(QString::fromUtf8("a\u20ac\u0416\U0001F426"));
  EXPECT_EQ(model_->ProxyFrame.Text3.Text(), "a\x80\x1A\x1A");
  EXPECT_EQ(line->text(), QString::fromUtf8("a\u20ac\u0416\U0001F426"));
  model_->ProxyFrame.Text4.SetText("\x80");
  EXPECT_EQ(Find<QLineEdit>("Text4")->text(), QString(QChar(0x20AC)));
  auto* const password = Find<QLineEdit>("Text2");
  EXPECT_EQ(password->displayText(), "");
  password->insert("abc");
  EXPECT_EQ(password->displayText(), "***");
}

TEST_F(OptsFormTest, TheModelShowsWithoutRunningEvents) {
  int clicks = 0;
  ListField& list = model_->TrayIconFrame.Combo5;
  list.Clicked = [&] { ++clicks; };
  list.Add("another");
  list.ShowSelected(list.Items().size() - 1);
  EXPECT_EQ(Find<QComboBox>("Combo5")->currentText(), "another");
  list.Remove(list.Items().size() - 1);
  EXPECT_EQ(Find<QComboBox>("Combo5")->currentIndex(), -1);
  EXPECT_EQ(clicks, 0);
  model_->GeneralFrame.Check1.SetEnabled(false);
  EXPECT_FALSE(Find<QCheckBox>("Check1")->isEnabled());
}

// Names of files are the host's own bytes, not the code page's.
TEST_F(OptsFormTest, OnlyChoosingASoundCounts) {
  EditableList& sounds = model_->SoundsFrame.Combo11;
  sounds.Add("b\xc3\xa9.wav");
  auto* const box = Find<QComboBox>("Combo11");
  EXPECT_EQ(box->itemText(1), QString::fromUtf8("b\u00e9.wav"));

  box->lineEdit()->selectAll();
  box->lineEdit()->insert(box->itemText(1));
  QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
  QApplication::sendEvent(box->lineEdit(), &leave);
  EXPECT_EQ(model_->SoundsFrame.SoundChoices[0], "(None)");
  EXPECT_EQ(box->currentText(), "(None)");

  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(model_->SoundsFrame.SoundChoices[0], "b\xc3\xa9.wav");
  EXPECT_TRUE(Find<QPushButton>("Command9")->isEnabled());
}

// Each after the first of two accounts was removed.
TEST_F(OptsFormTest, OkCancelAndCloseBoxAreThreeEndings) {
  static const struct Case {
    const char* name;
    std::function<void(QWidget*)> end;
    const char* stored;
    const char* state;
  } kCases[] = {
      {"close box", [](QWidget* window) { window->close(); }, "one|||two", "one"},
      {"Cancel", [](QWidget* window) { window->findChild<QPushButton*>("Command2")->click(); },
       "one|||two", "two"},
      {"Escape", [](QWidget* window) { QTest::keyClick(window, Qt::Key_Escape); }, "one|||two",
       "two"},
      {"Return", [](QWidget* window) { QTest::keyClick(window, Qt::Key_Return); }, "one", "one"},
  };
  for (const Case& c : kCases) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_)) << "for its shortcuts";
    host_.Boxes.Add({.Answer = BoxAnswer::kYes});
    QTest::keyClick(Find<QComboBox>("Combo3"), Qt::Key_Down);
    Find<QPushButton>("Command6")->click();
    c.end(window_);
    EXPECT_EQ(ShownWindow("Opts"), nullptr) << c.name;
    EXPECT_FALSE(model_->Loaded()) << c.name;
    model_.reset();  // the window lives a little longer
    DeleteClosedWindows();
    EXPECT_EQ(window_, nullptr) << c.name;
    EXPECT_EQ(store_.ReadSetting(kAccounts), c.stored) << c.name;
    EXPECT_EQ(state_.Accounts.back(), c.state) << c.name;
  }
}

TEST_F(OptsFormTest, AccountFormStandsInTheMiddleAndTakesAnEntry) {
  QWidget* account = nullptr;
  const auto open = [&] {
    Find<QPushButton>("Command7")->click();
    account = ShownWindow("Account");
    ASSERT_NE(account, nullptr);
  };
  open();
  EXPECT_EQ(account->windowTitle(), "Edit AdSense Account");
  EXPECT_EQ(account->windowModality(), Qt::WindowModal);
  const QPoint apart = account->geometry().center() - window_->geometry().center();
  EXPECT_LE(apart.manhattanLength(), 2);
  auto* const password = account->findChild<QLineEdit*>("Text3");
  EXPECT_EQ(password->displayText(), "*");
  auto* const connect = account->findChild<QPushButton*>("Connect");
  host_.Grants.Add({{"grant:ABCDEFGHIJ27", ""}});
  connect->click();
  EXPECT_FALSE(connect->isEnabled());
  auto* const waiting = account->findChild<QLabel*>("Waiting");
  EXPECT_TRUE(waiting->isVisible());
  EXPECT_EQ(waiting->height(), waiting->heightForWidth(waiting->width()));
  account->findChild<QPushButton*>("StopWaiting")->click();
  EXPECT_TRUE(connect->isEnabled());
  EXPECT_FALSE(waiting->isVisible());
  host_.Grants.Add({{"grant:ABCDEFGHIJ27", ""}});
  connect->click();
  host_.RunFor(std::chrono::seconds(1));
  EXPECT_TRUE(connect->isEnabled());
  EXPECT_EQ(password->text(), "grant:ABCDEFGHIJ27");

  const struct Case {
    Qt::Key key;
    const char* name;
  } kCases[] = {{Qt::Key_Escape, "one"}, {Qt::Key_Return, "renamed"}};
  for (const Case& c : kCases) {
    open();
    auto* const name = account->findChild<QLineEdit*>("Text1");
    name->setText("renamed");
    QTest::keyClick(name, c.key);
    EXPECT_EQ(ShownWindow("Account"), nullptr) << c.name;
    EXPECT_EQ(Find<QComboBox>("Combo3")->currentText(), c.name);
  }
  EXPECT_TRUE(Find<QPushButton>("ApplyButton")->isEnabled());
}

}  // namespace
}  // namespace quillbox
