// The mouse cursor.
#pragma once

#include "platform/pixel_geometry.h"

namespace quillbox {

class Cursor {
 public:
  virtual ~Cursor() = default;

  // Where it stands now, in pixels of the whole desktop.
  virtual PixelPoint Position() = 0;
};

}  // namespace quillbox
