// Any line of a batch: one line of JSON comes out that says whether it was answered, and carries
// the request's id to the letter.
#include "fuzz/fuzz_input.h"
#include "quillbox-replay/batch.h"
#include "quillbox-replay/formats/json.h"

namespace {

using namespace quillbox;

// It makes a real file each time; what it does with its text has a target of its own.
bool UsesTheDisk(const JsonLine& request) {
  const JsonValue* const operation = request.Value.Find("op");
  return operation != nullptr && operation->Text == "profile";
}

void CheckAnswer(const JsonLine& request, const JsonLine& answer) {
  Require(answer.NotJson.empty() && answer.Fault.empty());
  Require(answer.Value.Kind == JsonValue::Type::kObject);
  const JsonValue* const ok = answer.Value.Find("ok");
  const JsonValue* const error = answer.Value.Find("error");
  Require(ok != nullptr && ok->Kind == JsonValue::Type::kBoolean);
  Require(ok->Truth == (error == nullptr));
  Require(error == nullptr || !error->Text.empty());
  if (!request.NotJson.empty() || !request.Fault.empty()) Require(!ok->Truth);

  const JsonValue* const sent = request.NotJson.empty() ? request.Value.Find("id") : nullptr;
  const JsonValue* const id = answer.Value.Find("id");
  Require((sent == nullptr) == (id == nullptr));
  Require(sent == nullptr || sent->Source == id->Source);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  const std::string_view line = text.substr(0, text.find('\n'));
  const JsonLine request = ReadJsonLine(line);
  if (UsesTheDisk(request)) return -1;

  const std::string before = "{}\n";
  std::string answers = before;
  AnswerRequest(line, answers);
  Require(answers.starts_with(before) && answers.ends_with('\n'));
  const std::string_view answer =
      std::string_view(answers).substr(before.size(), answers.size() - before.size() - 1);
  Require(answer.find('\n') == answer.npos);
  CheckAnswer(request, ReadJsonLine(answer));
  return 0;
}
