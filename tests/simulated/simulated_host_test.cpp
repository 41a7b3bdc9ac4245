// A process on a simulated host: how it ends, and what happens to it from outside.
#include "simulated/simulated_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/menu.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// The least of a program: two menu items, one of them disabled.
class Listener : public HostEvents {
 public:
  explicit Listener(SimulatedHost& host) : ports_(host.Ports()) {
    MenuItem exit;
    exit.Name = "Exit";
    exit.Caption = "Leave";
    MenuItem help;
    help.Name = help.Caption = "Help";
    help.Submenu = true;
    help.Items.push_back(exit);
    MenuItem refresh;
    refresh.Name = refresh.Caption = "RefreshNow";
    refresh.Enabled = false;
    menu_ = {refresh, help};
  }

  void TaskbarCreated() override { ports_.Speaker.PlaySoundFile("created"); }
  void QuillboxLaunched() override { ports_.Speaker.PlaySoundFile("launched"); }
  void Form_MouseMove(TrayMouse) override { ports_.Speaker.PlaySoundFile("mouse"); }
  const Menu& TrayMenu() override { return menu_; }
  void MenuItemChosen(const MenuItem& item) override {
    ports_.Speaker.PlaySoundFile("chosen");
    if (item.Name == "Exit") ports_.Exit.EndProcess();
  }

 private:
  Host ports_;
  Menu menu_;
};

class SimulatedHostTest : public testing::Test {
 protected:
  SimulatedHostTest() { host_.Connect(listener_); }

  SimulatedHost host_;
  Host ports_ = host_.Ports();
  Listener listener_{host_};
};

TEST_F(SimulatedHostTest, TheEndLeavesNestedWaitsAtOnce) {
  host_.After(1s, [this] { host_.Choose("Exit"); });
  bool wentOn = false;
  host_.Do([&] {
    ports_.Boxes.Show({.Text = "short"});
    for (int i = 0; i < 2000; ++i) {
      ports_.Events.Sleep(1ms);
      ports_.Events.PumpEvents();
    }
    wentOn = true;
  });
  EXPECT_FALSE(wentOn);
  EXPECT_TRUE(host_.Ended());
  EXPECT_EQ(host_.Time.Now(), 1s);
  EXPECT_THAT(host_.Trace({"menu", "exit"}), ElementsAre("menu Exit", "exit"));
}

TEST_F(SimulatedHostTest, NothingOfTheProcessRunsAfterItsEnd) {
  const auto timer =
      ports_.TimerSource.NewTimer(1s, [this] { ports_.Speaker.PlaySoundFile("tick"); });
  timer->SetEnabled(true);
  ports_.Agents.Start({"https://h/v|/d/a.dat|/d/a.log", {}});
  AboutWin about({}, ports_.Opener, ports_.Windows);
  ports_.Windows.Load(about);
  host_.Choose("Exit");
  EXPECT_FALSE(host_.Choose("Exit"));
  host_.Effects.Clear();
  host_.TrayRestarts();
  host_.LaunchAgain();
  host_.RunFor(1h);
  EXPECT_THAT(host_.Trace(), IsEmpty());
  EXPECT_EQ(host_.Agents.RunningCount(), 0U);
  EXPECT_EQ(host_.Windows.AboutWin(), nullptr);
}

TEST_F(SimulatedHostTest, EventsGoOnWhileABoxIsOpen) {
  host_.Boxes.Add({.Part = "second", .Answer = BoxAnswer::kYes, .OpenFor = 10s});
  host_.After(4s, [this] { host_.LaunchAgain(); });
  host_.Do([this] {
    EXPECT_EQ(ports_.Boxes.Show({.Text = "first?", .Buttons = BoxButtons::kYesNo}), BoxAnswer::kNo);
    EXPECT_EQ(ports_.Boxes.Show({.Text = "second?", .Buttons = BoxButtons::kYesNo}),
              BoxAnswer::kYes);
  });
  EXPECT_THAT(host_.Trace(), ElementsAre("box first?", "answer No", "box second?", "sound launched",
                                         "answer Yes"));
  EXPECT_EQ(host_.Time.Now(), 10s);
}

TEST_F(SimulatedHostTest, TheTrayCanBeAwayRestartAndLoseTheIcon) {
  TrayIconRecord record;
  record.uFlags = kNifInfo;
  record.szInfoTitle = "Quillbox";
  record.szInfo = "text";
  host_.Tray.SetPresent(false);
  EXPECT_FALSE(ports_.Tray.Apply(TrayOperation::kAdd, record));
  host_.TrayAppears();
  EXPECT_FALSE(ports_.Tray.Apply(TrayOperation::kModify, record));
  EXPECT_TRUE(ports_.Tray.Apply(TrayOperation::kAdd, record));
  host_.Tray.LoseIcon();
  EXPECT_FALSE(ports_.Tray.Apply(TrayOperation::kModify, record));
  EXPECT_THAT(host_.Trace(),
              ElementsAre("tray add, no icon", "sound created", "tray modify, no icon", "tray add",
                          "balloon Quillbox: text", "tray modify, no icon"));
}

TEST_F(SimulatedHostTest, ChoosesItemsByNameOrCaptionAlsoInSubmenus) {
  EXPECT_FALSE(host_.Choose("RefreshNow"));
  EXPECT_FALSE(host_.Choose("Help"));
  EXPECT_TRUE(host_.Choose("Leave"));
  EXPECT_THAT(host_.Trace(), ElementsAre("menu RefreshNow, disabled", "menu Help, no such item",
                                         "menu Leave", "sound chosen", "exit"));
}

TEST_F(SimulatedHostTest, ASignedInAddressIsTracedWithoutItsPassword) {
  ports_.Opener.Open("https://h/in?Email=a&Passwd=secret");
  ports_.Opener.Open("https://h/Forum/index.php?c=19");
  EXPECT_THAT(host_.Trace(),
              ElementsAre("open https://h/in?...", "open https://h/Forum/index.php?c=19"));
}

}  // namespace
}  // namespace quillbox
