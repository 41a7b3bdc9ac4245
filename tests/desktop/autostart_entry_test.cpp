// The desktop entry that starts the program with the session.
#include "desktop/autostart_entry.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <filesystem>
#include <fstream>

#include "desktop/desktop_entry.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class AutostartEntryTest : public testing::Test {
 protected:
  // In a configuration folder that isn't there yet.
  AutostartEntryTest() {
    qputenv("XDG_CONFIG_HOME", folder_.filePath("new/config").toUtf8());
    file_ = folder_.filePath("new/config/autostart/quillbox.desktop").toStdString();
  }
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
  const QTemporaryDir folder_;
  std::string file_;
  SystemFiles files_;
  std::unique_ptr<ApplicationFolder> program_;
};

TEST_F(AutostartEntryTest, ComesAndGoes) {
  AutostartEntry entry = EntryOf("/opt/quillbox");
  EXPECT_FALSE(entry.Present());
  entry.Remove();
  entry.Make();
  EXPECT_TRUE(entry.Present());
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  entry.Remove();
  EXPECT_FALSE(entry.Present());
  EXPECT_FALSE(fs::exists(file_));
}

TEST_F(AutostartEntryTest, MakeReplacesWhatWasThere) {
  AutostartEntry entry = EntryOf("/opt/quillbox");
  entry.Make();
  const std::string made = files_.Read(file_).value();
  std::ofstream(file_) << "[Desktop Entry]\nExec=other\nHidden=true\n";
  EXPECT_FALSE(entry.Present());
  entry.Make();
  EXPECT_EQ(files_.Read(file_), made);
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
    const fs::path program = fs::path(folder_.path().toStdString()) / name;
    fs::create_directories(program);
    const fs::path witness = program / "started";
    std::ofstream(program / "quillbox") << "#!/bin/sh\n: > \"${0%/*}/started\"\n";
    fs::permissions(program / "quillbox", fs::perms::owner_all);

    EntryOf(program.string()).Make();
    EXPECT_EQ(Run("desktop-file-validate", {QString::fromStdString(file_)}), "");
    EXPECT_TRUE(EntryOf(program.string()).Present());
    Run("gio", {"launch", QString::fromStdString(file_)});
    for (int tries = 0; tries < 500 && !fs::exists(witness); ++tries) QThread::msleep(20);
    EXPECT_TRUE(fs::exists(witness)) << files_.Read(file_).value();
  }
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
