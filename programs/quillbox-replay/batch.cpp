#include "quillbox-replay/batch.h"

#include <iostream>

#include "quillbox-replay/formats/json.h"
#include "quillbox-replay/request.h"
#include "system/streams.h"

namespace quillbox {
namespace {

// Null for an unknown name.
const Operation* FindOperation(std::string_view name) {
  for (const auto group : {EvaluationOperations, ConvertOperations, SettingsOperations,
                           FetchOperations, TooltipOperations}) {
    for (const Operation& operation : group()) {
      if (operation.Name == name) return &operation;
    }
  }
  return nullptr;
}

void BeginAnswer(JsonWriter& answer, bool ok, const JsonValue* id) {
  answer.BeginObject();
  answer.Name("ok");
  answer.Truth(ok);
  if (id != nullptr) {
    answer.Name("id");
    answer.Raw(id->Source);
  }
}

void WriteError(std::string& answers, const JsonValue* id, std::string_view error) {
  JsonWriter answer(answers);
  BeginAnswer(answer, false, id);
  answer.Name("error");
  answer.Text(error);
  answer.EndObject();
}

void WriteAnswer(std::string& answers, const JsonValue* id, const Request& request) {
  const std::string& name = request.Text("op");
  const Operation* operation = FindOperation(name);
  if (operation == nullptr) throw RequestError("unknown op \"" + name + "\"");
  JsonWriter answer(answers);
  BeginAnswer(answer, true, id);
  operation->Run(request, answer);
  answer.EndObject();
}

void AnswerJson(const JsonLine& line, std::string& answers) {
  const JsonValue* const id = line.Value.Find("id");
  if (line.Value.Kind != JsonValue::Type::kObject) {
    return WriteError(answers, nullptr, "a request must be an object");
  }
  if (!line.Fault.empty()) return WriteError(answers, id, line.Fault);

  const std::size_t before = answers.size();
  try {
    WriteAnswer(answers, id, Request(line.Value));
  } catch (const std::exception& failure) {
    answers.resize(before);
    WriteError(answers, id, failure.what());
  }
}

}  // namespace

void AnswerRequest(std::string_view line, std::string& answers) {
  const JsonLine read = ReadJsonLine(line);
  if (read.NotJson.empty()) {
    AnswerJson(read, answers);
  } else {
    WriteError(answers, nullptr, read.NotJson);
  }
  answers += '\n';
}

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16U;

// So many bytes of answers are written even while lines wait, to keep the memory bounded.
constexpr std::size_t kManyAnswers = std::size_t{1} << 18U;

enum class Input { kMore, kEnd, kFailed };

Input ReadMore(int in, std::string& pending) {
  const std::size_t before = pending.size();
  pending.resize(before + kChunk);
  const auto count = ReadSome(in, std::span(pending).subspan(before));
  pending.resize(before + count.value_or(0));
  if (!count) return Input::kFailed;
  return *count == 0 ? Input::kEnd : Input::kMore;
}

class Batch {
 public:
  Batch(int in, int out) : in_(in), out_(out) {}

  int Run() {
    for (;;) {
      if (!AnswerWholeLines()) return Failed("the answers can't be written");
      if (!InputWaits(in_) && !WriteAnswers()) {
        return Failed("the answers can't be written");
      }
      const Input input = ReadMore(in_, pending_);
      if (input == Input::kFailed) return Failed("the requests can't be read");
      if (input == Input::kEnd) return Finish();
    }
  }

 private:
  // Each byte of a line that comes in pieces is looked at once.
  bool AnswerWholeLines() {
    std::size_t begin = 0;
    std::size_t end = pending_.find('\n', searched_);
    for (; end != std::string::npos; end = pending_.find('\n', begin)) {
      AnswerRequest(std::string_view(pending_).substr(begin, end - begin), answers_);
      begin = end + 1;
      if (answers_.size() >= kManyAnswers && !WriteAnswers()) return false;
    }
    pending_.erase(0, begin);
    searched_ = pending_.size();
    return true;
  }

  // The last line need not have an end.
  int Finish() {
    if (!pending_.empty()) AnswerRequest(pending_, answers_);
    return WriteAnswers() ? 0 : Failed("the answers can't be written");
  }

  bool WriteAnswers() {
    const bool written = WriteAll(out_, answers_);
    answers_.clear();
    return written;
  }

  static int Failed(std::string_view reason) {
    std::cerr << "quillbox-replay: " << reason << '\n';
    return 2;
  }

  int in_;
  int out_;
  std::string pending_;       // read, not answered yet
  std::size_t searched_ = 0;  // so much of it holds no line feed
  std::string answers_;       // not written yet
};

}  // namespace

int RunBatch(int in, int out) {
  return Batch(in, out).Run();
}

}  // namespace quillbox
