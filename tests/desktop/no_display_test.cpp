// The programs with windows where no display can be opened.
#include <gmock/gmock.h>

#include "support/child_process.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

TEST(NoDisplay, IsToldInOneSentence) {
  const TemporaryFolder home;
  const std::vector<std::string> kSurroundings[] = {
      {},
      {"DISPLAY=:4711"},
      {"DISPLAY="},
      {"WAYLAND_DISPLAY=wayland-4711", "XDG_SESSION_TYPE=wayland"},
      {"DISPLAY=:4711", "WAYLAND_DISPLAY=wayland-4711"},
      {"QT_QPA_PLATFORM=xcb", "DISPLAY=:4711"},
      {"QT_QPA_PLATFORM=wayland"},
      {"QT_QPA_PLATFORM=no such platform", "QT_DEBUG_PLUGINS=0"},
  };
  for (const std::string program : {QUILLBOX_WINDOW_PROGRAMS}) {
    for (std::vector<std::string> environment : kSurroundings) {
      SCOPED_TRACE(program + testing::PrintToString(environment));
      environment.push_back("HOME=" + home.Path());
      environment.push_back("XDG_RUNTIME_DIR=" + home.Path());
      ChildProcess child({{program}, environment, true});
      child.CloseInput();
      const std::string name = program.substr(program.rfind('/') + 1);
      EXPECT_EQ(child.ReadErrors(), name + ": there is no display that could be opened\n");
      EXPECT_EQ(child.Wait(), 1);
    }
  }
}

}  // namespace
}  // namespace quillbox
