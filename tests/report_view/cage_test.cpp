// What a hostile page reaches: nothing.
#include <gmock/gmock.h>

#include <QFile>
#include <QThread>
#include <fstream>
#include <random>

#include "report_view/view_on_desktop.h"
#include "report_view/watched_files.h"
#include "reports/report_page.h"
#include "support/rounds.h"

namespace quillbox {
namespace {

class Cage : public ViewOnDesktop {
 protected:
  Cage() {
    files_.Add(Secret());
    files_.Add(qgetenv("HOME").toStdString() + "/secret.js");
  }

  std::string Secret() const { return pageFolder_.filePath("secret.js").toStdString(); }

  // HTTP and FILE stand for addresses that are watched.
  std::string Armed(std::string attack) const {
    const std::pair<std::string, std::string> kAims[] = {
        {"HTTP", "127.0.0.1:" + std::to_string(port_.Number())}, {"FILE", "file://" + Secret()}};
    for (const auto& [word, aim] : kAims) {
      for (auto at = attack.find(word); at != std::string::npos; at = attack.find(word)) {
        attack.replace(at, word.size(), aim);
      }
    }
    return attack;
  }

  WatchedFiles files_;
  WatchedPort port_;
};

constexpr const char* kScripts[] = {
    "fetch('http://HTTP/fetch')",
    "fetch('FILE')",
    "var x = new XMLHttpRequest(); x.open('GET', 'FILE'); x.send()",
    "var x = new XMLHttpRequest(); x.open('GET', 'secret.js'); x.send()",
    "fetch('quillbox-report://page/secret.js')",
    "fetch('quillbox-report://page/../secret.js')",
    "fetch('quillbox-report://page/%2e%2e/secret.js')",
    "new Image().src = 'http://HTTP/image'",
    "navigator.sendBeacon('http://HTTP/beacon', 'x')",
    "new WebSocket('ws://HTTP/socket')",
    "new EventSource('http://HTTP/events')",
    "import('http://HTTP/module')",
    "new Worker('http://HTTP/worker')",
    "open('http://HTTP/window')",
    "open('FILE')",
    "alert(1); confirm(2); prompt(3)",
    "var p = new RTCPeerConnection({iceServers: [{urls: 'stun:HTTP'}]});"
    "p.createDataChannel('x'); p.createOffer().then(function (o) { p.setLocalDescription(o); })",
    "localStorage.setItem('x', 'y')",
    "navigator.clipboard.readText()",
};

constexpr const char* kMarkup[] = {
    "<script src='secret.js'></script>",
    "<script src='FILE'></script>",
    "<iframe src='FILE'></iframe>",
    "<iframe src='http://HTTP/frame'></iframe>",
    "<img src='http://HTTP/img'>",
    "<img src='FILE'>",
    "<object data='FILE'></object>",
    "<embed src='http://HTTP/embed'>",
    "<link rel='stylesheet' href='FILE'>",
    "<link rel='preconnect' href='http://HTTP/'>",
    "<link rel='dns-prefetch' href='http://HTTP/'>",
    "<link rel='prefetch' href='http://HTTP/prefetch'>",
    "<style>@import 'http://HTTP/style'; body { background: url('FILE') }</style>",
    "<video src='http://HTTP/video' autoplay></video>",
};

// Each ends the loading of its page.
constexpr const char* kWaysOut[] = {
    "<script>location.href = 'http://HTTP/location'</script>",
    "<script>location.href = 'FILE'</script>",
    "<script>location.href = 'javascript:document.body.innerHTML = 1'</script>",
    "<meta http-equiv='refresh' content='0; url=http://HTTP/refresh'>",
    "<a id=d href='FILE' download>x</a><script>document.getElementById('d').click()</script>",
    "<form action='http://HTTP/form'></form><script>document.forms[0].submit()</script>",
    "<a id=m href='mailto:a@b.test'>x</a><script>document.getElementById('m').click()</script>",
};

TEST_F(Cage, ThePageCantLeave) {
  ASSERT_TRUE(Opens());
  for (const char* const way : kWaysOut) {
    ASSERT_TRUE(Shows("<body bgcolor='#80d080'>" + std::string(200, '.') + Armed(way))) << way;
    EXPECT_TRUE(Until([this] { return ColourOfPage() == "#80d080"; })) << way;
    QThread::msleep(300);
    EXPECT_EQ(ColourOfPage(), "#80d080") << way;
    EXPECT_EQ(files_.TakeCount(), 0) << way;
    EXPECT_EQ(port_.TakeCount(), 0) << way;
  }
}

// The engine lets a page ask only when it has been clicked.
TEST_F(Cage, ThePageCantKeepItsPlace) {
  constexpr const char* kGuards[] = {
      "onbeforeunload = function () { return 'stay'; }",
      "addEventListener('beforeunload', function (e) { e.preventDefault(); e.returnValue = 'x'; })",
      "onbeforeunload = function () { confirm(1); alert(2); return 'stay'; }",
      "onbeforeunload = function () { location.href = 'FILE'; return 'stay'; }",
  };
  ASSERT_TRUE(Opens());
  for (const char* const guard : kGuards) {
    ASSERT_TRUE(Shows("<body bgcolor='#80d080' onclick=\"document.body.bgColor = '#123456'\">" +
                      std::string("<script>") + Armed(guard) + "</script>"))
        << guard;
    ASSERT_TRUE(Until([this] { return ColourOfPage() == "#80d080"; })) << guard;
    ClickPage();
    ASSERT_TRUE(Until([this] { return ColourOfPage() == "#123456"; })) << guard;
    EXPECT_TRUE(Shows("<body bgcolor='#654321'>", 10000)) << guard;
    EXPECT_TRUE(Until([this] { return ColourOfPage() == "#654321"; }, 10000)) << guard;
    EXPECT_EQ(files_.TakeCount(), 0) << guard;
  }
}

TEST_F(Cage, NoScriptAndNoElementOfThePageGetsOut) {
  ASSERT_TRUE(Opens());
  std::string page = "<body bgcolor='#80d080'>";
  for (const char* const markup : kMarkup) page += Armed(markup);
  for (const char* const script : kScripts) {
    page += "<script>try { " + Armed(script) + " } catch (e) {}</script>";
  }
  // Without this the page may have done nothing at all.
  page +=
      "<script>document.body.innerHTML ="
      "'<div style=\"position:fixed;inset:0;background:#123456\"></div>'</script>";
  ASSERT_TRUE(Shows(page));
  EXPECT_TRUE(Until([this] { return ColourOfPage() == "#123456"; })) << ColourOfPage();
  QThread::sleep(1);  // for what they do later
  EXPECT_EQ(files_.TakeCount(), 0);
  EXPECT_EQ(port_.TakeCount(), 0);
  EXPECT_TRUE(WindowIsShown());
  EXPECT_TRUE(form_.Loaded());
}

TEST_F(Cage, TheWatchOverFilesAndPortSeesWhatComes) {
  std::ifstream(Secret()).get();
  const QByteArray script =
      QByteArray("exec 3<>/dev/tcp/127.0.0.1/") + QByteArray::number(port_.Number());
  desktop_.Output("bash", {"-c", script});
  EXPECT_GT(files_.TakeCount(), 0);
  EXPECT_EQ(port_.TakeCount(), 1);
}

// A name as a report can hold it: without quotes, and without what separates cells and lines.
std::string HostileName(std::mt19937_64& chance, const std::vector<std::string>& attacks) {
  static constexpr const char* kShells[] = {"</script><script>%</script>",
                                            "<img src=x onerror=%>",
                                            "<svg onload=%>",
                                            "\\",
                                            "'+%+'",
                                            "<iframe srcdoc=%>",
                                            "<BR><a href=javascript:% autofocus onfocus=%>",
                                            "&lt;%"};
  std::string name;
  for (int parts = 0; parts < 3; ++parts) {
    std::string shell = kShells[chance() % std::size(kShells)];
    for (auto at = shell.find('%'); at != std::string::npos; at = shell.find('%')) {
      shell.replace(at, 1, attacks[chance() % attacks.size()]);
    }
    name += shell;
  }
  return name;
}

TEST_F(Cage, NamesOfChannelsReachNothing) {
  ASSERT_TRUE(Opens());
  std::vector<std::string> attacks;
  for (const char* const script : kScripts) attacks.push_back(Armed(script));
  std::mt19937_64 chance(7);
  for (int round = 0; round < Rounds(); ++round) {
    const std::string name = HostileName(chance, attacks);
    const ReportData data{"Monday<BR>1/1/07," + name, "1.10;0.40:2.00;0.05",
                          name + "^" + std::string(round % 10 == 0 ? 1000000 : 5, 'x')};
    // A page that opens its document anew is never done with loading.
    Shows(BuildReportPage(data, "Ad Channel Performance - Earnings", ".", ","), 2000);
    ASSERT_EQ(files_.TakeCount(), 0) << name;
    ASSERT_EQ(port_.TakeCount(), 0) << name;
    ASSERT_TRUE(form_.Loaded()) << name;
  }
  EXPECT_TRUE(Shows("<body></body>")) << "the window still works";
  forms_.Unload(FormName::kReportsWin);
  EXPECT_TRUE(Until([] { return Views().empty(); }));
}

}  // namespace
}  // namespace quillbox
