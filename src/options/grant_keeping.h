// Which grants are forgotten once the Options are gone.
#pragma once

#include <set>
#include <string>

#include "state/program_context.h"

namespace quillbox {

// Whatever gives a grant away that an account may still need is wrong; one that is kept for nothing
// does no harm beyond itself.
class GrantKeeping {
 public:
  // The context must outlive it.
  explicit GrantKeeping(const ProgramContext& program) : program_(program) {}

  // Notes the grants of all accounts, those that run and those that are stored: the two differ
  // after the Options were left by the close box.
  void Opened();

  // Notes a grant that "Connect..." made; no account may hold it yet.
  void Made(const std::string& name) { noted_.insert(name); }

  // The Options are gone: every noted grant that now stands in no account, neither of those that
  // run nor of those that are stored, is forgotten. When the stored list can't be read for certain,
  // all are kept. A second call does nothing.
  void Closed();

 private:
  const ProgramContext& program_;
  std::set<std::string> noted_;
};

}  // namespace quillbox
