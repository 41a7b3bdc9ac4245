// From one line of JSON to its answer.
#include "quillbox-replay/batch.h"
#include "quillbox-replay/json_reader.h"
#include "quillbox-replay/operations.h"

namespace quillbox {
namespace {

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

}  // namespace quillbox
