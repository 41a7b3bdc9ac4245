// What becomes of a removed account's grant: the whole desktop, the real fetch program, a service.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <filesystem>

#include "desktop/desktop_host.h"
#include "dl/support/grants.h"
#include "options/opts.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

// Answers each question with Yes, once it has stood for a tick: one that is answered while it is
// being shown would stay. A box that only tells tells of a failure.
class YesSayer {
 public:
  YesSayer() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || std::exchange(seen_, box) != box) return;
      QAbstractButton* const yes = box->button(QMessageBox::Yes);
      if (yes == nullptr) ADD_FAILURE() << box->text().toStdString();
      yes == nullptr ? box->reject() : yes->click();
    });
    timer_.start(10);
  }

 private:
  QTimer timer_;
  const QMessageBox* seen_ = nullptr;
};

// The opener of a browser that allows at once whatever page it is given.
constexpr const char* kAllowingBrowser =
    "#!/bin/sh\ncurl -sL --cacert \"$SSL_CERT_FILE\" \"$1\" >/dev/null &\n";

// The Options of a person with two accounts, of which the second signs in with kGrantName, at a
// service that takes back at once all that a person has granted.
class GrantForgetting : public testing::Test {
 protected:
  GrantForgetting() {
    data_.Put("xdg-open", kAllowingBrowser);
    ::chmod(data_.File("xdg-open").c_str(), S_IRWXU);
    for (const std::string& variable : environment_) {
      const std::size_t equals = variable.find('=');
      qputenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str());
    }
    qputenv("PATH", (data_.Path() + ":/usr/bin:/bin").c_str());
    qputenv("QUILLBOX_OAUTH_CLIENT_ID", "quillbox-demo");
    qputenv("QUILLBOX_OAUTH_CLIENT_SECRET", "no-secret");
    static_cast<AccountList&>(state_) = {{"old", "new"}, {kEmail, kEmail}, {kPassword, kGrantName}};
    SettingBatch settings;
    SaveAccountList(settings, state_);
    store_.WriteBatch(settings);
    BuildTraySubmenus(program_);
    options_.Load();
  }

  AdSenseFrame& Page() { return options_.AdSenseFrame; }

  void Remove(const char* account) {
    Page().Combo3.SelectText(account);
    Page().Command6.Click();
  }

  // Gives the name of the grant that "Connect..." brought.
  std::string Connect(Account& form) {
    form.Text3.SetText("");
    form.Connect.Click();
    EXPECT_TRUE(Until([&] { return !form.Text3.Text().empty(); }));
    return form.Text3.Text();
  }

  // How many files of grants there are.
  std::ptrdiff_t Grants() const {
    const std::filesystem::path folder = std::filesystem::path(home_.GrantPath()).parent_path();
    return std::distance(std::filesystem::directory_iterator(folder), {});
  }

  // What the service says to a grant of this folder.
  int SignIn(const std::string& name) const {
    return Check(name, home_.WholeEnvironment(service_.Host(), service_.AuthorityFile())).Status;
  }

  static bool Until(const std::function<bool()>& isSo) {
    for (const QDeadlineTimer end(20'000); !end.hasExpired() && !isSo();) {
      QApplication::processEvents();
      QThread::msleep(5);
    }
    return isSo();
  }

  const YesSayer yes_;
  const DemoService service_{{"--consent", "auto", "--revoke", "person"}};
  const GrantHome home_;
  const std::vector<std::string> environment_ =
      home_.WholeEnvironment(service_.Host(), service_.AuthorityFile());
  const TemporaryFolder data_;
  AppState state_;
  const ApplicationFolder folder_{std::filesystem::path(DlProgram()).parent_path().string(),
                                  data_.Path(), '/'};
  DesktopHost desktop_{folder_, 022};
  Host ports_ = desktop_.Ports();
  const RegionalSettings region_;
  const BuildValues build_;
  SettingsStore store_{ports_.Store, ports_.Disk, folder_, state_.SettingsProfile};
  const ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{ports_.Chooser};
  Opts options_{program_, autoUpdate_, dialog_};
};

TEST_F(GrantForgetting, ARemovedAccountsGrantIsGoneHereAndAtTheServiceWithTheLastOne) {
  Remove("old");
  options_.Mark.ApplyButton.Click();
  const GrantHome elsewhere(ReadWhole(home_.GrantPath()).value());
  Remove("new");
  EXPECT_TRUE(ReadWhole(home_.GrantPath()));
  options_.Command1.Click();
  EXPECT_TRUE(Until([this] { return Grants() == 0; }));
  EXPECT_TRUE(Until([&] {
    return Check(kGrantName, elsewhere.WholeEnvironment(service_.Host(), service_.AuthorityFile()))
               .Status == 3;
  }));
}

TEST_F(GrantForgetting, NoGrantThatAnAccountHasGoesAlongWithASpareOne) {
  // Connected twice, then once more in a form that is cancelled.
  Page().Combo3.SelectText("old");
  Page().Command7.Click();
  const std::string spare = Connect(*Page().AccountForm);
  const std::string kept = Connect(*Page().AccountForm);
  EXPECT_NE(spare, kept);
  Page().AccountForm->Command1.Click();
  Page().Command7.Click();
  Connect(*Page().AccountForm);
  Page().AccountForm->Command2.Click();
  EXPECT_EQ(Grants(), 4);
  options_.Command1.Click();
  EXPECT_TRUE(Until([this] { return Grants() == 2; }));
  for (const std::string& name : {kept, std::string(kGrantName)}) EXPECT_EQ(SignIn(name), 0);

  // One of two accounts under one sign-in is removed.
  options_.Load();
  Remove("new");
  options_.Command1.Click();
  EXPECT_TRUE(Until([this] { return Grants() == 1; }));
  EXPECT_EQ(SignIn(kept), 0);
  EXPECT_EQ(SignIn(kGrantName), 3);
}

}  // namespace
}  // namespace quillbox
