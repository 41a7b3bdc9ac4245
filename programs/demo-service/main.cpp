// The demo service on the command line.
#include <signal.h>
#include <CLI/CLI.hpp>

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>

#include "service.h"
#include "service_options.h"

namespace quillbox {
namespace {

void WriteFile(const std::string& path, const std::string& text) {
  if (path.empty()) return;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text << std::flush;
  if (!file) throw std::runtime_error("can't write " + path);
}

// Blocked in every thread, so that the main one can wait for them.
sigset_t BlockEndSignals() {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, SIGTERM);
  ::sigaddset(&signals, SIGINT);
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  ::signal(SIGPIPE, SIG_IGN);
  return signals;
}

void Serve(const ServiceOptions& options) {
  const sigset_t endSignals = BlockEndSignals();
  Service service(options);
  WriteFile(options.AuthorityFile, service.AuthorityPem());
  const int port = service.Bind();
  std::thread worker([&] { service.Run(); });
  WriteFile(options.PortFile, std::to_string(port) + "\n");
  std::cout << "listening on https://" + service.Host() + ":" + std::to_string(port) + "\n"
            << std::flush;
  int received = 0;
  ::sigwait(&endSignals, &received);
  service.Stop();
  worker.join();
}

int Run(int argc, char** argv) {
  CLI::App program("A report service on this machine, for the demo and the tests.", "demo-service");
  program.set_version_flag("--version", "demo-service " QUILLBOX_VERSION);
  ServiceOptions options;
  AddServiceOptions(program, options);
  try {
    program.parse(argc, argv);
  } catch (const CLI::Success& question) {
    return program.exit(question);
  }
  Serve(options);
  return 0;
}

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  try {
    return quillbox::Run(argc, argv);
  } catch (const CLI::ParseError& problem) {
    std::cerr << "demo-service: " << problem.what() << "\n";
    return 2;
  } catch (const std::exception& problem) {
    std::cerr << "demo-service: " << problem.what() << "\n";
    return 1;
  }
}
