// What a batch is asked: typed access to what a request holds, and the operations that it names.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "quillbox-replay/formats/json.h"
#include "quillbox-replay/memory_stores.h"
#include "region/regional_settings.h"

namespace quillbox {

// A request that can't be answered; what() tells the client why, as a text in the code page.
class RequestError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// An object of a request. Everything that reads a member throws RequestError when the member is
// missing or has the wrong type; the message names it.
class Request {
 public:
  // `object` must outlive this. `path` stands before the members' names in messages.
  explicit Request(const JsonValue& object, std::string path = {})
      : object_(object), path_(std::move(path)) {}

  bool Has(std::string_view name) const { return object_.Find(name) != nullptr; }
  const JsonValue& Member(std::string_view name) const;
  const JsonValue& Member(std::string_view name, JsonValue::Type kind) const;

  const std::string& Text(std::string_view name) const;
  bool Truth(std::string_view name) const;
  std::int32_t WholeNumber(std::string_view name) const;
  std::vector<std::string> Texts(std::string_view name) const;
  Request Object(std::string_view name) const;

  // "2007-01-31T09:05:00"
  std::chrono::local_seconds Time(std::string_view name) const;

  const std::vector<JsonMember>& Members() const { return object_.Members; }
  std::string PathOf(std::string_view name) const;

 private:
  const JsonValue& object_;
  std::string path_;
};

// The nearest double of a JSON number; throws RequestError, which names `what`, when it has none.
double NumberOf(const JsonValue& value, std::string_view what);

// The member "now"; the machine's time when it is left out. Throws RequestError when it is no time.
std::chrono::local_seconds TimeOf(const Request& request);

// The member "region": the name of a built-in region, or an object whose left-out members are those
// of en-US. Throws RequestError on anything else.
RegionalSettings RegionOf(const Request& request);

// The member "settings": an object of sections, each an object of keys and texts. Of two keys that
// differ in case alone the later text counts. Throws RequestError on anything else.
MemoryStore SettingsOf(const Request& request);

// The whole store in the same form.
void WriteSettings(JsonWriter& answer, const MemoryStore& store);

// What a batch knows. Writes the members of its answer. Throws RequestError when the request can't
// be answered; what it has written by then is dropped.
struct Operation {
  std::string_view Name;
  void (*Run)(const Request& request, JsonWriter& answer);
};

// One group a file.
std::span<const Operation> ConvertOperations();
std::span<const Operation> SettingsOperations();
std::span<const Operation> EvaluationOperations();
std::span<const Operation> FetchOperations();
std::span<const Operation> TooltipOperations();

}  // namespace quillbox
