#include "demo-settings/person.h"
#include "windows/registry_store.h"
#include "windows/windows_surroundings.h"

namespace quillbox {

std::unique_ptr<PerUserStore> PersonsStore(Files&) {
  return std::make_unique<RegistryStore>();
}

RegionalSettings PersonsRegion() {
  return RegionOf();
}

}  // namespace quillbox
