// One run of the fetch program, and what it left.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dl/support/child_process.h"
#include "dl/support/folder.h"

namespace quillbox {

inline constexpr const char* kEmail = "someone@example.test";
inline constexpr const char* kPassword = "rosemary";
inline constexpr const char* kContentReport =
    "/adsense/report/aggregate?product=afc&dateRange.dateRangeType=simple"
    "&dateRange.simpleDate=thismonth&reportType=property&groupByPref=date"
    "&outputFormat=TSV_EXCEL&unitPref=page";

// The front part of a signed-in text, as the program makes it: texts in the code page.
std::string SignedIn(const std::string& email, const std::string& password,
                     const std::string& address);

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
  ChildStart Start(const DlStart& start) const;

  // Runs it to its end; gives its exit status.
  int Run(const DlStart& start) const;

  std::string DataPath() const { return folder_.Path("Some.dat"); }
  std::string LogPath() const { return folder_.Path("Some.log"); }
  std::optional<std::string> Data() const { return ReadWhole(DataPath()); }
  std::optional<std::string> Log() const { return ReadWhole(LogPath()); }
  std::string FolderPath() const { return folder_.Path(); }

 private:
  Folder folder_;
};

}  // namespace quillbox
