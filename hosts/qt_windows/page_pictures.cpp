#include "qt_windows/page_pictures.h"

static void LoadPageResources() {
  Q_INIT_RESOURCE(quillbox_icons);
}

namespace quillbox {
namespace {

constexpr int kSizes[] = {16, 24, 32};

}  // namespace

QIcon PagePicture(const QString& name) {
  LoadPageResources();
  QIcon icon;
  for (const int size : kSizes) {
    icon.addFile(QString(":/pages/%1-%2.png").arg(name).arg(size), {size, size});
  }
  return icon;
}

}  // namespace quillbox
