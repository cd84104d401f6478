#include <gtest/gtest.h>

#include <iterator>

#include "AdviseSink.h"
#include "DataFixture.h"
#include "gdiObjects.h"

namespace winetest {
namespace {

using host::Picture;

using DataObject = DataFixture;

// Where measures are converted and back, the far corner may be a pixel off, and with it the edges
// of cells and letters.
void expectAlike(const Picture& one, const Picture& other) {
  int different = 0, inked = 0;
  for (int y = 0; y < one.height; ++y) {
    for (int x = 0; x < one.width; ++x) {
      different += one.at(x, y) != other.at(x, y);
      inked += other.at(x, y) != 0xFFFFFF;
    }
  }
  EXPECT_LT(different, one.width * one.height / 50);
  EXPECT_GT(inked, one.width * one.height / 50);
}

TEST_F(DataObject, IsTheSectionAsAnEnhancedMetafile) {
  ASSERT_EQ(get(content(CF_ENHMETAFILE, TYMED_ENHMF)), S_OK);
  ASSERT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_ENHMF));
  EXPECT_EQ(medium_.pUnkForRelease, nullptr);
  ENHMETAHEADER header = {};
  ASSERT_NE(GetEnhMetaFileHeader(medium_.hEnhMetaFile, sizeof header, &header), 0U);
  // Within a pixel of the reference device.
  EXPECT_NEAR(static_cast<double>(header.rclFrame.right - header.rclFrame.left),
              static_cast<double>(extent().cx), 40);
  EXPECT_NEAR(static_cast<double>(header.rclFrame.bottom - header.rclFrame.top),
              static_cast<double>(extent().cy), 40);
  const Picture played = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    const RECT whole = {0, 0, kWidth, kHeight};
    EXPECT_TRUE(PlayEnhMetaFile(dc, medium_.hEnhMetaFile, &whole));
  });
  expectAlike(played, plain());
}

TEST_F(DataObject, IsTheSectionAsAMetafilePicture) {
  ASSERT_EQ(get(content(CF_METAFILEPICT, TYMED_MFPICT)), S_OK);
  ASSERT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_MFPICT));
  const auto* picture = static_cast<const METAFILEPICT*>(GlobalLock(medium_.hMetaFilePict));
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, extent().cx);
  EXPECT_EQ(picture->yExt, extent().cy);
  const Picture played = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    SetMapMode(dc, MM_ANISOTROPIC);
    SetViewportExtEx(dc, kWidth, kHeight, nullptr);
    EXPECT_TRUE(PlayMetaFile(dc, picture->hMF));
  });
  GlobalUnlock(medium_.hMetaFilePict);
  expectAlike(played, plain());
}

TEST_F(DataObject, IsTheSectionAsABitmap) {
  ASSERT_EQ(get(content(CF_BITMAP, TYMED_GDI)), S_OK);
  ASSERT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_GDI));
  BITMAP measures = {};
  ASSERT_NE(GetObjectW(medium_.hBitmap, sizeof measures, &measures), 0);
  EXPECT_EQ(measures.bmWidth, kWidth);
  EXPECT_EQ(measures.bmHeight, kHeight);
  const Picture copied = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(source, medium_.hBitmap);
    EXPECT_TRUE(BitBlt(dc, 0, 0, kWidth, kHeight, source, 0, 0, SRCCOPY));
    SelectObject(source, before);
    DeleteDC(source);
  });
  EXPECT_TRUE(copied == plain());
}

TEST_F(DataObject, IsTheSectionAsBytesOfABitmap) {
  ASSERT_EQ(get(content(CF_DIB, TYMED_HGLOBAL)), S_OK);
  ASSERT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_HGLOBAL));
  const auto* info = static_cast<const BITMAPINFO*>(GlobalLock(medium_.hGlobal));
  ASSERT_NE(info, nullptr);
  const BITMAPINFOHEADER& header = info->bmiHeader;
  EXPECT_EQ(header.biSize, sizeof header);
  EXPECT_EQ(header.biWidth, kWidth);
  EXPECT_EQ(header.biHeight, kHeight);  // rows from the bottom
  EXPECT_GE(GlobalSize(medium_.hGlobal), sizeof header + header.biSizeImage);
  const Picture copied = host::takePicture(kWidth, kHeight, [&](HDC dc) {
    SetDIBitsToDevice(dc, 0, 0, kWidth, kHeight, 0, 0, 0, kHeight, &header + 1, info,
                      DIB_RGB_COLORS);
  });
  GlobalUnlock(medium_.hGlobal);
  EXPECT_TRUE(copied == plain());
}

TEST_F(DataObject, TellsEveryFormItHas) {
  ComOwner<IEnumFORMATETC> list;
  ASSERT_EQ(data_->EnumFormatEtc(DATADIR_GET, list.receive()), S_OK);
  FORMATETC formats[8] = {};
  ULONG count = 0;
  EXPECT_EQ(list->Next(8, formats, &count), S_FALSE);
  ASSERT_EQ(count, std::size(kForms));
  for (ULONG i = 0; i < count; ++i) {
    EXPECT_EQ(formats[i].cfFormat, kForms[i].format) << kForms[i].name;
    EXPECT_EQ(formats[i].tymed, kForms[i].medium) << kForms[i].name;
    EXPECT_EQ(data_->QueryGetData(&formats[i]), S_OK) << kForms[i].name;
    EXPECT_EQ(get(formats[i]), S_OK) << kForms[i].name;
  }
  EXPECT_EQ(list->Next(1, formats, nullptr), S_FALSE);
  EXPECT_EQ(list->Reset(), S_OK);
  EXPECT_EQ(list->Skip(3), S_OK);
  ComOwner<IEnumFORMATETC> clone;
  ASSERT_EQ(list->Clone(clone.receive()), S_OK);
  EXPECT_EQ(list->Skip(2), S_FALSE);
  EXPECT_EQ(clone->Next(1, formats, nullptr), S_OK);  // the clone goes its own way
  EXPECT_EQ(formats[0].cfFormat, CF_BITMAP);
  EXPECT_EQ(clone->Reset(), S_OK);
  EXPECT_EQ(clone->Next(2, formats, nullptr), E_INVALIDARG);
  EXPECT_EQ(clone->Next(2, nullptr, &count), E_POINTER);
  IEnumFORMATETC* none = list.get();
  EXPECT_EQ(data_->EnumFormatEtc(DATADIR_SET, &none), E_NOTIMPL);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(data_->EnumFormatEtc(77, &none), E_INVALIDARG);
  EXPECT_EQ(data_->EnumFormatEtc(DATADIR_GET, nullptr), E_POINTER);
}

TEST_F(DataObject, RefusesOtherRequestsWithTheirReason) {
  const struct {
    FORMATETC format;
    HRESULT answer;
  } rows[] = {
      {{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_FORMATETC},
      {{0, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_FORMATETC},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_ICON, -1, TYMED_ENHMF}, DV_E_DVASPECT},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_THUMBNAIL, -1, TYMED_ENHMF}, DV_E_DVASPECT},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, 3, TYMED_ENHMF}, DV_E_LINDEX},
      {{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_TYMED},
      {{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI}, DV_E_TYMED},
      {{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, DV_E_TYMED},
      {{CF_DIB, nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM}, DV_E_TYMED},
  };
  for (const auto& row : rows) {
    FORMATETC format = row.format, same = {};
    EXPECT_EQ(data_->QueryGetData(&format), row.answer) << row.answer;
    EXPECT_EQ(get(format), row.answer) << row.answer;
    EXPECT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_NULL)) << row.answer;
    EXPECT_EQ(data_->GetDataHere(&format, &medium_), row.answer) << row.answer;
    EXPECT_EQ(data_->GetCanonicalFormatEtc(&format, &same), row.answer) << row.answer;
  }
}

TEST_F(DataObject, TakesAnyOfTheMediaThatAreOffered) {
  EXPECT_EQ(get(content(CF_DIB, TYMED_HGLOBAL | TYMED_ISTREAM)), S_OK);
  EXPECT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_HGLOBAL));
}

TEST_F(DataObject, AnswersTheRestOfTheProtocol) {
  FORMATETC format = content(CF_DIB, TYMED_HGLOBAL), same = {};
  STGMEDIUM medium = {};
  EXPECT_EQ(data_->GetData(nullptr, &medium), E_POINTER);
  EXPECT_EQ(data_->GetData(&format, nullptr), E_POINTER);
  EXPECT_EQ(data_->QueryGetData(nullptr), E_POINTER);
  EXPECT_EQ(data_->GetDataHere(nullptr, &medium), E_POINTER);
  EXPECT_EQ(data_->GetDataHere(&format, nullptr), E_POINTER);
  EXPECT_EQ(data_->GetDataHere(&format, &medium), DV_E_TYMED);
  EXPECT_EQ(data_->SetData(&format, &medium, FALSE), E_NOTIMPL);
  EXPECT_EQ(data_->GetCanonicalFormatEtc(&format, nullptr), E_POINTER);
  EXPECT_EQ(data_->GetCanonicalFormatEtc(&format, &same), DATA_S_SAMEFORMATETC);
  DVTARGETDEVICE device = {};
  format.ptd = &device;
  EXPECT_EQ(data_->GetCanonicalFormatEtc(&format, &same), S_OK);
  EXPECT_EQ(same.ptd, nullptr);
  EXPECT_EQ(same.cfFormat, CF_DIB);
}

TEST_F(DataObject, OfAControlWithoutAreaIsBlank) {
  host::setExtent(object_, 0, 0);
  for (const auto& form : kForms) {
    EXPECT_EQ(get(content(form.format, form.medium)), OLE_E_BLANK) << form.name;
    EXPECT_EQ(medium_.tymed, static_cast<DWORD>(TYMED_NULL)) << form.name;
  }
  SIZEL absurd = {2147483647, 2147483647};
  ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &absurd), S_OK);
  for (const auto& form : kForms) {
    EXPECT_TRUE(FAILED(get(content(form.format, form.medium)))) << form.name;
  }
  host::setExtent(object_, kWidth, kHeight);
  EXPECT_EQ(get(content(CF_BITMAP, TYMED_GDI)), S_OK);
}

TEST_F(DataObject, LeavesNoGdiObjectsBehind) {
  const HPEN probe = CreatePen(PS_SOLID, 1, 0);
  const int withProbe = gdiObjects();
  DeleteObject(probe);
  ASSERT_EQ(gdiObjects(), withProbe - 1);  // the count counts

  for (const auto& form : kForms) {
    int settled = 0;
    for (int round = 0; round < 40; ++round) {
      ASSERT_EQ(get(content(form.format, form.medium)), S_OK);
      ReleaseStgMedium(&medium_);
      if (round == 4) settled = gdiObjects();  // the first rounds fill the system's own stores
    }
    EXPECT_LE(gdiObjects(), settled) << form.name;
  }
  AdviseSink sink;
  FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
  DWORD connection = 0;
  ASSERT_EQ(data_->DAdvise(&bitmap, 0, &sink, &connection), S_OK);
  int settled = 0;
  for (int round = 0; round < 40; ++round) {
    object_.call(L"ReDraw");
    if (round == 4) settled = gdiObjects();
  }
  EXPECT_EQ(sink.formats.size(), 40U);
  EXPECT_LE(gdiObjects(), settled);
  EXPECT_EQ(data_->DUnadvise(connection), S_OK);
}

TEST(DataObjectIdentity, IsOfTheSameIdentityAndLetsTheLibraryGo) {
  BareControl control;
  AdviseSink sink;
  ComOwner<IEnumFORMATETC> list;
  {
    ComOwner<IDataObject> data;
    ComOwner<IUnknown> identity;
    ASSERT_NE(control.as(data), nullptr);
    ASSERT_EQ(data->QueryInterface(IID_IUnknown, identity.receiveAny()), S_OK);
    EXPECT_EQ(identity.get(), control.identity());
    FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
    DWORD connection = 0;
    ASSERT_EQ(data->DAdvise(&bitmap, ADVF_NODATA, &sink, &connection), S_OK);
    ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, list.receive()), S_OK);
  }
  EXPECT_EQ(control.release(), 0U);  // with a sink still connected
  EXPECT_EQ(sink.references, 1U);
  EXPECT_EQ(control.library().canUnloadNow(), S_FALSE);  // the list is the library's as well
  EXPECT_EQ(list.release(), 0U);
  EXPECT_EQ(control.library().canUnloadNow(), S_OK);
}

}  // namespace
}  // namespace winetest
