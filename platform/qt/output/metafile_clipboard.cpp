#ifdef _WIN32

#include "platform/qt/output/metafile_clipboard.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstring>

namespace velorix {
namespace {

constexpr UINT MovableZeroed = GMEM_MOVEABLE | GMEM_ZEROINIT;
constexpr long Width = 24000, Height = 18000;  // hundredths of a millimetre

/// A block of the system's memory with a copy of the bytes, which the clipboard takes over.
HGLOBAL Block(const void* bytes, std::size_t size) {
  const HGLOBAL block = GlobalAlloc(MovableZeroed, size);
  if (void* const at = block ? GlobalLock(block) : nullptr) {
    std::memcpy(at, bytes, size);
    GlobalUnlock(block);
  }
  return block;
}

/// What the clipboard does not take is given back.
void Put(UINT format, HGLOBAL block) {
  if (block && !SetClipboardData(format, block)) GlobalFree(block);
}

}  // namespace

bool PutOnClipboard(const std::string& metafile, const std::string& svg) {
  METAFILEPICT picture = {MM_ANISOTROPIC, Width, Height, nullptr};
  picture.hMF = SetMetaFileBitsEx(static_cast<UINT>(metafile.size()),
                                  reinterpret_cast<const BYTE*>(metafile.data()));
  if (!picture.hMF) return false;
  if (!OpenClipboard(nullptr)) {
    DeleteMetaFile(picture.hMF);
    return false;
  }
  EmptyClipboard();
  Put(CF_METAFILEPICT, Block(&picture, sizeof picture));
  Put(RegisterClipboardFormatW(L"image/svg+xml"), Block(svg.data(), svg.size()));
  CloseClipboard();
  return true;
}

}  // namespace velorix

#endif
