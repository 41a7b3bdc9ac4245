// The small pictures of the Options dialog.
#pragma once

#include <QIcon>
#include <QString>

namespace quillbox {

// By the name of its drawing in assets/pages.
QIcon PagePicture(const QString& name);

}  // namespace quillbox
