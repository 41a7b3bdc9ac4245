#include "shell/web_links.h"

#include <string>

#include "platform/forms.h"
#include "platform/storage.h"
#include "platform/surroundings.h"

namespace quillbox {
namespace {

void OpenOnMakersSite(const ProgramContext& program, const std::string& path) {
  program.Host.Opener.Open(program.Build.MakerAddress + path);
}

}  // namespace

void TWVisit_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "");
}
void TWDonate_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "/Donate.asp");
}

void QuillboxSupportForums_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "/Forum/index.php?c=19");
}

void SendBugReport_Click(const ProgramContext& program) {
  OpenOnMakersSite(program, "/BugReport.asp?Application=Quillbox&Version=" + program.Build.Version);
}

void QuillboxManual_Click(const ProgramContext& program) {
  const std::string manual = program.Folder.ProgramFile("ReadMe.txt");
  if (program.Host.Disk.Exists(manual)) {
    program.Host.Opener.Open(manual);
    return;
  }
  program.Host.Boxes.Show(
      {.Text = "The Help File is missing!  Reinstall Quillbox to correct this problem.",
       .Icon = BoxIcon::kExclamation});
}

}  // namespace quillbox
