#include "qt_base/icon_picture.h"

#include <QFile>
#include <QImageReader>
#include <QPixmap>

static void LoadIconResources() {
  Q_INIT_RESOURCE(quillbox_icons);
}

namespace quillbox {
namespace {

constexpr int kSizes[] = {16, 22, 24, 32, 44, 48, 64};
constexpr int kLargestSide = 256;  // no tray shows more
constexpr int kLargestSource = 8192;
constexpr int kMostPictures = 16;

QPixmap NextPicture(QImageReader& reader) {
  const QSize size = reader.size();
  if (size.width() > kLargestSource || size.height() > kLargestSource) return {};
  if (size.width() > kLargestSide || size.height() > kLargestSide) {
    reader.setScaledSize(size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio));
  }
  return QPixmap::fromImage(reader.read());
}

}  // namespace

QIcon OwnPicture() {
  LoadIconResources();
  QIcon icon = QIcon::fromTheme("quillbox");
  if (!icon.isNull()) return icon;
  for (const int size : kSizes) icon.addFile(QString(":/quillbox-%1.png").arg(size), {size, size});
  return icon;
}

QIcon PictureFromFile(const std::string& path) {
  QImageReader reader(QFile::decodeName(path.c_str()));
  reader.setDecideFormatFromContent(true);
  QIcon icon;
  for (int i = 0; i < kMostPictures; ++i) {  // an icon file holds the picture in several sizes
    const QPixmap picture = NextPicture(reader);
    if (!picture.isNull()) icon.addPixmap(picture);
    if (reader.supportsAnimation() || !reader.jumpToNextImage()) break;
  }
  return icon;
}

}  // namespace quillbox
