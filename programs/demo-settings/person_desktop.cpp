#include <QLocale>

#include "demo-settings/person.h"
#include "desktop/region.h"
#include "system/settings_file.h"

namespace quillbox {

std::unique_ptr<PerUserStore> PersonsStore(Files& files) {
  return std::make_unique<SettingsFile>(files);
}

RegionalSettings PersonsRegion() {
  return RegionOf(QLocale::system());
}

}  // namespace quillbox
