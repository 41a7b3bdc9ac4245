// What came of an evaluation, in words for people.
#pragma once

#include <string>
#include <vector>

#include "evaluation/account_evaluation.h"

namespace quillbox {

struct ReportFound {
  std::string Name;  // "Content.dat"
  bool Read = false;
  std::size_t Size = 0;  // in bytes, if it was read
};

struct EvaluationStory {
  std::string Account;  // code page
  std::string Region;
  bool AccountListed = false;  // in the settings' account list
  quillbox::Evaluation Evaluation;
  std::vector<ReportFound> Reports;  // those that DataToDownload selects
};

// As UTF-8, lines end in LF.
std::string TellEvaluation(const EvaluationStory& story);

}  // namespace quillbox
