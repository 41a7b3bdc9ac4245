// The window's process: it shows what it is told, and whatever becomes of it, the program goes on.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QThread>
#include <csignal>
#include <fstream>

#include "report_view/view_on_desktop.h"
#include "reports/report_page.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr char kGreen[] = "<body bgcolor='#80d080'></body>";
constexpr char kEndless[] =
    "<body bgcolor='#80d080'><script>setTimeout(function () { while (true); }, 1)</script></body>";

using ViewProcess = ViewOnDesktop;

TEST_F(ViewProcess, ShowsPagesAndMessagesOnThem) {
  ASSERT_TRUE(Opens());
  ASSERT_TRUE(Shows(kGreen));
  EXPECT_TRUE(Until([this] { return ColourOfPage() == "#80d080"; })) << ColourOfPage();
  window_.SetBody("<div style='position:fixed;inset:0;background:#123456'>\"no\" \\data</div>");
  EXPECT_TRUE(Until([this] { return ColourOfPage() == "#123456"; })) << ColourOfPage();
  window_.Navigate("about:blank");
  window_.SetBody("<div style='position:fixed;inset:0;background:#654321'></div>");
  EXPECT_TRUE(Until([this] { return ColourOfPage() == "#654321"; })) << "soon after navigating";
}

TEST_F(ViewProcess, ShowsAMessageOnAPageThatTookItsBodyAway) {
  ASSERT_TRUE(Opens());
  Shows("<img src=x onerror='document.open()'>", 2000);  // some engines never take it for done
  window_.SetBody("<div style='position:fixed;inset:0;background:#123456'></div>");
  EXPECT_TRUE(Until([this] { return ColourOfPage() == "#123456"; })) << ColourOfPage();
}

TEST_F(ViewProcess, TellsWhatThePersonChose) {
  ASSERT_TRUE(Opens());
  Press("Down");  // the first list has the focus
  EXPECT_TRUE(Until([this] { return form_.Fields().Combo1.Text() == "two"; }));
}

TEST_F(ViewProcess, KeysInAnOpenListAreTheLists) {
  for (const QString key : {"Escape", "ctrl+w"}) {
    ASSERT_TRUE(Opens());
    Press("alt+Down");
    QThread::msleep(300);
    desktop_.Output("xdotool", {"key", "Escape"});
    QThread::msleep(300);
    EXPECT_TRUE(WindowIsShown() && form_.Loaded()) << key.toStdString();
    desktop_.Output("xdotool", {"key", key});
    EXPECT_TRUE(Until([this] { return !form_.Loaded(); })) << key.toStdString();
  }
}

TEST_F(ViewProcess, CopiesTheFiguresOfItsReport) {
  ASSERT_TRUE(Opens());
  const auto copy = [this] {
    desktop_.Output("xdotool", {"mousemove", "400", "440", "click", "3"});
    QThread::msleep(300);
    desktop_.Output("xdotool", {"key", "Down"});
    desktop_.Output("xdotool", {"key", "Return"});
  };
  const auto clipboard = [this] {
    return desktop_.Output("xclip", {"-o", "-selection", "clipboard"}).toStdString();
  };
  const ReportData data{"Monday<BR>1/1/07,Tuesday<BR>1/2/07", "1.10;0.40:2.00;0.05", "Red^=b"};
  ASSERT_TRUE(Shows(BuildReportPage(data, "Ad Channel Performance - Earnings", ".", ",")));
  copy();
  const std::string figures =
      "Day\tRed\t'=b\nMonday 1/1/07\t$1.10\t$0.40\nTuesday 1/2/07\t$2.00\t$0.05\n";
  EXPECT_TRUE(Until([&] { return clipboard() == figures; }, 5000)) << clipboard();
  ASSERT_TRUE(Shows(kGreen));
  copy();
  QThread::msleep(500);
  EXPECT_EQ(clipboard(), figures) << "a page without figures";
}

TEST_F(ViewProcess, HasOneWindowHoweverOftenItIsLoaded) {
  ASSERT_TRUE(Opens());
  form_.Load();
  forms_.Load(form_);
  EXPECT_THAT(Views(), SizeIs(1));
}

TEST_F(ViewProcess, WhateverEndsItTheFormIsUnloadedAndCanBeLoadedAgain) {
  const auto signalView = [](int signal) {
    for (const int view : Views()) ::kill(view, signal);
  };
  const auto closeWindow = [this] { Press("alt+F4"); };
  const struct Case {
    const char* Name;
    std::function<void()> End;
  } kCases[] = {
      {"killed", [&] { signalView(SIGKILL); }},
      {"crashed", [&] { signalView(SIGSEGV); }},
      {"closed by the person", closeWindow},
      {"unloaded", [&] { forms_.Unload(FormName::kReportsWin); }},
      {"unloaded while it hangs",
       [&] {
         signalView(SIGSTOP);
         forms_.Unload(FormName::kReportsWin);
       }},
      {"unloaded while its page never ends",
       [&] {
         Shows(kEndless);
         forms_.Unload(FormName::kReportsWin);
       }},
      {"hangs for good", [&] { signalView(SIGSTOP); }},
  };
  for (const Case& c : kCases) {
    ASSERT_TRUE(Opens()) << c.Name;
    EXPECT_TRUE(Until([] { return EngineRuns(); })) << c.Name;
    c.End();
    EXPECT_TRUE(Until([this] { return !form_.Loaded(); })) << c.Name;
    EXPECT_TRUE(Until([] { return Views().empty(); })) << c.Name;
    EXPECT_TRUE(Until([] { return !EngineRuns(); })) << c.Name;
  }
  EXPECT_TRUE(Opens());
}

TEST_F(ViewProcess, WhereItCantRunTheDefaultBrowserShowsThePage) {
  const std::string broken = pageFolder_.filePath("broken").toStdString();
  std::ofstream(broken) << "#!/bin/sh\nexit 127\n";
  QFile::setPermissions(QString::fromStdString(broken),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  for (const std::string& program : {std::string("/nowhere/at/all"), broken}) {
    ReportsWindow window(program, host_.Opener);
    bool gone = false;
    window.Load(form_, [&] { gone = true; });
    QLabel* line = nullptr;
    const auto find = [&] {
      for (QWidget* const shown : QApplication::topLevelWidgets()) {
        if (shown->isVisible()) line = shown->findChild<QLabel*>("IE");
      }
      return line != nullptr;
    };
    ASSERT_TRUE(Until(find)) << program;
    window.Navigate("/app/Report.html");
    EXPECT_EQ(host_.Opener.Opened().back(), "/app/Report.html");
    EXPECT_THAT(line->text().toStdString(), HasSubstr("/app/Report.html"));
    window.SetBody("<SPAN>Error: no</SPAN>");
    EXPECT_THAT(line->text().toStdString(), HasSubstr("Error: no"));
    line->window()->close();
    EXPECT_TRUE(gone) << program;
    EXPECT_FALSE(window.Loaded());
  }
}

}  // namespace
}  // namespace quillbox
