#include "quillbox-replay/settings_argument.h"

namespace quillbox {

MemoryStore SettingsOf(const Request& request) {
  MemoryStore store;
  if (!request.Has("settings")) return store;  // left out means empty
  const Request settings = request.Object("settings");
  for (const JsonMember& section : settings.Members()) {
    const Request keys = settings.Object(section.Name);
    for (const JsonMember& key : keys.Members()) {
      if (key.Value.Kind != JsonValue::Type::kString) {
        throw RequestError("member \"" + keys.PathOf(key.Name) + "\" must be a text");
      }
      store.Write(section.Name, key.Name, key.Value.Text);
    }
  }
  return store;
}

void WriteSettings(JsonWriter& answer, const MemoryStore& store) {
  answer.BeginObject();
  for (const auto& [foldedName, section] : store.Sections()) {
    answer.Name(section.Name);
    answer.BeginObject();
    for (const auto& [foldedKey, setting] : section.Settings) {
      answer.Name(setting.Key);
      answer.Text(setting.Value);
    }
    answer.EndObject();
  }
  answer.EndObject();
}

}  // namespace quillbox
