// The pictures that can stand in the tray.
#pragma once

#include <QIcon>
#include <string>

namespace quillbox {

// The program's own picture; the person's icon theme may have a better fitting one of our name.
QIcon OwnPicture();

// The picture in the file (host's bytes); a null icon when it holds none that can be shown.
QIcon PictureFromFile(const std::string& path);

}  // namespace quillbox
