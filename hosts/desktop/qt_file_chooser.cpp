#include "desktop/qt_file_chooser.h"

namespace quillbox {

std::optional<std::string> QtFileChooser::Choose(const FileQuestion&) {
  return std::nullopt;
}

}  // namespace quillbox
