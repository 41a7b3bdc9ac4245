#include "dl/support/demo_service.h"

#include <stdexcept>

namespace quillbox {
namespace {

ChildStart StartOf(const std::string& authorityFile, std::vector<std::string> options) {
  ChildStart start{{QUILLBOX_DEMO_SERVICE_PROGRAM, "--authority", authorityFile}, {}};
  for (std::string& option : options) start.Arguments.push_back(std::move(option));
  return start;
}

}  // namespace

DemoService::DemoService(std::vector<std::string> options)
    : process_(StartOf(AuthorityFile(), std::move(options))) {
  const std::string said = process_.ReadLine();
  const std::string expected = "listening on ";
  if (!said.starts_with(expected)) throw std::runtime_error("no demo service: " + said);
  base_ = said.substr(expected.size());
}

}  // namespace quillbox
