// What becomes of a removed account's grant: the whole desktop, the real fetch program, a service.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
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

// Answers each message box with Yes as soon as it stands.
class YesSayer {
 public:
  YesSayer() {
    QObject::connect(&timer_, &QTimer::timeout, [] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box != nullptr) box->button(QMessageBox::Yes)->click();
    });
    timer_.start(10);
  }

 private:
  QTimer timer_;
};

// The Options of a person with two accounts, of which the second signs in with kGrantName.
class GrantForgetting : public testing::Test {
 protected:
  GrantForgetting() {
    for (const std::string& variable : environment_) {
      const std::size_t equals = variable.find('=');
      qputenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str());
    }
    static_cast<AccountList&>(state_) = {{"old", "new"}, {"m", "m"}, {kPassword, kGrantName}};
    SettingBatch settings;
    SaveAccountList(settings, state_);
    store_.WriteBatch(settings);
    BuildTraySubmenus(program_);
    options_.Load();
  }

  void Remove(const char* account) {
    const YesSayer yes;
    options_.AdSenseFrame.Combo3.SelectText(account);
    options_.AdSenseFrame.Command6.Click();
  }

  // What the service says to the grant, asked from elsewhere.
  int SignIn() const {
    const GrantHome elsewhere;
    return Check(kGrantName, elsewhere.WholeEnvironment(service_.Host(), service_.AuthorityFile()))
        .Status;
  }

  static bool Until(const std::function<bool()>& isSo) {
    for (int tries = 0; tries < 4000 && !isSo(); ++tries) {
      QApplication::processEvents();
      QThread::msleep(5);
    }
    return isSo();
  }

  const DemoService service_;
  const GrantHome home_;
  const std::vector<std::string> environment_ =
      home_.WholeEnvironment(service_.Host(), service_.AuthorityFile());
  const TemporaryFolder data_;
  AppState state_;
  const ApplicationFolder folder_{std::filesystem::path(QUILLBOX_DL_PROGRAM).parent_path().string(),
                                  data_.Path(), '/'};
  DesktopHost desktop_{folder_, 022};
  Host ports_ = desktop_.Ports();
  const RegionalSettings region_;
  const BuildValues build_;
  SettingsStore store_{ports_.Store, ports_.Disk, folder_, state_.SettingsProfile};
  const ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
  AutoUpdate autoUpdate_{program_};
  OpenDialog dialog_{ports_.Chooser, '/'};
  Opts options_{program_, autoUpdate_, dialog_};
};

TEST_F(GrantForgetting, ARemovedAccountsGrantIsGoneHereAndAtTheService) {
  Remove("old");
  options_.Mark.ApplyButton.Click();
  Remove("new");
  EXPECT_TRUE(ReadWhole(home_.GrantPath()));
  EXPECT_EQ(SignIn(), 0);
  options_.Command1.Click();
  EXPECT_TRUE(Until([this] { return !ReadWhole(home_.GrantPath()); }));
  EXPECT_TRUE(Until([this] { return SignIn() == 3; }));
}

}  // namespace
}  // namespace quillbox
