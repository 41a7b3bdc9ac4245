// Pictures from files and from the program's own resources.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace quillbox {

struct IconDestroyer {
  void operator()(HICON icon) const { ::DestroyIcon(icon); }
};
using OwnedIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;

struct GdiDeleter {
  void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using OwnedBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiDeleter>;

// Sizes are in pixels of the screen, for both sides.

// The program's own icon.
OwnedIcon OwnIcon(int size);

// The icon or other picture in the file (UTF-8 path); null when it holds none that can be shown.
OwnedIcon IconFromFile(const std::string& path, int size);

// A picture of the Options dialog by its name in the resources; null when there is none.
OwnedIcon PageIcon(const wchar_t* name, int size);

// The picture in the file (UTF-8 path) at its own size, on `background` where it is transparent;
// null when it holds none.
OwnedBitmap BitmapFromFile(const std::string& path, COLORREF background);

}  // namespace quillbox
