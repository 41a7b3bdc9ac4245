// What is handed to the person's own programs, and what is not.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include "desktop/fake_bus_service.h"
#include "desktop/started_programs.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

class AddressOpenerTest : public testing::Test {
 protected:
  AddressOpenerTest() : path_(qgetenv("PATH")) { qputenv("PATH", folder_.Path().c_str()); }
  ~AddressOpenerTest() override { qputenv("PATH", path_); }

  // Takes the place of the desktop's opener; like it, it talks.
  void InstallOpener() {
    folder_.PutProgram("xdg-open", "cd " + folder_.Path() +
                                       "\necho \"can't open $1\" >&2\necho \"$1\"\n"
                                       "umask > mask\nprintf '%s\\n' \"$1\" >> opened");
  }

  // What came to the opener, once something has.
  std::string Opened() const {
    EXPECT_TRUE(ComesAbout([&] { return folder_.Content("opened").ends_with('\n'); }));
    return folder_.Content("opened");
  }

  const TemporaryFolder folder_;
  const QByteArray path_;
  QtAddressOpener opener_{ApplicationFolder("/opt/quillbox", "/srv/data", '/'), 0027};
};

TEST_F(AddressOpenerTest, HandsOverAddressesAndOwnFilesByteForByteAndNothingElse) {
  constexpr const char* kNothing = "http://after";  // what comes next tells that nothing came
  static const struct Case {
    const char* target;
    const char* handedOver = target;
  } kCases[] = {
      {"https://h/in?continue=https://h/x&Email=%61%40b&Passwd=\"a b\"#%41$'`;"},
      {"https://h/?p=\xE4\x80", "https://h/?p=\xC3\xA4\xE2\x82\xAC"},
      {"http://h/"},
      {"mailto:a@example.test"},
      {"/opt/quillbox/ReadMe.txt"},
      {"/srv/data/x.html"},
      {"/opt/quillbox/../../etc/passwd", kNothing},
      {"/opt/quillbox2/x", kNothing},
      {"/etc/passwd", kNothing},
      {"file:///etc/passwd", kNothing},
      {"javascript:alert(1)", kNothing},
      {"--help", kNothing},
      {"ReadMe.txt", kNothing},
      {"", kNothing},
  };
  InstallOpener();
  for (const Case& c : kCases) {
    folder_.Put("opened", "");
    opener_.Open(c.target);
    if (c.handedOver == kNothing) opener_.Open(kNothing);
    EXPECT_EQ(Opened(), std::string(c.handedOver) + "\n") << c.target;
  }
}

TEST_F(AddressOpenerTest, OpeningWritesNothingAndKeepsToThePersonsFileMask) {
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  opener_.Open("https://h/in");  // in vain
  InstallOpener();
  const mode_t before = ::umask(0077);
  opener_.Open("https://h/in");
  EXPECT_EQ(::umask(before), 0077U) << "the program's own";
  const std::string opened = Opened();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(opened, "https://h/in\n");
  EXPECT_EQ(folder_.Content("mask"), "0027\n");
}

// The fetch program gets it, as its input; without that program nothing is opened.
TEST_F(AddressOpenerTest, SecretsStandInNoArguments) {
  constexpr const char* kSecret = "https://h/in?Passwd=%61&x='\"`$";
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  InstallOpener();
  QtAddressOpener opener(ApplicationFolder(folder_.Path(), "/srv/data", '/'), 0027);
  opener.OpenPrivately(kSecret);  // in vain
  folder_.PutProgram("dl", "cd " + folder_.Path() +
                               "\nread -r line\necho \"$line\"\necho \"$line\" >&2\n"
                               "echo \"$# $1 $(umask) $line\" >> opened");
  opener.OpenPrivately(kSecret);
  EXPECT_EQ(Opened(), std::string("1 open 0027 ") + kSecret + "\n");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace quillbox
