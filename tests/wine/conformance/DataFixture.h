#pragma once

#include "DrawnControl.h"
#include "Picture.h"

namespace winetest {

using host::ComOwner;

inline constexpr struct {
  const char* name;
  CLIPFORMAT format;
  DWORD medium;
} kForms[] = {
    {"enhanced metafile", CF_ENHMETAFILE, TYMED_ENHMF},
    {"metafile picture", CF_METAFILEPICT, TYMED_MFPICT},
    {"bytes of a bitmap", CF_DIB, TYMED_HGLOBAL},
    {"bitmap", CF_BITMAP, TYMED_GDI},
};

inline FORMATETC content(CLIPFORMAT format, DWORD medium) {
  return {format, nullptr, DVASPECT_CONTENT, -1, medium};
}

// The picture of a drawn control as data.
class DataFixture : public DrawnControl {
 protected:
  DataFixture() { control_.as(data_); }
  ~DataFixture() override { ReleaseStgMedium(&medium_); }

  HRESULT get(FORMATETC format) {
    ReleaseStgMedium(&medium_);
    return data_->GetData(&format, &medium_);
  }
  SIZEL extent() {
    SIZEL extent = {};
    control_.ole()->GetExtent(DVASPECT_CONTENT, &extent);
    return extent;
  }

  ComOwner<IDataObject> data_;
  STGMEDIUM medium_ = {};
};

}  // namespace winetest
