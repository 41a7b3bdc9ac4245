#include "config/application_folder.h"

#include <gtest/gtest.h>

#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

TEST(FindSoundFile, TakesANameOfTheApplicationFolderOrAFullPath) {
  const std::string bell =
      "program/Gl\xC3\xB6"
      "ckchen.wav";
  const TemporaryFolder top;
  for (const char* folder : {"data", "program/folder.wav"}) {
    std::filesystem::create_directories(top.File(folder));
  }
  for (const char* file : {"program/Clicks.wav", "data/clicks.WAV", "program/Rate.wav",
                           bell.c_str(), "program/(None)", "other.wav"}) {
    top.Put(file, "");
  }
  struct Case {
    std::string sound, found;
  };
  const Case kCases[] = {
      {"Rate.wav", "program/Rate.wav"},
      {"rate.WAV", "program/Rate.wav"},
      {"Clicks.wav", "data/clicks.WAV"},
      {bell.substr(bell.find('/') + 1), bell},
      {"gl\xD6"
       "ckchen.wav",
       bell},
      {top.File("other.wav"), "other.wav"},
      {top.File(bell), bell},
      {top.File("program/Gl\xF6"
                "ckchen.wav"),
       bell},
  };
  SystemFiles files;
  const ApplicationFolder folder(top.File("program"), top.File("data"), '/');
  for (const Case& c : kCases) {
    EXPECT_EQ(FindSoundFile(files, folder, c.sound), top.File(c.found)) << c.sound;
  }
  for (const std::string sound :
       {"", "(None)", "Absent.wav", "*.wav", "R?te.wav", "folder.wav", "..", "../other.wav",
        "program/Rate.wav", "./Rate.wav", "/dev/null", "/"}) {
    EXPECT_EQ(FindSoundFile(files, folder, sound), std::nullopt) << sound;
  }
  EXPECT_EQ(FindSoundFile(files, folder, top.File("program/rate.wav")), std::nullopt);
}

}  // namespace
}  // namespace quillbox
