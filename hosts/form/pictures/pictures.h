#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "Dispatch.h"
#include "Picture.h"
#include "model/pictureSize.h"

namespace form {

// All controls of a program share what is open, so a further control, in no window, draws the same
// section anew at any size. host::HostError when it cannot.
host::Picture pictureAt(const PictureSize& size);
// The same as an enhanced metafile: the bytes of its file.
std::vector<std::byte> metafileAt(const PictureSize& size);

// Writes the picture at that size; the name's ending tells the kind: .png or .emf. host::HostError
// when it is another one or cannot be written; an old file of that name is kept then.
void savePictureAt(const PictureSize& size, const std::wstring& path);

// Puts the control's picture on the clipboard, as a metafile and as a bitmap. host::HostError when
// it cannot.
void copyPicture(HWND owner, host::Object& control);

// Draws the control's picture in the middle of a page, as large as it can be.
void drawOnPage(HDC dc, const PictureSize& page, host::Object& control, const PictureSize& view);

}  // namespace form
