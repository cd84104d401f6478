#include <olectl.h>

#include <algorithm>

#include "Picture.h"
#include "Sited.h"

namespace winetest {
namespace {

using host::Picture;
using host::Value;

// A control on a form that is being designed: it shows its surroundings, and so what it makes of
// the ambient properties.
class Ambient : public Sited {
 protected:
  static constexpr int kWidth = 200, kHeight = 100;
  static constexpr uint32_t kBack = 0x102030, kFore = 0xC0D0E0;  // 0x00RRGGBB

  Ambient() {
    site_.hasAmbients = true;
    site_.ambients = {{DISPID_AMBIENT_USERMODE, Value(false)},
                      {DISPID_AMBIENT_BACKCOLOR, Value(0x302010)},
                      {DISPID_AMBIENT_FORECOLOR, Value(0xE0D0C0)},
                      {DISPID_AMBIENT_DISPLAYNAME, Value(L"KelvaneCtl1")}};
    const HDC screen = GetDC(nullptr);
    SIZEL size = {MulDiv(kWidth, 2540, GetDeviceCaps(screen, LOGPIXELSX)),
                  MulDiv(kHeight, 2540, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    control_.ole()->SetExtent(DVASPECT_CONTENT, &size);
  }

  Picture seen() {
    return host::takePicture(kWidth, kHeight, [&](HDC dc) {
      const RECTL bounds = {0, 0, kWidth, kHeight};
      EXPECT_EQ(control_.view()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                      nullptr, nullptr, 0),
                S_OK);
    });
  }
  static int pixels(const Picture& picture, uint32_t colour) {
    return static_cast<int>(std::count(picture.pixels.begin(), picture.pixels.end(), colour));
  }
  static uint32_t systemColour(int index) {
    const COLORREF colour = GetSysColor(index);
    return RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
  }
  // The background and the border.
  void expectColours(uint32_t back, uint32_t fore) {
    const Picture picture = seen();
    EXPECT_EQ(picture.at(3, 3), back);
    EXPECT_EQ(picture.at(0, 0), fore);
    EXPECT_EQ(picture.at(kWidth - 1, kHeight - 1), fore);
  }
  // All white, as a control that runs and has drawn nothing.
  static Picture blank() {
    return host::takePicture(kWidth, kHeight, [](HDC) {});
  }
};

TEST_F(Ambient, ColoursAreThoseOfTheForm) {
  expectColours(kBack, kFore);
  site_.ambients[DISPID_AMBIENT_BACKCOLOR] =
      Value(static_cast<int>(0x80000000U | COLOR_INFOBK));  // a colour of the system's
  expectColours(systemColour(COLOR_INFOBK), kFore);
  Value unsignedColour;
  V_VT(&unsignedColour.variant()) = VT_UI4;
  V_UI4(&unsignedColour.variant()) = 0x80000000U | COLOR_INFOTEXT;
  site_.ambients[DISPID_AMBIENT_FORECOLOR] = unsignedColour;
  expectColours(systemColour(COLOR_INFOBK), systemColour(COLOR_INFOTEXT));
}

TEST_F(Ambient, ColoursFallBackToThoseOfWindows) {
  const uint32_t back = systemColour(COLOR_WINDOW), fore = systemColour(COLOR_WINDOWTEXT);
  site_.ambients.erase(DISPID_AMBIENT_BACKCOLOR);
  expectColours(back, kFore);
  for (const Value& wrong : {Value(L"red"), Value(1e12), Value(0x7F00FFFF), Value()}) {
    site_.ambients[DISPID_AMBIENT_BACKCOLOR] = wrong;
    site_.ambients[DISPID_AMBIENT_FORECOLOR] = wrong;
    expectColours(back, fore);
  }
}

TEST_F(Ambient, FontIsThatOfTheForm) {
  const int plain = pixels(seen(), kFore);
  FONTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.lpstrName = const_cast<LPOLESTR>(L"Tahoma");
  description.cySize.Lo = 240000;  // 24 points
  description.sWeight = FW_BOLD;
  ComOwner<IFontDisp> font;
  ASSERT_EQ(OleCreateFontIndirect(&description, IID_IFontDisp, font.receiveAny()), S_OK);
  Value& value = site_.ambients[DISPID_AMBIENT_FONT];
  V_VT(&value.variant()) = VT_DISPATCH;
  V_DISPATCH(&value.variant()) = reinterpret_cast<IDispatch*>(font.get());
  font->AddRef();
  EXPECT_GT(pixels(seen(), kFore), 2 * plain - 2 * (kWidth + kHeight));
  for (const Value& wrong : {Value(L"Tahoma"), Value(7)}) {
    site_.ambients[DISPID_AMBIENT_FONT] = wrong;
    EXPECT_EQ(pixels(seen(), kFore), plain);
  }
}

TEST_F(Ambient, FontThatIsNoFontIsNotUsed) {
  const Picture plain = seen();
  Value& value = site_.ambients[DISPID_AMBIENT_FONT];
  V_VT(&value.variant()) = VT_UNKNOWN;
  V_UNKNOWN(&value.variant()) = control_.identity();
  control_.identity()->AddRef();
  EXPECT_TRUE(seen() == plain);
  V_UNKNOWN(&value.variant()) = nullptr;
  control_.identity()->Release();
  EXPECT_TRUE(seen() == plain);
}

TEST_F(Ambient, DisplayNameIsShown) {
  const Picture named = seen();
  site_.ambients[DISPID_AMBIENT_DISPLAYNAME] = Value(L"another");
  const Picture other = seen();
  EXPECT_FALSE(other == named);
  site_.ambients[DISPID_AMBIENT_DISPLAYNAME] = Value(L"Kelvane section control");
  const Picture spelledOut = seen();
  for (const Value& wrong : {Value(), Value(L"")}) {
    site_.ambients[DISPID_AMBIENT_DISPLAYNAME] = wrong;
    EXPECT_TRUE(seen() == spelledOut);
  }
  site_.ambients.erase(DISPID_AMBIENT_DISPLAYNAME);
  EXPECT_TRUE(seen() == spelledOut);
}

// A text that ends in neutral signs shows which way it runs.
TEST_F(Ambient, LocaleTellsWhichWayTextsRun) {
  site_.ambients[DISPID_AMBIENT_DISPLAYNAME] = Value(L"Section (1)!");
  const auto in = [&](int locale) {
    site_.ambients[DISPID_AMBIENT_LOCALEID] = Value(locale);
    return seen();
  };
  const Picture english = in(0x0409);
  EXPECT_FALSE(in(0x040D) == english);  // Hebrew
  EXPECT_TRUE(in(0x0407) == english);   // German
  EXPECT_TRUE(in(0x7FFF0000) == english);
  site_.ambients[DISPID_AMBIENT_LOCALEID] = Value(L"here");
  EXPECT_TRUE(seen() == english);
}

TEST_F(Ambient, UserModeIsRunModeWhereItIsNotTold) {
  EXPECT_FALSE(seen() == blank());
  site_.ambients[DISPID_AMBIENT_USERMODE] = Value(true);
  EXPECT_TRUE(seen() == blank());
  for (const Value& wrong : {Value(), Value(L"design")}) {
    site_.ambients[DISPID_AMBIENT_USERMODE] = wrong;
    EXPECT_TRUE(seen() == blank());
  }
  site_.ambients.erase(DISPID_AMBIENT_USERMODE);
  EXPECT_TRUE(seen() == blank());
  site_.ambients[DISPID_AMBIENT_USERMODE] = Value(0);  // a number will do
  EXPECT_FALSE(seen() == blank());
}

TEST_F(Ambient, PropertiesMayAllFailOrNotBeThere) {
  site_.ambientAnswer = E_FAIL;
  EXPECT_TRUE(seen() == blank());
  site_.ambientAnswer = DISP_E_EXCEPTION;
  EXPECT_TRUE(seen() == blank());
  site_.ambientAnswer = S_OK;
  EXPECT_FALSE(seen() == blank());
  site_.hasAmbients = false;
  EXPECT_TRUE(seen() == blank());
  EXPECT_EQ(control_.ole()->SetClientSite(nullptr), S_OK);
  EXPECT_TRUE(seen() == blank());
}

// The user's click has no effect, what the host's program asks for has.
TEST_F(Ambient, UiThatIsDeadTakesNoClicks) {
  site_.ambients[DISPID_AMBIENT_UIDEAD] = Value(true);
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(site_.count("OnUIActivate"), 0);
  site_.ambients[DISPID_AMBIENT_UIDEAD] = Value(L"dead");
  SendMessageW(window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ(site_.count("OnUIActivate"), 1);
}

TEST_F(Ambient, ChangesAreShownAndAnnounced) {
  ComOwner<IOleControl> control;
  AdviseSink sink;
  ASSERT_NE(control_.as(control), nullptr);
  ASSERT_EQ(doVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
  ASSERT_EQ(control_.view()->SetAdvise(DVASPECT_CONTENT, 0, &sink), S_OK);
  UpdateWindow(window());
  int told = 0;
  for (const DISPID id : {DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_USERMODE, DISPID_UNKNOWN}) {
    const int asked = site_.count("ambient property");
    EXPECT_EQ(control->OnAmbientPropertyChange(id), S_OK) << id;
    EXPECT_GT(site_.count("ambient property"), asked) << id;  // painted anew
    EXPECT_EQ(sink.views, ++told) << id;
    EXPECT_FALSE(GetUpdateRect(window(), nullptr, FALSE)) << id;
  }
  EXPECT_EQ(control_.view()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
}

}  // namespace
}  // namespace winetest
