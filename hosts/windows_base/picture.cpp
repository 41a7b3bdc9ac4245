#include "windows_base/picture.h"

#include <objidl.h>

#include <gdiplus.h>
#include <shlwapi.h>

#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr UINT kLargestSource = 8192;

// The decoders are there while a picture is read, and take no memory at other times.
class Decoders {
 public:
  Decoders() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~Decoders() { Gdiplus::GdiplusShutdown(token_); }
  Decoders(const Decoders&) = delete;
  Decoders& operator=(const Decoders&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

bool CanBeShown(Gdiplus::Bitmap& picture) {
  return picture.GetLastStatus() == Gdiplus::Ok && picture.GetWidth() <= kLargestSource &&
         picture.GetHeight() <= kLargestSource;
}

// Drawn into a square, as large as fits.
OwnedIcon Scaled(Gdiplus::Bitmap& picture, int size) {
  if (!CanBeShown(picture)) return nullptr;
  const auto width = static_cast<double>(picture.GetWidth());
  const auto height = static_cast<double>(picture.GetHeight());
  const double scale = size / (width > height ? width : height);
  Gdiplus::Bitmap square(size, size, PixelFormat32bppARGB);
  Gdiplus::Graphics canvas(&square);
  canvas.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  canvas.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  canvas.DrawImage(&picture, static_cast<Gdiplus::REAL>((size - width * scale) / 2),
                   static_cast<Gdiplus::REAL>((size - height * scale) / 2),
                   static_cast<Gdiplus::REAL>(width * scale),
                   static_cast<Gdiplus::REAL>(height * scale));
  HICON icon = nullptr;
  square.GetHICON(&icon);
  return OwnedIcon(icon);
}

}  // namespace

// The smallest picture in the icon that is large enough is scaled down where the system can do
// that; by itself it takes the nearest, which may be stretched.
OwnedIcon OwnIcon(int size) {
  using Load = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int, int, HICON*);
  static const auto load = reinterpret_cast<Load>(reinterpret_cast<void*>(
      ::GetProcAddress(::GetModuleHandleW(L"comctl32.dll"), "LoadIconWithScaleDown")));
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  HICON icon = nullptr;
  if (load != nullptr) load(program, MAKEINTRESOURCEW(1), size, size, &icon);
  if (icon == nullptr) {
    icon = static_cast<HICON>(
        ::LoadImageW(program, MAKEINTRESOURCEW(1), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
  }
  return OwnedIcon(icon);
}

OwnedIcon IconFromFile(const std::string& path, int size) {
  const std::wstring file = WideOfPath(path);
  if (HANDLE icon = ::LoadImageW(nullptr, file.c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE)) {
    return OwnedIcon(static_cast<HICON>(icon));
  }
  const Decoders decoders;
  Gdiplus::Bitmap picture(file.c_str());
  return Scaled(picture, size);
}

OwnedIcon PageIcon(const wchar_t* name, int size) {
  const HRSRC found = ::FindResourceW(nullptr, name, RT_RCDATA);
  if (found == nullptr) return nullptr;
  const auto* const bytes =
      static_cast<const BYTE*>(::LockResource(::LoadResource(nullptr, found)));
  IStream* const stream = ::SHCreateMemStream(bytes, ::SizeofResource(nullptr, found));
  if (stream == nullptr) return nullptr;
  OwnedIcon icon;
  {
    const Decoders decoders;
    Gdiplus::Bitmap picture(stream);
    icon = Scaled(picture, size);
  }
  stream->Release();
  return icon;
}

OwnedBitmap BitmapFromFile(const std::string& path, COLORREF background) {
  const Decoders decoders;
  Gdiplus::Bitmap picture(WideOfPath(path).c_str());
  if (!CanBeShown(picture)) return nullptr;
  HBITMAP bitmap = nullptr;
  picture.GetHBITMAP({GetRValue(background), GetGValue(background), GetBValue(background)},
                     &bitmap);
  return OwnedBitmap(bitmap);
}

}  // namespace quillbox
