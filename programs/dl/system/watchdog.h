// Ends a run that can't end by itself: one that has crashed, in a library say, and one whose time
// is up whatever a library is doing. Whoever waits for the run finds its code all the same.
#pragma once

#include <chrono>
#include <string>

namespace quillbox {

// A process has one watchdog: signals have one handler. One of these two starts it, once.

// From here on a crash, and the end of `limit`, leave the code for "no answer" in the log, take
// away the data file and end the process as if the run had failed: status 0, or 1 without a log.
void WatchFetch(const std::string& dataPath, const std::string& logPath,
                std::chrono::milliseconds limit);

// From here on the end of `limit` writes `words` to the file descriptor `output` and ends the
// process with the code for "no answer".
void WatchCommand(const std::string& words, int output, std::chrono::milliseconds limit);

// From here on the run tells its result itself, and the limit no longer counts; a crash still does.
// Doesn't return when the limit has ended the run already.
void EndWatch();

// While it lives the limit ends nothing: for the exchange of one file for another. An end that came
// due meanwhile follows at once. Without a watchdog it does nothing.
class Unwatched {
 public:
  Unwatched();
  ~Unwatched();
  Unwatched(const Unwatched&) = delete;
  Unwatched& operator=(const Unwatched&) = delete;
};

}  // namespace quillbox
