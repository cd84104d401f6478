#include "AdviseSink.h"
#include "DrawnControl.h"

namespace winetest {
namespace {

using host::Picture;

class ViewSink : public DrawnControl {
 protected:
  HRESULT advise(DWORD flags, DWORD aspects = DVASPECT_CONTENT) {
    return control_.view()->SetAdvise(aspects, flags, &sink_);
  }
  ~ViewSink() override { control_.view()->SetAdvise(DVASPECT_CONTENT, 0, nullptr); }

  AdviseSink sink_;
};

TEST_F(ViewSink, HearsOfEveryChangeUntilItIsTakenAway) {
  ASSERT_EQ(advise(0), S_OK);
  EXPECT_EQ(sink_.views, 0);
  object_.call(L"ReDraw");
  EXPECT_EQ(sink_.views, 1);
  EXPECT_EQ(sink_.lastAspect, static_cast<DWORD>(DVASPECT_CONTENT));
  EXPECT_EQ(sink_.lastIndex, -1);
  host::setExtent(object_, kWidth + 10, kHeight);
  EXPECT_EQ(sink_.views, 2);
  DWORD aspects = 0, flags = 77;
  IAdviseSink* told = nullptr;
  ASSERT_EQ(control_.view()->GetAdvise(&aspects, &flags, &told), S_OK);
  EXPECT_EQ(told, &sink_);
  told->Release();
  EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
  EXPECT_EQ(flags, 0U);
  EXPECT_EQ(control_.view()->GetAdvise(nullptr, nullptr, nullptr), S_OK);
  ASSERT_EQ(control_.view()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
  EXPECT_EQ(sink_.references, 1U);
  const int before = sink_.views;
  object_.call(L"ReDraw");
  EXPECT_EQ(sink_.views, before);
}

TEST_F(ViewSink, HearsAtOnceOrOnlyOnce) {
  ASSERT_EQ(advise(ADVF_PRIMEFIRST), S_OK);
  EXPECT_EQ(sink_.views, 1);
  ASSERT_EQ(advise(ADVF_ONLYONCE), S_OK);
  EXPECT_EQ(sink_.views, 1);
  object_.call(L"ReDraw");
  object_.call(L"ReDraw");
  EXPECT_EQ(sink_.views, 2);
  EXPECT_EQ(sink_.references, 1U);
  IAdviseSink* told = &sink_;
  EXPECT_EQ(control_.view()->GetAdvise(nullptr, nullptr, &told), S_OK);
  EXPECT_EQ(told, nullptr);
  ASSERT_EQ(advise(ADVF_ONLYONCE | ADVF_PRIMEFIRST), S_OK);
  EXPECT_EQ(sink_.views, 3);
  object_.call(L"ReDraw");
  EXPECT_EQ(sink_.views, 3);
}

TEST_F(ViewSink, ForOtherAspectsIsRefused) {
  EXPECT_EQ(advise(0, DVASPECT_ICON), DV_E_DVASPECT);
  EXPECT_EQ(sink_.references, 1U);
  EXPECT_EQ(advise(ADVF_PRIMEFIRST, DVASPECT_CONTENT | DVASPECT_ICON), S_OK);
  EXPECT_EQ(sink_.views, 1);
}

TEST_F(ViewSink, MayDrawAndLeaveMeanwhile) {
  int drawn = 0;
  sink_.meanwhile = [&] {
    plain();
    ++drawn;
    control_.view()->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
  };
  ASSERT_EQ(advise(0), S_OK);
  object_.call(L"ReDraw");
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(sink_.references, 1U);
}

TEST_F(ViewSink, SeesTrueColours) {
  LOGPALETTE* palette = reinterpret_cast<LOGPALETTE*>(&sink_);
  EXPECT_EQ(control_.view()->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &palette),
            S_FALSE);
  EXPECT_EQ(palette, nullptr);
  EXPECT_EQ(control_.view()->GetColorSet(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, &palette),
            DV_E_DVASPECT);
  EXPECT_EQ(control_.view()->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
            E_POINTER);
}

// Bands of one page must not come from different time steps.
TEST_F(ViewSink, SeesAFrozenViewStandStill) {
  const Picture before = plain();
  DWORD key = 0, again = 0;
  ASSERT_EQ(control_.view()->Freeze(DVASPECT_CONTENT, -1, nullptr, &key), S_OK);
  EXPECT_EQ(control_.view()->Freeze(DVASPECT_CONTENT, -1, nullptr, &again), VIEW_S_ALREADY_FROZEN);
  EXPECT_EQ(again, key);
  object_.put(L"DrawProfile", true);
  object_.call(L"ReDraw");
  EXPECT_TRUE(plain() == before);
  EXPECT_EQ(control_.view()->Unfreeze(key + 1), OLE_E_NOCONNECTION);
  EXPECT_EQ(control_.view()->Unfreeze(key), S_OK);
  EXPECT_EQ(control_.view()->Unfreeze(key), OLE_E_NOCONNECTION);
  EXPECT_FALSE(plain() == before);
  EXPECT_EQ(control_.view()->Freeze(DVASPECT_ICON, -1, nullptr, &key), DV_E_DVASPECT);
  EXPECT_EQ(control_.view()->Freeze(DVASPECT_CONTENT, -1, nullptr, nullptr), E_POINTER);
  host::setExtent(object_, 0, 0);
  EXPECT_EQ(control_.view()->Freeze(DVASPECT_CONTENT, -1, nullptr, &key), OLE_E_BLANK);
}

}  // namespace
}  // namespace winetest
