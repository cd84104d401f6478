#pragma once

#include <windows.h>

#include <ole2.h>

namespace activex {

struct Instance;

// The visible picture in the forms that others take it away in. Each function fills the medium
// with a handle that belongs to the caller, to be freed by ReleaseStgMedium, or fails and leaves
// the medium alone: with OLE_E_BLANK when the control has no area, with E_OUTOFMEMORY when the
// system has no room for the form.

// An enhanced metafile (TYMED_ENHMF); its frame is the control's extent.
HRESULT renderEnhMetafile(Instance& instance, STGMEDIUM& medium);
// An old metafile (TYMED_MFPICT), scalable, that tells the extent as its size.
HRESULT renderMetafilePict(Instance& instance, STGMEDIUM& medium);
// A bitmap of the screen's kind, one pixel for each of the control's (TYMED_GDI).
HRESULT renderBitmap(Instance& instance, STGMEDIUM& medium);
// The same as bytes (TYMED_HGLOBAL): a BITMAPINFOHEADER and 32 bits a pixel, rows from the bottom.
HRESULT renderDib(Instance& instance, STGMEDIUM& medium);

}  // namespace activex
