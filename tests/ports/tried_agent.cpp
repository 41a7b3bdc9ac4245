// A fetch program for tests. The first word of its argument says what it does:
//   beat   writes to the file "beat" of the folder TRIED_FOLDER without end
//   save   writes batches into the per-user store without end
//   leave  starts one that beats, and ends
//   die    starts one that beats as an agent of its own, and is gone without an end in order
// Anything else is written down with the environment variables ADDED and REMOVED, and it ends.
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "ports/tried_host.h"
#include "system/process_start.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string File(const char* name) {
  return Variable("TRIED_FOLDER") + "/" + name;
}

// Ends by itself at last, should a test have lost it.
void Beat() {
  for (int i = 0; i < 3000; ++i) {
    std::ofstream(File("beat"), std::ios::app) << "x";
    std::this_thread::sleep_for(10ms);
  }
}

// The values of one batch are all the same.
void Save() {
  const auto store = MakeStore();
  for (int i = 0; i < 100'000; ++i) {
    const auto batch = SameValues(std::to_string(i));
    if (store->Apply(batch) && i == 0) std::ofstream(File("beat")) << "x";
  }
}

void WaitForABeat() {
  for (int i = 0; i < 1000 && !std::ifstream(File("beat")); ++i) {
    std::this_thread::sleep_for(10ms);
  }
}

int Run(const std::string& program, const std::vector<std::string>& arguments) {
  const std::string word = arguments.empty() ? "" : arguments.front();
  if (word == "beat") return Beat(), 0;
  if (word == "save") return Save(), 0;
  if (word == "leave") {
    const bool started = StartBeside(program, "beat");
    return WaitForABeat(), started ? 0 : 1;
  }
  if (word == "die") {
    const auto agents = MakeAgents(program);
    agents->Start({"beat", {}});
    WaitForABeat();
    std::_Exit(0);
  }
  std::ofstream(File("text"), std::ios::binary)
      << word << '|' << arguments.size() << '|' << Variable("ADDED") << '|' << Variable("REMOVED");
  return 0;
}

}  // namespace
}  // namespace quillbox

int main(int count, char** texts) {
  return quillbox::Run(texts[0], quillbox::BeginOnCommandLine(count, texts));
}
