// How the pages are filled from the store, and which fields then count as a change of which page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/controls.h"
#include "options/open_options.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

TEST_F(OpenOptions, StoresItsDefaultsAndRewritesOnlyTheTextsThatItMust) {
  Open();
  EXPECT_THAT(
      host_.Trace(),
      ElementsAre("store Misc/LastOption=General", "store AutoUpdate/Rate=Every 15 minutes",
                  "store AutoUpdate/Enable=False", "store TrayIcon/SingleAction=No Action",
                  "store TrayIcon/Action=Open Quillbox Options", "store TrayTooltip/Values=ABCDEFG",
                  "store TrayTooltip/DataToDownload=AdSense for Content", "form Opts"));
  Open(
      "TrayTooltip/DataToDownload=Both; AutoUpdate/Enable=False:; "
      "TrayIcon/Action=Open AdSense account; TrayTooltip/ShowDataByPage=");
  EXPECT_THAT(host_.Trace({"store"}),
              ElementsAre("store Misc/LastOption=General", "store TrayTooltip/DataToDownload=All"));
  Open("AutoUpdate/Enable=Yes");
  EXPECT_EQ(Get(kAutoUpdateEnable), "False");
}

TEST_F(OpenOptions, ShowsWhatIsStored) {
  struct Case {
    const char* stored;
    const char* controls;
    const char* shown;
  };
  const Case kCases[] = {
      {"", "Check11 Check14 Check7 Combo4",
       "False|False, disabled|False|Every 15 minutes, disabled"},
      {"", "Check34 Check36 Check40 Check41 Check10", "True|True|True|False|False"},
      {"", "Combo6 Combo7 Check4", "Individual Ad Unit|AdSense for Content|False"},
      {"", "Combo5 Combo1 Combo2", "No Action|Open Quillbox Options|Never"},
      {"", "Combo3 Check12 ApplyButton", "one|False|, disabled"},
      {"General/CheckForNewVersion=True", "Check11 Check14", "True|False"},
      {"General/RefreshTooltip=True; General/Pause=True", "Check5 Check14", "True|True"},
      {"General/Pause=True", "Check14", "False, disabled"},
      {"General/Use24Hour=True", "Check1", "True"},
      {"General/Use24Hour=true", "Check1", "False"},
      {"AutoUpdate/Rate=Every 5 hours; AutoUpdate/Enable=True", "Check7 Combo4",
       "True|Every 5 hours"},
      {"AutoUpdate/Rate=Sometimes", "Combo4", ", disabled"},
      {"TrayIcon/Action=Open AdSense account", "Combo1", "Open primary AdSense account"},
      {"TrayIcon/SingleAction=Visit Tarnwick Works", "Combo5", "Visit Tarnwick Works"},
      {"TrayTooltip/Values=bM", "Check34 Check33 Check9 Check10", "False|True|False|True"},
      {"TrayTooltip/ShowDataByPage=Page", "Combo6", "Page"},
      {"TrayTooltip/DisplayAllStats=True", "Check4", "True"},
      {"TrayTooltip/DataToDownload=Both", "Combo7", "All"},
      {"AdSense/PrimaryAccount=two", "Combo3 Command7 Command6", "two||"},
      {"AdSense/PrimaryAccount=Two", "Combo3 Command7 Command6", "||"},
      {"AutoUpdate/WhenConnected=True; Misc/LastOption=Internet", "Check12", "True"},
      {"AutoUpdate/WhenConnected=True; Misc/LastOption=Proxy", "Check12", "False"},
  };
  for (const Case& c : kCases) {
    StartAfresh();
    Open(c.stored);
    EXPECT_EQ(Shown(c.controls), c.shown) << c.stored;
  }
}

TEST_F(OpenOptions, TakesTheProxyFromTheStateAndTheStartUpFromTheSystemToo) {
  state_.ProxyUsername = "ann";
  state_.ProxyPassword = "secret";
  state_.ProxyServer = "proxy.test";
  state_.ProxyPort = "8080";
  const ProxyFrame& page = Open("Misc/LastOption=Internet; Proxy/Port=1").ProxyFrame;
  EXPECT_EQ(page.Text1.Text() + page.Text2.Text() + page.Text3.Text() + page.Text4.Text(),
            "annsecretproxy.test8080");
  EXPECT_EQ((Open("General/Load=True"), Shown("Check3")), "False");
  host_.StartUp.Make();
  EXPECT_EQ((Open("General/Load=True"), Shown("Check3")), "True");
  EXPECT_EQ((Open("General/Load=False"), Shown("Check3")), "False");
}

TEST_F(OpenOptions, OpensAtTheLastPage) {
  const std::vector<std::string> captions = Open().Tabs.Items();
  for (const std::string& caption : captions) {
    Form().Tabs.SelectText(caption);
    EXPECT_EQ(Get(kLastOption), WithoutText(caption, " "));
    Open();
    EXPECT_EQ(Shown("Tabs ApplyButton"), caption + "|, disabled");
  }
  for (const char* unknown : {"Proxy", "internet", "Auto Update", ""}) {
    Open(std::string("Misc/LastOption=") + unknown);
    EXPECT_EQ(Shown("Tabs") + Get(kLastOption), "GeneralGeneral") << unknown;
  }
}

TEST_F(OpenOptions, GoesOnPastABadTextButOnTwoPages) {
  struct Case {
    const char* key;
    const char* lastOption;
    const char* notFilled;
  };
  const Case kCases[] = {
      {"Misc/Runs", "", ""},
      {"AdSense/PrimaryAccount", "", "Combo3"},
      {"AutoUpdate/Rate", "", "Combo4"},
      {"TrayIcon/SingleAction", "General",
       "Combo5 Combo1 Combo2 Combo6 Combo7 Check4 Combo10 Check12"},
      {"TrayIcon/SingleAction", "TrayIcon", "Combo5 Combo1 Combo2"},
      {"TrayIcon/SingleAction", "Internet", "Combo5 Combo1 Combo2 Combo6 Combo7 Check4 Combo10"},
      {"TrayIcon/Action", "TrayIcon", "Combo1 Combo2"},
      {"TrayTooltip/ShowDataByPage", "", "Combo6 Combo7 Check4 Combo10 Check12"},
      {"TrayTooltip/DataToDownload", "TrayTooltip", "Combo7 Check4"},
  };
  for (const Case& c : kCases) {
    StartAfresh();
    Open(
        "General/Use24Hour=True; TrayTooltip/DisplayAllStats=True; AutoUpdate/WhenConnected=True; "
        "Misc/LastOption=" +
        std::string(c.lastOption) + "; " + c.key + "=nonsense");
    std::vector<std::string> notFilled;
    for (const char* name : {"Check1", "Combo3", "Combo4", "Combo5", "Combo1", "Combo2", "Combo6",
                             "Combo7", "Check4", "Combo10", "Check12"}) {
      const std::string value = ControlValue(Named(name));
      if (value.empty() || value == kFalse) notFilled.push_back(name);
    }
    EXPECT_EQ(JoinText(notFilled, " "), c.notFilled) << c.key << c.lastOption;
    EXPECT_EQ(Shown("ApplyButton"), ", disabled") << c.key << c.lastOption;
  }
}

using Flags = std::vector<bool*>;

// In the order of the tabs.
Flags FlagsOf(Opts& f) {
  return {&f.GeneralFrame.GeneralChanged,
          &f.AdSenseFrame.AdSenseChanged,
          &f.AutoUpdateFrame.AutoUpdateChanged,
          &f.TrayIconFrame.TrayIconChanged,
          &f.TrayTooltipFrame.TrayTooltipChanged,
          &f.SoundsFrame.SoundsChanged,
          &f.ProxyFrame.ProxyChanged};
}

void Use(Control& control) {
  if (auto* box = dynamic_cast<CheckBox*>(&control)) box->SetTicked(!box->Ticked());
  if (auto* list = dynamic_cast<ListField*>(&control)) list->Select(0);
  if (auto* list = dynamic_cast<EditableList*>(&control)) list->Select(0);
  if (auto* field = dynamic_cast<TextField*>(&control)) field->SetText("x");
  if (auto* button = dynamic_cast<Button*>(&control)) button->Click();
}

TEST_F(OpenOptions, NotesEachChangeOnItsPage) {
  constexpr int kNone = -1;
  struct Case {
    int page;
    const char* controls;
  };
  const Case kCases[] = {
      {0, "Check11 Check5 Check14 Check3 Check1"},
      {1, "Combo3"},
      {2, "Check7 Combo4"},
      {3, "Combo5 Combo1 Combo2 Command3 Command4"},
      {4, "Check34 Check33 Check32 Check31 Check35 Check36 Check40 Check41 Check2 Check6 Check8"},
      {4, "Check9 Check10 Combo6 Combo7 Check4"},
      {5, "Combo10 Combo11 Command10"},
      {6, "Text1 Text2 Text3 Text4 Check12"},
      {kNone, "Tabs Image1 Command9 Command8"},
  };
  for (const Case& c : kCases) {
    for (const std::string& control : SplitText(c.controls, " ")) {
      const Flags flags = FlagsOf(Open());
      for (bool* flag : flags) *flag = false;
      Form().Mark.OptionsChanged = false;
      host_.Chooser.Add("/x/y.wav");
      Use(Named(control));
      const ChangeMark& mark = Form().Mark;
      EXPECT_EQ(mark.OptionsChanged, c.page != kNone) << control;
      EXPECT_EQ(mark.ApplyButton.Enabled(), c.page != kNone) << control;
      for (int page = 0; page < 7; ++page) {
        EXPECT_EQ(*flags[static_cast<std::size_t>(page)], page == c.page) << control << page;
      }
    }
  }
}

TEST_F(OpenOptions, PausesOnlyWhenThereIsSomethingToPauseBefore) {
  Opts& form = Open();
  GeneralFrame& page = form.GeneralFrame;
  EXPECT_EQ(Shown("Check14"), "False, disabled");
  page.Check5.SetTicked(true);
  page.Check14.SetTicked(true);
  page.Check11.SetTicked(true);
  page.Check5.SetTicked(false);
  EXPECT_EQ(Shown("Check14"), "True");
  page.Check11.SetTicked(false);
  EXPECT_EQ(Shown("Check14"), "False, disabled");
}

}  // namespace
}  // namespace quillbox
