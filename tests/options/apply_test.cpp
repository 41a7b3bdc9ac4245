// What Apply writes and sets going, and what OK, Cancel and the close box do besides.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "options/open_options.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class Apply : public OpenOptions {
 protected:
  Apply() { Open(); }

  // What Apply does, but for the sounds, which are always written.
  std::vector<std::string> Effects() {
    host_.Effects.Clear();
    PressApply();
    std::vector<std::string> lines = host_.Trace();
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("store Sounds/"); });
    return lines;
  }
};

TEST_F(Apply, WritesAPageWholeAndInOrder) {
  struct Case {
    void (*change)(Opts&);
    const char* effects;
  };
  const Case kCases[] = {
      {[](Opts& form) { form.GeneralFrame.Check5.SetTicked(true); },
       "store General/CheckForNewVersion=False\nstore General/RefreshTooltip=True\n"
       "store General/Pause=False\nstore General/Load=False\nstart-up entry removed\n"
       "store General/Use24Hour=False"},
      {[](Opts& form) { form.GeneralFrame.Check3.SetTicked(true); },
       "store General/CheckForNewVersion=False\nstore General/RefreshTooltip=False\n"
       "store General/Pause=False\nstore General/Load=True\nstart-up entry made\n"
       "store General/Use24Hour=False"},
      {[](Opts& form) { form.AutoUpdateFrame.Combo4.SelectText("Every hour"); },
       "store AutoUpdate/Rate=Every hour\nstore AutoUpdate/Enable=False"},
      {[](Opts& form) { form.TrayIconFrame.Combo2.SelectText("Clicks Changes"); },
       "store TrayIcon/SingleAction=No Action\nstore TrayIcon/Action=Open Quillbox Options\n"
       "store TrayIcon/ShowBalloonWhen=Clicks Changes"},
      {[](Opts& form) { form.TrayIconFrame.Command4.Click(); },
       "store TrayIcon/Icon=default\ntray modify, no icon\n"
       "store TrayIcon/SingleAction=No Action\nstore TrayIcon/Action=Open Quillbox Options\n"
       "store TrayIcon/ShowBalloonWhen=Never"},
      {[](Opts& form) {
         for (CheckBox* box : form.TrayTooltipFrame.Values()) box->SetTicked(!box->Ticked());
       },
       "store TrayTooltip/Values=HIJKLM\n"
       "store TrayTooltip/ShowDataByPage=Individual Ad Unit\n"
       "store TrayTooltip/DataToDownload=AdSense for Content\n"
       "store TrayTooltip/DisplayAllStats=False"},
      {[](Opts& form) {
         form.ProxyFrame.Text1.SetText(" ann ");
         form.ProxyFrame.Text3.SetText(" proxy.test");
         form.ProxyFrame.Text4.SetText(" 8080 ");
       },
       "store Proxy/Username=...\nstore Proxy/Password=...\nstore Proxy/Server=proxy.test\n"
       "store Proxy/Port=8080\nstore AutoUpdate/WhenConnected=False"},
  };
  for (const Case& c : kCases) {
    StartAfresh();
    Open();
    c.change(Form());
    EXPECT_EQ(JoinText(Effects(), "\n"), c.effects);
  }
  EXPECT_EQ(state_.ProxyUsername + state_.ProxyServer + state_.ProxyPort, "annproxy.test8080");
  EXPECT_EQ(ReadProxyUsername(store_), "ann");
}

TEST_F(Apply, WritesTheChangedPagesInTheirOrderAndAllOfThemAgain) {
  Form().ProxyFrame.Check12.SetTicked(true);
  Form().TrayTooltipFrame.Check4.SetTicked(true);
  Form().AdSenseFrame.Combo3.Select(1);
  for (const char* lastRate : {"Every minute", "Every hour"}) {
    Form().AutoUpdateFrame.Combo4.SelectText(lastRate);
    host_.Effects.Clear();
    PressApply();
    std::vector<std::string> sections;
    for (const std::string& line : host_.Trace({"store"})) {
      const std::string section = line.substr(6, line.find('/') - 6);
      if (sections.empty() || sections.back() != section) sections.push_back(section);
    }
    EXPECT_THAT(sections, ElementsAre("AdSense", "AutoUpdate", "TrayTooltip", "Sounds", "Proxy",
                                      "AutoUpdate"));
    EXPECT_EQ(Get(kAutoUpdateRate), lastRate);
  }
  EXPECT_EQ(Shown("ApplyButton"), ", disabled");
  Form().Mark.ApplyButton.SetEnabled(true);
  EXPECT_THAT(Effects(), IsEmpty()) << "nothing has changed since";
}

TEST_F(Apply, StartsAndStopsTheMinuteClock) {
  AutoUpdateFrame& page = Form().AutoUpdateFrame;
  const auto apply = [&] {
    PressApply();
    return state_.UpdateMinuteCount;
  };
  state_.UpdateMinuteCount = 7;
  page.Check7.SetTicked(true);
  EXPECT_EQ(apply(), 0);
  EXPECT_EQ(state_.UpdateRateMinutes, 15);
  host_.RunFor(3min);
  page.Combo4.SelectText("Every 2 hours");
  EXPECT_EQ(apply(), 3);
  EXPECT_EQ(state_.UpdateRateMinutes, 120);
  host_.RunFor(1min);
  page.Check7.SetTicked(false);
  EXPECT_EQ(apply(), 4);
  host_.RunFor(5min);
  EXPECT_EQ(state_.UpdateMinuteCount, 4);
  page.Check7.SetTicked(true);
  EXPECT_EQ(apply(), 0);
}

TEST_F(Apply, BuildsTheTooltipAnewForTheSelectedAccount) {
  for (const char* account : {"", "two"}) {
    host_.Store.Put("Accounts", account, "31.01.2007|||1|||2|||3|||4|||5|||||||||||||||||||||");
  }
  Form().AdSenseFrame.Combo3.Select(1);
  Form().TrayTooltipFrame.Check34.SetTicked(false);
  PressApply();
  EXPECT_THAT(state_.TooltipText, testing::StartsWith("Impressions: 2\r\n"));
  state_.TooltipText = "as it was";
  for (int accounts = 3; accounts > 0; --accounts) Form().AdSenseFrame.Combo3.Remove(0);
  Form().TrayTooltipFrame.Check34.SetTicked(true);
  PressApply();
  EXPECT_EQ(state_.TooltipText, "as it was");
}

TEST_F(Apply, ComesWithOkWhenThereIsAChange) {
  host_.Effects.Clear();
  Form().Command1.Click();
  EXPECT_THAT(host_.Trace(), ElementsAre("hide Opts", "close Opts"));
  Open();
  Form().AutoUpdateFrame.Combo4.SelectText("Every hour");
  host_.Effects.Clear();
  Form().Command1.Click();
  EXPECT_THAT(host_.Trace({"hide", "close"}), ElementsAre("hide Opts", "close Opts"));
  EXPECT_EQ(Get(kAutoUpdateRate), "Every hour");
}

// Cancel takes the stored accounts back, the close box leaves them as edited.
TEST_F(Apply, IsMissingFromCancelAndCloseBox) {
  SettingBatch batch;
  SaveAccountList(batch, state_);
  store_.WriteBatch(batch);
  for (const bool edited : {false, true}) {
    for (const bool cancel : {false, true}) {
      Open();
      state_.Accounts[0] = "edited";
      Form().AdSenseFrame.AdSenseChanged = edited;
      host_.Effects.Clear();
      cancel ? Form().Command2.Click() : host_.Windows.CloseBox(FormName::kOpts);
      EXPECT_EQ(state_.Accounts[0], cancel && edited ? "one" : "edited") << cancel << edited;
      EXPECT_THAT(host_.Trace(), ElementsAre("close Opts"));
    }
  }
}

TEST_F(Apply, IsNotUndoneByCancelAndEachOpeningHasAFormOfItsOwn) {
  Form().GeneralFrame.Check1.SetTicked(true);
  PressApply();
  Form().GeneralFrame.Check1.SetTicked(false);
  host_.Effects.Clear();
  form_.Options_Click();
  EXPECT_EQ(Shown("Check1"), "False") << "it is open already";
  Form().Command2.Click();
  EXPECT_THAT(host_.Trace(), ElementsAre("close Opts"));
  EXPECT_EQ(Get(kUse24Hour), "True");
  Open();
  EXPECT_EQ(Shown("Check1"), "True");
}

}  // namespace
}  // namespace quillbox
