// One run of the fetch program, and what it left.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "system/temporary_folder.h"
#include "text/escaping.h"

namespace quillbox {

inline constexpr const char* kEmail = "someone@example.test";
inline constexpr const char* kPassword = "rosemary";
inline constexpr const char* kContentReport =
    "/adsense/report/aggregate?product=afc&dateRange.dateRangeType=simple"
    "&dateRange.simpleDate=thismonth&reportType=property&groupByPref=date"
    "&outputFormat=TSV_EXCEL&unitPref=page";

// Set where the program under test is that for Windows: a script that starts it in Wine.
inline const char* WineStarter() {
  return std::getenv("QUILLBOX_TESTED_DL");
}

// What tests can't ask, or must ask in another way, when Wine stands in between.
inline bool InWine() {
  return WineStarter() != nullptr;
}

inline constexpr const char* kLocksOfItsOwn = "Windows locks files in a way of its own";
inline constexpr const char* kNoVisitors = "Wine doesn't say whose a connection from outside it is";
inline constexpr const char* kNoTerminal = "Wine has consoles of its own";

// The program under test.
inline std::string DlProgram() {
  return InWine() ? WineStarter() : QUILLBOX_DL_PROGRAM;
}

// As the program makes it: texts in the code page.
inline std::string SignedIn(const std::string& email, const std::string& password,
                            const std::string& address) {
  return "Email=" + EncodeFormValue(email) + "&Passwd=" + EncodeFormValue(password) + "%#%" +
         address;
}

struct DlStart {
  std::string Request;
  std::string AuthorityFile = {};
  std::string Limits = "5000,5000,15000";     // milliseconds; see the environment of dl
  std::vector<std::string> Environment = {};  // added
};

// The files of the runs in one folder: "Some.dat" and "Some.log".
class DlRun {
 public:
  // The command line, for tests that start the program themselves.
  ChildStart Start(const DlStart& start) const {
    ChildStart child{{DlProgram(), start.Request + "|" + DataPath() + "|" + LogPath()},
                     start.Environment};
    child.Environment.push_back("QUILLBOX_DL_LIMITS=" + start.Limits);
    if (start.AuthorityFile.empty()) return child;
    child.Environment.push_back("SSL_CERT_FILE=" + start.AuthorityFile);
    return child;
  }

  // Runs it to its end; gives its exit status.
  int Run(const DlStart& start) const { return ChildProcess(Start(start)).Wait(); }
  // As Run; gives what is in the log, "no log" without one.
  std::string CodeOf(const DlStart& start) const {
    Run(start);
    return Log().value_or("no log");
  }

  std::string DataPath() const { return Folder.File("Some.dat"); }
  std::string LogPath() const { return Folder.File("Some.log"); }
  std::optional<std::string> Data() const { return ReadWhole(DataPath()); }
  std::optional<std::string> Log() const { return ReadWhole(LogPath()); }

  const TemporaryFolder Folder;
};

}  // namespace quillbox
