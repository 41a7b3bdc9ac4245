#include "publishers.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <nlohmann/json.hpp>

namespace quillbox {
namespace {

using Json = nlohmann::ordered_json;

std::optional<std::size_t> NumberOr(const std::string& text, std::size_t standard) {
  if (text.empty()) return standard;
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole ? std::optional(number) : std::nullopt;
}

Json ToJson(const Publisher& publisher) {
  return {{"name", "accounts/" + publisher.Id},
          {"displayName", publisher.Email},
          {"timeZone", {{"id", "Etc/UTC"}}},
          {"createTime", "2007-02-03T00:00:00Z"},
          {"premium", false},
          {"state", publisher.Ready ? "READY" : "CLOSED"}};
}

}  // namespace

Publishers::Publishers(const std::set<std::string>& emails, std::size_t perEmail,
                       std::size_t ready) {
  for (const std::string& email : emails) {
    for (std::size_t i = 1; i <= perEmail; ++i) {
      const std::string number = std::to_string(all_.size() + 1);
      all_.push_back(
          {"pub-" + std::string(16 - number.size(), '0') + number, email, i + ready > perEmail});
    }
  }
}

std::vector<Publisher> Publishers::Of(const std::string& email) const {
  std::vector<Publisher> its;
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(its),
               [&](const Publisher& publisher) { return publisher.Email == email; });
  return its;
}

std::optional<Publisher> Publishers::Find(const std::string& id) const {
  const auto found = std::find_if(all_.begin(), all_.end(),
                                  [&](const Publisher& publisher) { return publisher.Id == id; });
  return found == all_.end() ? std::nullopt : std::optional(*found);
}

// The token is the number of accounts that earlier pages had.
std::optional<std::string> PublisherPageJson(const std::vector<Publisher>& publishers,
                                             const std::string& pageSize,
                                             const std::string& pageToken, std::size_t limit) {
  const auto size = NumberOr(pageSize, 0);
  const auto begin = NumberOr(pageToken, 0);
  if (!size || !begin || *begin > publishers.size()) return std::nullopt;
  const std::size_t most = *size == 0 ? limit : std::min(*size, limit);
  const std::size_t end = *begin + std::min(most, publishers.size() - *begin);
  Json page = Json::object();
  for (std::size_t i = *begin; i < end; ++i) page["accounts"].push_back(ToJson(publishers[i]));
  if (end < publishers.size()) page["nextPageToken"] = std::to_string(end);
  return page.dump(2) + "\n";
}

}  // namespace quillbox
