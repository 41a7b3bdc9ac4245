// The settings of a request, and back.
#pragma once

#include "quillbox-replay/json_writer.h"
#include "quillbox-replay/memory_store.h"
#include "quillbox-replay/request.h"

namespace quillbox {

// The member "settings": an object of sections, each an object of keys and texts. Of two keys that
// differ in case alone the later text counts. Throws RequestError on anything else.
MemoryStore SettingsOf(const Request& request);

// The whole store in the same form.
void WriteSettings(JsonWriter& answer, const MemoryStore& store);

}  // namespace quillbox
