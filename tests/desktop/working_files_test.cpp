#include "config/application_folder.h"

#include <gmock/gmock.h>

#include "system/system_files.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

TEST(WorkingFiles, ThoseOfTheFetchProgramGoAndNothingElse) {
  const TemporaryFolder folder;
  for (const char* const name :
       {"Content.dat", "Content.log", "content.dat.77.part", "Search.log.1.part", "Referral.dat",
        "Report.dat", "Report.log", "che.wt", "chet.wt", "Report.html", "Default.ini",
        "Content.dat.bak", "MyContent.dat", "che.wtx"}) {
    folder.Put(name, "x");
  }
  SystemFiles files;
  ClearWorkingFiles(files, ApplicationFolder(folder.Path(), folder.Path(), '/'));
  EXPECT_THAT(files.List(folder.Path(), "*"),
              testing::UnorderedElementsAre("Report.html", "Default.ini", "Content.dat.bak",
                                            "MyContent.dat", "che.wtx"));
}

}  // namespace
}  // namespace quillbox
