// The publisher accounts behind the e-mail addresses.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillbox {

struct Publisher {
  std::string Id;  // "pub-" and 16 digits
  std::string Email;
  bool Ready = true;  // else closed, and without figures
};

class Publishers {
 public:
  // `perEmail`: how many each has, 1 or more; the last `ready` of them are ready.
  Publishers(const std::set<std::string>& emails, std::size_t perEmail, std::size_t ready = 1);

  std::vector<Publisher> Of(const std::string& email) const;
  std::optional<Publisher> Find(const std::string& id) const;

 private:
  std::vector<Publisher> all_;
};

// One page of a list as the API sends it. `pageSize` and `pageToken`: as the request has them,
// empty when it hasn't; `limit`: the most accounts in a page. Nothing when one of them is wrong.
std::optional<std::string> PublisherPageJson(const std::vector<Publisher>& publishers,
                                             const std::string& pageSize,
                                             const std::string& pageToken, std::size_t limit);

}  // namespace quillbox
