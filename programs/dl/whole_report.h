// A report that is too long for one answer, made whole.
#pragma once

#include "report_question.h"

namespace quillbox {

// Asks again, for parts of the days, until every part came whole, and puts them together. `first`:
// the answer for the whole range; one that is whole already, and a failure, come back as they are.
// kNoAnswer when a single day is too long, when it would take more than 64 questions, or when the
// lines would take more than the largest body (64 MiB).
GrantedReport MadeWhole(GrantedService& service, const WantedReport& report, GrantedReport first);

}  // namespace quillbox
