// Which fields count as a change, and of which page.
#include <gtest/gtest.h>

#include "forms/controls.h"
#include "options/open_options.h"

namespace quillbox {
namespace {

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
