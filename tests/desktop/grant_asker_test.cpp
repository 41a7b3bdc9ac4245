// Asking for grants and forgetting them, with a stand-in for the fetch program.
#include "desktop/started_programs.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QThread>
#include <csignal>
#include <optional>

#include "support/child_process.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

class GrantAskerTest : public testing::Test {
 protected:
  // The fetch program does what `script` says; an empty one can't be started.
  void Put(const std::string& script) {
    folder_.Put("dl", "#!/bin/sh\n" + script);
    ::chmod(folder_.File("dl").c_str(), script.empty() ? 0600 : 0700);
  }

  void Ask(const std::string& script) {
    Put(script);
    answers_.clear();
    asking_ = asker_.Ask({"m\xFCller@h.test", {{"http_proxy", "http://p.test"}}},
                         [this](const GrantAnswer& answer) {
                           answers_.push_back(answer);
                           asking_.reset();
                         });
    EXPECT_TRUE(answers_.empty()) << "from the event loop alone";
  }

  static bool Until(const std::function<bool()>& isSo) {
    for (int tries = 0; tries < 4000 && !isSo(); ++tries) {
      QApplication::processEvents();
      QThread::msleep(5);
    }
    return isSo();
  }

  const TemporaryFolder folder_;
  QtGrantAsker asker_{folder_.File("dl"), 022};
  std::unique_ptr<GrantAsking> asking_;
  std::vector<GrantAnswer> answers_;
};

TEST_F(GrantAskerTest, TellsTheNameOrWhyThereIsNone) {
  const char* const kBroken =
      "The program \"dl\", which asks for access, is missing or has broken down.";
  struct Case {
    const char *Script, *Name, *Problem;
  };
  const Case kCases[] = {
      {"echo words >&2; echo grant:ABCDEFGHIJ27", "grant:ABCDEFGHIJ27", ""},
      {"printf 'Waiting\n\nNot granted\n(%s).\n' denied >&2; exit 3", "", "Not granted (denied)."},
      {"echo \"$# $1 $2 $http_proxy $(umask)\" >&2; exit 2", "",
       "2 authorize m\xFCller@h.test http://p.test 0022"},
      {"echo Failed. >&2; echo grant:ABCDEFGHIJ27; exit 1", "", "Failed."},
      {"echo grant:ABCDEFG", "", kBroken},
      {"echo Waiting >&2; kill -9 $$", "", kBroken},
      {"", "", kBroken},
  };
  for (const Case& c : kCases) {
    Ask(c.Script);
    ASSERT_TRUE(Until([this] { return !answers_.empty(); })) << c.Script;
    QApplication::processEvents();
    ASSERT_EQ(answers_.size(), 1U) << c.Script;
    EXPECT_EQ(answers_[0].Name, c.Name) << c.Script;
    EXPECT_EQ(answers_[0].Problem, c.Problem) << c.Script;
  }
}

TEST_F(GrantAskerTest, GivingUpEndsTheProgramAndTellsNothing) {
  Ask("cd " + folder_.Path() + "; echo $$ > new; mv new own; exec sleep 600");
  ASSERT_TRUE(Until([this] { return !folder_.Content("own").empty(); }));
  const pid_t process = std::stoi(folder_.Content("own"));
  asking_.reset();
  EXPECT_TRUE(Until([process] { return ::kill(process, 0) != 0; }));
  EXPECT_TRUE(answers_.empty());
}

TEST_F(GrantAskerTest, ForgettingIsFinishedWithoutTheProgram) {
  const auto forget = [this] {
    asker_.Forget("grant:ABCDEFGHIJ27", {{"http_proxy", "http://p.test"}});
    return 0;
  };
  Put("cd " + folder_.Path() + "; read name\n" +
      "while [ ! -e alone ]; do sleep 0.01; done\n"
      "echo \"$# $1 $name $http_proxy\" > new; mv new done");
  EXPECT_EQ(InChildAs(::getuid(), forget), 0);
  folder_.Put("alone", "");
  EXPECT_TRUE(Until([this] { return !folder_.Content("done").empty(); }));
  EXPECT_EQ(folder_.Content("done"), "1 revoke grant:ABCDEFGHIJ27 http://p.test\n");
  Put("");
  EXPECT_EQ(forget(), 0) << "nobody is told";
}

}  // namespace
}  // namespace quillbox
