// What the browser shows once it comes back from the consent page: HTML in UTF-8.
#pragma once

#include <span>
#include <string>

#include "api/publisher_accounts.h"

namespace quillbox {

// `sentence`: HTML.
std::string SentencePage(const std::string& sentence);

// Which of the accounts it shall be. The answer is a GET of "/" with two fields, `state` as it is
// given here, and `account`, the chosen one's name.
std::string ChoicePage(const std::string& state, std::span<const PublisherAccount> accounts);

}  // namespace quillbox
