// What this system keeps for the person who runs the program.
#pragma once

#include <memory>

#include "platform/storage.h"
#include "region/regional_settings.h"

namespace quillbox {

// `files` must outlive the store.
std::unique_ptr<PerUserStore> PersonsStore(Files& files);

RegionalSettings PersonsRegion();

}  // namespace quillbox
