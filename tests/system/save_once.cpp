// One save, for a sweep that lets its system calls fail:
//
//   save_once                       the kinds of saves, one a line: name and file below the folder
//   save_once KIND FOLDER TEXT      saves; the exit status is 0 when it says that this went well
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>

#include "system/savers.h"

int main(int count, char** arguments) {
  ::umask(S_IRWXG | S_IRWXO);  // the sweep begins behind this call
  using quillbox::kSavers;
  if (count == 1) {
    for (const quillbox::Saver& saver : kSavers) std::printf("%s %s\n", saver.Name, saver.File);
    return 0;
  }
  const auto saver = std::find_if(
      std::begin(kSavers), std::end(kSavers),
      [&](const quillbox::Saver& each) { return std::string_view(each.Name) == arguments[1]; });
  if (count != 4 || saver == std::end(kSavers)) return 2;
  return saver->Save(arguments[2], arguments[3]) ? 0 : 1;
}
