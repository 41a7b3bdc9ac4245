// The desktop entry that starts the program with the session.
#include "system/autostart_entry.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <filesystem>
#include <fstream>

#include "desktop/fake_bus_service.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

// In a configuration folder that isn't there yet.
class AutostartEntryTest : public testing::Test {
 protected:
  AutostartEntryTest() { qputenv("XDG_CONFIG_HOME", folder_.File("new/config").c_str()); }
  ~AutostartEntryTest() override { qputenv("XDG_CONFIG_HOME", usual_); }

  AutostartEntry EntryOf(const std::string& programFolder) {
    program_ = std::make_unique<ApplicationFolder>(programFolder, programFolder, '/');
    return {files_, *program_};
  }

  // What a program of the desktop says when it ran well, and nothing when it did not.
  static std::optional<QString> Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) return std::nullopt;
    return QString::fromUtf8(process.readAll());
  }

  const QByteArray usual_ = qgetenv("XDG_CONFIG_HOME");
  const TemporaryFolder folder_;
  const std::string file_ = folder_.File("new/config/autostart/quillbox.desktop");
  SystemFiles files_;
  std::unique_ptr<ApplicationFolder> program_;
};

TEST_F(AutostartEntryTest, ComesReplacesWhatIsThereAndGoes) {
  AutostartEntry entry = EntryOf("/opt/quillbox");
  EXPECT_FALSE(entry.Present());
  entry.Remove();
  entry.Make();
  EXPECT_TRUE(entry.Present());
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const std::string made = files_.Read(file_).value();
  std::ofstream(file_) << "[Desktop Entry]\nExec=other\nHidden=true\n";
  EXPECT_FALSE(entry.Present());
  entry.Make();
  EXPECT_EQ(files_.Read(file_), made);
  entry.Remove();
  EXPECT_FALSE(entry.Present());
  EXPECT_FALSE(fs::exists(file_));
}

// Whatever the folder is called, the entry is valid, and the desktop starts exactly that program.
TEST_F(AutostartEntryTest, StartsTheProgramOfAnyFolder) {
  static constexpr const char* kCases[] = {
      "plain", "two  words", "\"quoted\"", "it's",        "back\\slash", "$HOME",
      "100%f", "`date`",     "a\\nb",      "~#&;<>|*?()", "t\tab",       "M\xc3\xbcller",
      "%%U",   "end\\",      "a=b%c",      "new\nline",
  };
  for (const char* const name : kCases) {
    SCOPED_TRACE(name);
    const std::string program = folder_.File(name);
    fs::create_directories(program);
    folder_.PutProgram(std::string(name) + "/quillbox", ": > \"${0%/*}/started\"");

    EntryOf(program).Make();
    const QString file = QString::fromStdString(file_);
    EXPECT_EQ(Run("desktop-file-validate", {file}), "");
    EXPECT_TRUE(EntryOf(program).Present());
    Run("gio", {"launch", file});
    EXPECT_TRUE(ComesAbout([&] { return fs::exists(program + "/started"); }))
        << files_.Read(file_).value();

    // The program's own entry stays as it is, and another program's is made anew once that is gone.
    const std::string made = files_.Read(file_).value();
    EntryOf("/elsewhere").FollowProgram();
    EXPECT_EQ(files_.Read(file_), made);
    fs::rename(program, program + "-moved");
    EntryOf(program + "-moved").FollowProgram();
    EXPECT_EQ(files_.Read(file_), AutostartText(program + "-moved/quillbox"));
  }
}

TEST_F(AutostartEntryTest, FollowsNoProgramWhereNoneIsToBeStarted) {
  EntryOf("/here").FollowProgram();
  EXPECT_FALSE(fs::exists(file_));
  EntryOf("/gone").Make();
  const std::string off = files_.Read(file_).value() + "Hidden=true\n";
  std::ofstream(file_) << off;
  EntryOf("/here").FollowProgram();
  EXPECT_EQ(files_.Read(file_), off);
}

TEST(DesktopEntryTest, TellsWhetherItStartsSomething) {
  static constexpr struct Case {
    const char* text;
    bool starts;
  } kCases[] = {
      {"", false},
      {"[Desktop Entry]\nExec=quillbox\n", true},
      {"# a note\n[Desktop Entry]\r\nExec = \"/a b/quillbox\"\r\n", true},
      {"[Desktop Entry]\nExec=quillbox", true},
      {"[Desktop Entry]\nExec=\n", false},
      {"[Desktop Entry]\nName=Quillbox\n", false},
      {"Exec=quillbox\n", false},
      {"[Desktop Action x]\nExec=quillbox\n", false},
      {"[Desktop Entry]\nExec=quillbox\nHidden=true\n", false},
      {"[Desktop Entry]\nExec=quillbox\nHidden=false\n", true},
      {"[Desktop Entry]\nExec=quillbox\n[Desktop Action x]\nHidden=true\n", true},
      {"[Desktop Entry]\nExec=quillbox\nX-GNOME-Autostart-enabled=false\n", false},
  };
  for (const Case& c : kCases) EXPECT_EQ(StartsSomething(c.text), c.starts) << c.text;
}

}  // namespace
}  // namespace quillbox
