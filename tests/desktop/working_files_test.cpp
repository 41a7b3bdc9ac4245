#include "desktop/working_files.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <fstream>

#include "system/system_files.h"

namespace quillbox {
namespace {

TEST(WorkingFiles, ThoseOfTheFetchProgramGoAndNothingElse) {
  const QTemporaryDir temporary;
  const std::string path = temporary.path().toStdString();
  for (const char* const name :
       {"Content.dat", "Content.log", "content.dat.77.part", "Search.log.1.part", "Referral.dat",
        "Report.dat", "Report.log", "che.wt", "chet.wt", "Report.html", "Default.ini",
        "Content.dat.bak", "MyContent.dat", "che.wtx"}) {
    std::ofstream(path + "/" + name) << "x";
  }
  SystemFiles files;
  ClearWorkingFiles(files, ApplicationFolder(path, path, '/'));
  EXPECT_THAT(files.List(path, "*"),
              testing::UnorderedElementsAre("Report.html", "Default.ini", "Content.dat.bak",
                                            "MyContent.dat", "che.wtx"));
}

}  // namespace
}  // namespace quillbox
