// Choosing sounds and the icon.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "options/open_options.h"
#include "options/page_parts.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Choosers : public OpenOptions {
 protected:
  Choosers() {
    state_.SoundFiles[1] = "/far/away.wav";
    for (const char* file : {"/app/Rate.wav", "/app/CLICKS.WAV", "/app/a.txt", "/far/away.wav"}) {
      host_.Files.Put(file, "x");
    }
    Open();
    host_.Effects.Clear();
  }

  SoundsFrame& Sounds() { return Form().SoundsFrame; }
  TrayIconFrame& Icon() { return Form().TrayIconFrame; }

  // The shown sound, and whether it can be previewed.
  std::string Sound() { return Shown("Combo11") + (Sounds().Command9.Enabled() ? " >" : ""); }
};

TEST_F(Choosers, ShowTheSoundOfTheEvent) {
  EXPECT_THAT(Sounds().Combo11.Items(), ElementsAre("(None)", "CLICKS.WAV", "Rate.wav"));
  EXPECT_EQ(Shown("Combo10"), "Page Impressions Changes");
  EXPECT_EQ(Sound(), "(None)");
  Sounds().Combo10.Select(1);
  EXPECT_EQ(Sound(), "away.wav >");
  EXPECT_EQ(Sounds().SoundChoices[1], "/far/away.wav");
  Sounds().SoundChoices[5].clear();
  Sounds().Combo10.SelectText("AdSense Statistics Downloaded");
  EXPECT_EQ(Sound(), "(None)");
}

TEST_F(Choosers, TakeASoundFromTheList) {
  Sounds().Combo10.Select(1);
  Sounds().Combo11.Select(2);
  EXPECT_EQ(Sound(), "Rate.wav >");
  Sounds().Combo10.Select(2);
  Sounds().Combo11.Select(1);
  Sounds().Combo11.Select(0);
  EXPECT_EQ(Sound(), "(None)");
  EXPECT_THAT(Sounds().SoundChoices,
              ElementsAre("(None)", "Rate.wav", "(None)", "(None)", "(None)", "(None)"));
  PressApply();
  EXPECT_EQ(state_.SoundFiles, Sounds().SoundChoices);
  EXPECT_EQ(Get(kSounds[1]), "Rate.wav");
}

TEST_F(Choosers, TakeASoundFromAnywhere) {
  Sounds().Command10.Click();
  EXPECT_EQ(Sound(), "(None)");
  EXPECT_FALSE(Form().Mark.ApplyButton.Enabled());
  host_.Chooser.Add("/far/away.wav");
  Sounds().Command10.Click();
  EXPECT_EQ(Sound(), "away.wav >");
  EXPECT_EQ(Sounds().SoundChoices[0], "/far/away.wav");
  const FileQuestion& question = host_.Chooser.LastQuestion();
  EXPECT_EQ(question.Title + "|" + question.FilterName + "|" + question.Pattern + "|" +
                question.Folder + "|" + question.File,
            "Select Sound|WAV Files|*.wav|/app/|");
}

TEST_F(Choosers, PlayASoundThatIsThere) {
  const std::pair<const char*, bool> kCases[] = {{"/far/away.wav", true}, {"Rate.wav", true},
                                                 {"clicks.wav", true},    {"/far/gone.wav", false},
                                                 {"Gone.wav", false},     {"*.wav", false}};
  for (const auto& [choice, plays] : kCases) {
    Sounds().SoundChoices[0] = choice;
    Sounds().Combo10.Select(0);
    host_.Effects.Clear();
    Sounds().Command9.Click();
    EXPECT_EQ(host_.Trace({"sound"}).size(), plays ? 1U : 0U) << choice;
  }
}

TEST_F(Choosers, TakeAnIconAtApply) {
  host_.Chooser.Add("/far/new.ico");
  Icon().Command3.Click();
  EXPECT_EQ(Icon().Image1.File(), "/far/new.ico");
  EXPECT_THAT(host_.Trace({"tray", "store"}), IsEmpty());
  Form().Command1.Click();
  EXPECT_THAT(host_.Trace({"hide", "tray", "close"}),
              ElementsAre("hide Opts", "tray modify /far/new.ico, no icon", "close Opts"));
  EXPECT_EQ(Get(kTrayIcon), "/far/new.ico");
  EXPECT_EQ(state_.IconImage, "/far/new.ico");
  Open();
  EXPECT_EQ(Shown("Image1"), "/far/new.ico");
  Icon().Command4.Click();
  EXPECT_EQ(Shown("Image1") + Icon().IconChoice, "default");
  Form().Command2.Click();
  EXPECT_EQ(Get(kTrayIcon) + state_.IconImage, "/far/new.ico/far/new.ico");

  host_.Tray.RefusePicture("/far/bad.ico");
  host_.Chooser.Add("/far/bad.ico");
  Open();
  Icon().Command3.Click();
  PressApply();
  EXPECT_EQ(Get(kTrayIcon) + state_.IconImage, "/far/bad.ico/far/new.ico");
}

TEST_F(Choosers, OfferTheLastChoiceOfTheRun) {
  host_.Chooser.Add("/far/away.wav");
  Sounds().Command10.Click();
  Open();
  Icon().Command3.Click();
  Icon().Command3.Click();
  EXPECT_EQ(host_.Chooser.LastQuestion().File, "/far/away.wav");
  EXPECT_EQ(host_.Chooser.LastQuestion().Pattern, "*.ICO");
  EXPECT_EQ(Icon().IconChoice, "");
  Open("TrayIcon/SingleAction=nonsense");
  Sounds().Command10.Click();
  EXPECT_THAT(host_.Trace({"choose"}), IsEmpty()) << "the page isn't filled";
}

TEST_F(Choosers, ListThePersonsSoundsBeforeTheProgramsAndInItsPlace) {
  for (const char* file : {"/data/b.wav", "/data/B.wav", "/app/B.WAV"}) host_.Files.Put(file, "x");
  const ApplicationFolder folder("/app", "/data", '/');
  const ProgramContext program{state_, store_, ports_, folder, region_, build_};
  ChangeMark mark;
  OpenDialog dialog(host_.Chooser);
  SoundsFrame page(program, mark, dialog);
  page.LoadSoundsFrame();
  EXPECT_THAT(page.Combo11.Items(),
              ElementsAre("(None)", "B.wav", "b.wav", "CLICKS.WAV", "Rate.wav"));
}

TEST(FileNameOf, CutsAtEitherSeparator) {
  EXPECT_EQ(FileNameOf("C:\\Sounds\\a.wav", '/') + FileNameOf("a.wav", '/'), "a.wava.wav");
  EXPECT_EQ(FileNameOf("/sounds/a.wav", '\\'), "/sounds/a.wav");
}

}  // namespace
}  // namespace quillbox
