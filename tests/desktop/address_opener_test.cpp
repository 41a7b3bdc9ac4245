// What is handed to the person's own programs, and what is not.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "desktop/fake_bus_service.h"
#include "desktop/qt_address_opener.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class AddressOpenerTest : public testing::Test {
 protected:
  AddressOpenerTest() : path_(qgetenv("PATH")) { qputenv("PATH", folder_.path().toUtf8()); }
  ~AddressOpenerTest() override { qputenv("PATH", path_); }

  std::string Path(const char* name) const { return folder_.filePath(name).toStdString(); }

  // Takes the place of the desktop's opener; like it, it talks.
  void InstallOpener() {
    std::ofstream(Path("xdg-open")) << "#!/bin/sh\necho \"can't open $1\" >&2\necho \"$1\"\n"
                                    << "umask > " << Path("mask") << "\n"
                                    << "printf '%s\\n' \"$1\" >> " << Path("opened") << "\n";
    fs::permissions(Path("xdg-open"), fs::perms::owner_all);
  }

  std::vector<std::string> Opened() const {
    std::vector<std::string> targets;
    std::ifstream file(Path("opened"));
    for (std::string line; std::getline(file, line);) targets.push_back(line);
    return targets;
  }

  const QTemporaryDir folder_;
  const QByteArray path_;
  QtAddressOpener opener_{ApplicationFolder("/opt/quillbox", "/srv/data", '/'), 0027};
};

TEST_F(AddressOpenerTest, HandsOverAddressesAndOwnFilesByteForByteAndNothingElse) {
  static const struct Case {
    const char* target;
    const char* handedOver;  // or null
  } kCases[] = {
      {"https://h/in?continue=https://h/x&Email=%61%40b&Passwd=\"a b\"#%41$'`;",
       "https://h/in?continue=https://h/x&Email=%61%40b&Passwd=\"a b\"#%41$'`;"},
      {"https://h/?p=\xE4\x80", "https://h/?p=\xC3\xA4\xE2\x82\xAC"},
      {"http://h/", "http://h/"},
      {"mailto:a@example.test", "mailto:a@example.test"},
      {"/opt/quillbox/ReadMe.txt", "/opt/quillbox/ReadMe.txt"},
      {"/srv/data/x.html", "/srv/data/x.html"},
      {"/opt/quillbox/../../etc/passwd", nullptr},
      {"/opt/quillbox2/x", nullptr},
      {"/etc/passwd", nullptr},
      {"file:///etc/passwd", nullptr},
      {"javascript:alert(1)", nullptr},
      {"--help", nullptr},
      {"ReadMe.txt", nullptr},
      {"", nullptr},
  };
  InstallOpener();
  for (const Case& c : kCases) {
    fs::remove(Path("opened"));
    opener_.Open(c.target);
    if (c.handedOver == nullptr) opener_.Open("http://after");  // which tells that nothing came
    ASSERT_TRUE(ComesAbout([&] { return !Opened().empty(); })) << c.target;
    EXPECT_EQ(Opened().front(), c.handedOver == nullptr ? "http://after" : c.handedOver)
        << c.target;
  }
}

TEST_F(AddressOpenerTest, WhatIsOpenedHasThePersonsFileMaskAndTheProgramKeepsItsOwn) {
  InstallOpener();
  const mode_t before = ::umask(0077);
  opener_.Open("http://h/");
  EXPECT_EQ(::umask(before), 0077U);
  ASSERT_TRUE(ComesAbout([&] { return !Opened().empty(); }));
  std::string mask;
  std::ifstream(Path("mask")) >> mask;
  EXPECT_EQ(mask, "0027");
}

TEST_F(AddressOpenerTest, NothingIsWrittenWhetherItCanBeOpenedOrNot) {
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  opener_.Open("https://h/in?Passwd=secret");
  InstallOpener();
  opener_.Open("https://h/in?Passwd=secret");
  const bool came = ComesAbout([&] { return !Opened().empty(); });
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(came);
}

}  // namespace
}  // namespace quillbox
