#include "sound/find_sound_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <string>

#include "system/system_files.h"

namespace quillbox {
namespace {

struct Folders {
  Folders() {
    for (const char* path : {"program/Clicks.wav", "data/clicks.WAV", "program/Rate.wav",
                             "program/Gl\xC3\xB6"
                             "ckchen.wav",
                             "program/(None)", "other.wav"}) {
      const QString file = top_.filePath(QString::fromUtf8(path));
      QDir().mkpath(QFileInfo(file).path());
      QFile made(file);
      made.open(QIODevice::WriteOnly);
    }
    QDir().mkpath(Path("program/folder.wav").c_str());
  }

  std::string Path(const std::string& name) const { return top_.path().toStdString() + "/" + name; }

  std::string Find(const std::string& sound) {
    SystemFiles files;
    const ApplicationFolder folder(Path("program"), Path("data"), '/');
    return FindSoundFile(files, folder, sound).value_or("silent");
  }

 private:
  const QTemporaryDir top_;
};

TEST(FindSoundFile, TakesANameFromTheApplicationFolder) {
  Folders folders;
  struct Case {
    const char* Sound;
    std::string Found;
  };
  const Case kCases[] = {
      {"Rate.wav", folders.Path("program/Rate.wav")},
      {"rate.WAV", folders.Path("program/Rate.wav")},
      {"Clicks.wav", folders.Path("data/clicks.WAV")},
      {"Gl\xC3\xB6"
       "ckchen.wav",
       folders.Path("program/Gl\xC3\xB6"
                    "ckchen.wav")},
      {"gl\xD6"
       "ckchen.wav",
       folders.Path("program/Gl\xC3\xB6"
                    "ckchen.wav")},
  };
  for (const Case& row : kCases) EXPECT_EQ(folders.Find(row.Sound), row.Found) << row.Sound;
}

TEST(FindSoundFile, TakesAFullPathAsItStands) {
  Folders folders;
  const std::string umlaut =
      "program/Gl\xC3\xB6"
      "ckchen.wav";
  EXPECT_EQ(folders.Find(folders.Path("other.wav")), folders.Path("other.wav"));
  EXPECT_EQ(folders.Find(folders.Path(umlaut)), folders.Path(umlaut));
  EXPECT_EQ(folders.Find(folders.Path("program/Gl\xF6"
                                      "ckchen.wav")),
            folders.Path(umlaut));
  EXPECT_EQ(folders.Find(folders.Path("program/rate.wav")), "silent");
}

TEST(FindSoundFile, FindsNothingElse) {
  Folders folders;
  for (const char* sound : {"", "(None)", "Absent.wav", "*.wav", "R?te.wav", "folder.wav", "..",
                            "../other.wav", "program/Rate.wav", "./Rate.wav", "/dev/null", "/"}) {
    EXPECT_EQ(folders.Find(sound), "silent") << sound;
  }
}

}  // namespace
}  // namespace quillbox
