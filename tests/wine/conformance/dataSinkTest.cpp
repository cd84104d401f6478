#include "AdviseSink.h"
#include "DataFixture.h"

namespace winetest {
namespace {

using DataSink = DataFixture;

TEST_F(DataSink, IsSentWhenThePictureChanges) {
  AdviseSink sink;
  FORMATETC metafile = content(CF_ENHMETAFILE, TYMED_ENHMF);
  FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
  DWORD first = 0, second = 0;
  ASSERT_EQ(data_->DAdvise(&metafile, 0, &sink, &first), S_OK);
  ASSERT_EQ(data_->DAdvise(&bitmap, ADVF_NODATA, &sink, &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_TRUE(sink.formats.empty());
  object_.call(L"ReDraw");
  ASSERT_EQ(sink.formats.size(), 2U);
  for (int i = 0; i < 2; ++i) {
    const bool isMetafile = sink.formats[static_cast<std::size_t>(i)] == CF_ENHMETAFILE;
    const DWORD sent = isMetafile ? TYMED_ENHMF : TYMED_NULL;
    EXPECT_EQ(sink.media[static_cast<std::size_t>(i)], sent);
  }
  EXPECT_NE(sink.formats[0], sink.formats[1]);
  ComOwner<IEnumSTATDATA> connections;
  EXPECT_EQ(data_->EnumDAdvise(connections.receive()), S_OK);
  EXPECT_TRUE(connections);
  connections.reset();
  EXPECT_EQ(data_->DUnadvise(first), S_OK);
  EXPECT_EQ(data_->DUnadvise(first), OLE_E_NOCONNECTION);
  object_.call(L"ReDraw");
  ASSERT_EQ(sink.formats.size(), 3U);
  EXPECT_EQ(sink.formats[2], CF_BITMAP);
  EXPECT_EQ(data_->DUnadvise(second), S_OK);
  object_.call(L"ReDraw");
  EXPECT_EQ(sink.formats.size(), 3U);
  EXPECT_EQ(sink.references, 1U);
}

// Nobody has it drawn meanwhile.
TEST_F(DataSink, IsSentAnotherExtent) {
  AdviseSink sink;
  FORMATETC metafile = content(CF_ENHMETAFILE, TYMED_ENHMF);
  DWORD connection = 0;
  ASSERT_EQ(data_->DAdvise(&metafile, ADVF_NODATA, &sink, &connection), S_OK);
  SIZEL other = extent();
  ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &other), S_OK);  // the same
  EXPECT_TRUE(sink.formats.empty());
  other.cx += 1000;
  ASSERT_EQ(control_.ole()->SetExtent(DVASPECT_CONTENT, &other), S_OK);
  EXPECT_EQ(sink.formats.size(), 1U);
  EXPECT_EQ(data_->DUnadvise(connection), S_OK);
}

TEST_F(DataSink, IsSentOnceToWhomOnceIsEnough) {
  AdviseSink sink;
  FORMATETC all = {0, nullptr, static_cast<DWORD>(-1), -1, static_cast<DWORD>(-1)};
  DWORD connection = 0;
  ASSERT_EQ(data_->DAdvise(&all, ADVF_NODATA | ADVF_ONLYONCE, &sink, &connection), S_OK);
  object_.call(L"ReDraw");
  object_.call(L"ReDraw");
  EXPECT_EQ(sink.formats.size(), 1U);
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(DataSink, RefusesSinksThatItCannotServe) {
  AdviseSink sink;
  FORMATETC text = content(CF_TEXT, TYMED_HGLOBAL), bitmap = content(CF_BITMAP, TYMED_GDI);
  DWORD connection = 5;
  EXPECT_EQ(data_->DUnadvise(1), OLE_E_NOCONNECTION);
  EXPECT_EQ(data_->DAdvise(&text, 0, &sink, &connection), DV_E_FORMATETC);
  EXPECT_EQ(connection, 0U);
  EXPECT_EQ(data_->DAdvise(&bitmap, 0, nullptr, &connection), E_POINTER);
  EXPECT_EQ(data_->DAdvise(nullptr, 0, &sink, &connection), E_POINTER);
  EXPECT_EQ(data_->DAdvise(&bitmap, 0, &sink, nullptr), E_POINTER);
  EXPECT_EQ(data_->EnumDAdvise(nullptr), E_POINTER);
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(DataSink, IsPrimedWhereItAsksForIt) {
  AdviseSink sink;
  FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
  DWORD connection = 0;
  ASSERT_EQ(data_->DAdvise(&bitmap, ADVF_PRIMEFIRST, &sink, &connection), S_OK);
  ASSERT_EQ(sink.media.size(), 1U);
  EXPECT_EQ(sink.media[0], static_cast<DWORD>(TYMED_GDI));
  EXPECT_EQ(data_->DUnadvise(connection), S_OK);
  ASSERT_EQ(
      data_->DAdvise(&bitmap, ADVF_PRIMEFIRST | ADVF_NODATA | ADVF_ONLYONCE, &sink, &connection),
      S_OK);
  ASSERT_EQ(sink.media.size(), 2U);
  EXPECT_EQ(sink.media[1], static_cast<DWORD>(TYMED_NULL));
  object_.call(L"ReDraw");
  EXPECT_EQ(sink.media.size(), 2U);
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(DataSink, GetsTheDataOnceMoreAtTheEnd) {
  AdviseSink last, other;
  FORMATETC metafile = content(CF_ENHMETAFILE, TYMED_ENHMF);
  DWORD first = 0, second = 0;
  ASSERT_EQ(data_->DAdvise(&metafile, ADVF_NODATA | ADVF_DATAONSTOP, &last, &first), S_OK);
  ASSERT_EQ(data_->DAdvise(&metafile, ADVF_NODATA, &other, &second), S_OK);
  object_.call(L"ReDraw");
  EXPECT_EQ(control_.ole()->Close(OLECLOSE_NOSAVE), S_OK);
  ASSERT_EQ(last.media.size(), 2U);
  EXPECT_EQ(last.media[0], static_cast<DWORD>(TYMED_NULL));
  EXPECT_EQ(last.media[1], static_cast<DWORD>(TYMED_ENHMF));
  EXPECT_EQ(other.media.size(), 1U);
  EXPECT_EQ(control_.ole()->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(last.media.size(), 2U);
  EXPECT_EQ(data_->DUnadvise(first), S_OK);
  EXPECT_EQ(data_->DUnadvise(second), S_OK);
}

TEST_F(DataSink, IsListedWithWhatItAskedFor) {
  AdviseSink sink;
  FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
  ComOwner<IEnumSTATDATA> list;
  ASSERT_EQ(data_->EnumDAdvise(list.receive()), S_OK);
  STATDATA found = {};
  EXPECT_EQ(list->Next(1, &found, nullptr), S_FALSE);
  DWORD connection = 0;
  ASSERT_EQ(data_->DAdvise(&bitmap, ADVF_NODATA, &sink, &connection), S_OK);
  ASSERT_EQ(data_->EnumDAdvise(list.receive()), S_OK);
  ASSERT_EQ(list->Next(1, &found, nullptr), S_OK);
  EXPECT_EQ(found.formatetc.cfFormat, CF_BITMAP);
  EXPECT_EQ(found.advf, static_cast<DWORD>(ADVF_NODATA));
  EXPECT_EQ(found.dwConnection, connection);
  EXPECT_EQ(found.pAdvSink, &sink);
  found.pAdvSink->Release();
  list.reset();
  EXPECT_EQ(data_->DUnadvise(connection), S_OK);
  EXPECT_EQ(sink.references, 1U);
}

// While the news goes round, sinks part, connect others and have it drawn again.
TEST_F(DataSink, MayChangeTheConnectionsMeanwhile) {
  AdviseSink first, second;
  FORMATETC bitmap = content(CF_BITMAP, TYMED_GDI);
  DWORD one = 0, other = 0, third = 0;
  ASSERT_EQ(data_->DAdvise(&bitmap, ADVF_NODATA, &first, &one), S_OK);
  ASSERT_EQ(data_->DAdvise(&bitmap, ADVF_NODATA, &second, &other), S_OK);
  first.meanwhile = [&] {
    if (third != 0) return;
    EXPECT_EQ(data_->DUnadvise(one), S_OK);
    EXPECT_EQ(data_->DAdvise(&bitmap, ADVF_NODATA, &first, &third), S_OK);
    plain();
  };
  object_.call(L"ReDraw");
  EXPECT_EQ(first.formats.size(), 1U);
  EXPECT_EQ(second.formats.size(), 1U);
  object_.call(L"ReDraw");
  EXPECT_EQ(first.formats.size(), 2U);
  EXPECT_EQ(data_->DUnadvise(other), S_OK);
  EXPECT_EQ(data_->DUnadvise(third), S_OK);
  EXPECT_EQ(first.references, 1U);
  EXPECT_EQ(second.references, 1U);
}

}  // namespace
}  // namespace winetest
