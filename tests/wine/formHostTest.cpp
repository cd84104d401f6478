#include <gtest/gtest.h>
#include <ole2.h>

#include <algorithm>

#include "ComOwner.h"
#include "Form.h"
#include "childProcess.h"
#include "gdiObjects.h"
#include "library.h"
#include "support/TempFolder.h"
#include "support/sampleSets.h"

namespace winetest {
namespace {

using host::ComOwner;
using host::Form;

class FormHost : public testing::Test {
 protected:
  FormHost() { support::makeTinySet(folder_.file("tiny.nc")); }

  std::wstring file(const std::string& name) const { return host::wide(folder_.file(name)); }
  void draw(Form& form) {
    form.control().call(L"NcFile", {file("tiny.nc")});
    form.control().call(L"NewSection");
    form.control().call(L"AddSection", {354.5, -1});
    form.control().call(L"AddSection", {354.5, 0.4});
    form.control().call(L"EndSection");
    form.control().call(L"Draw");
  }
  static HWND windowOf(Form& form) {
    ComOwner<IOleWindow> place;
    HWND window = nullptr;
    form.control().dispatch()->QueryInterface(IID_IOleWindow, place.receiveAny());
    place->GetWindow(&window);
    return window;
  }
  static HRESULT doVerb(Form& form, LONG verb) {
    ComOwner<IOleObject> object;
    ComOwner<IOleClientSite> site;
    form.control().dispatch()->QueryInterface(IID_IOleObject, object.receiveAny());
    object->GetClientSite(site.receive());
    return object->DoVerb(verb, nullptr, site.get(), 0, form.window(), nullptr);
  }

  support::TempFolder folder_;
};

TEST_F(FormHost, HoldsTheControlInAWindowThatFillsTheForm) {
  Form form(kProgId, 320, 240);
  const HWND window = windowOf(form);
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(IsWindowVisible(window));
  EXPECT_EQ(GetAncestor(window, GA_ROOT), form.window());
  RECT area = {};
  GetClientRect(window, &area);
  EXPECT_EQ(area.right, 320);
  EXPECT_EQ(area.bottom, 240);
  form.resize(111, 77);
  GetClientRect(window, &area);
  EXPECT_EQ(area.right, 111);
  EXPECT_EQ(area.bottom, 77);
}

TEST_F(FormHost, HidesAndShowsTheControl) {
  Form form(kProgId, 320, 240);
  draw(form);
  const host::Picture before = form.shoot();
  EXPECT_EQ(doVerb(form, OLEIVERB_HIDE), S_OK);
  EXPECT_FALSE(IsWindowVisible(windowOf(form)));
  EXPECT_EQ(doVerb(form, OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(doVerb(form, OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(IsWindowVisible(windowOf(form)));
  EXPECT_EQ(doVerb(form, OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(doVerb(form, OLEIVERB_UIACTIVATE), S_OK);
  form.pump();
  EXPECT_TRUE(form.shoot() == before);
}

TEST_F(FormHost, OwnsTheMessageBoxes) {
  Form form(kProgId, 320, 240);
  EXPECT_EQ(form.control().call(L"NcFile", {file("missing.nc")}).number(), -1);
  ASSERT_EQ(form.answerer().boxes().size(), 1U);
  const host::SeenBox& box = form.answerer().boxes()[0];
  EXPECT_EQ(host::narrow(box.caption), "NetCDF Error");
  EXPECT_EQ(host::narrow(box.text), "No such file or directory");
  EXPECT_EQ(box.owner, form.window());
}

// The host's own code runs while a box is up. It may ask, but not work on what is being worked on;
// a size that it gives then holds afterwards.
TEST_F(FormHost, CannotReenterAMember) {
  Form form(kProgId, 320, 240);
  draw(form);
  HRESULT refused = S_OK;
  std::wstring text;
  int items = -1;
  form.answerer().meanwhile([&] {
    try {
      form.control().call(L"Draw");
    } catch (const host::HostError& error) {
      refused = error.code();
    }
    text = form.control().get(L"ErrorMessage").text();
    items = form.control().get(L"NumDrawAbleItems").number();
    SetWindowPos(form.window(), nullptr, 0, 0, 200, 150, SWP_NOMOVE | SWP_NOZORDER);
  });
  form.control().call(L"SetCurrentTime", {9});
  form.answerer().meanwhile({});
  EXPECT_EQ(form.answerer().boxes().size(), 1U);
  EXPECT_EQ(refused, RPC_E_CALL_REJECTED);
  EXPECT_EQ(items, 2);
  form.pump();
  const host::Picture after = form.shoot();
  EXPECT_EQ(after.width, 200);
  EXPECT_TRUE(form.oleDraw() == after);
  EXPECT_EQ(form.control().call(L"AdvanceTime", {1}).number(), 1);
  EXPECT_EQ(form.answerer().boxes().size(), 1U);
}

TEST_F(FormHost, SharesTheStateWithOtherFormsAndIsLaidOutInPeace) {
  Form first(kProgId, 320, 240), second(kProgId, 200, 100);
  draw(first);
  EXPECT_EQ(second.control().get(L"NumDrawAbleItems").number(), 2);
  second.control().call(L"ReDraw");
  EXPECT_EQ(second.shoot().at(199, 0), 0xFFFFFFU);
  EXPECT_FALSE(second.shoot() == host::takePicture(200, 100, [](HDC) {}));
  // With a section to draw, no size on the way to the final one may complain.
  Form third(kProgId, 320, 240);
  EXPECT_TRUE(third.answerer().boxes().empty());
}

TEST_F(FormHost, LeaksNoGdiObjectsAndNoReferences) {
  const HPEN probe = CreatePen(PS_SOLID, 1, 0);
  const int withProbe = gdiObjects();
  DeleteObject(probe);
  ASSERT_EQ(gdiObjects(), withProbe - 1);  // the count counts

  const Library library;
  int settled = 0;
  for (int round = 0; round < 53; ++round) {
    {
      Form form(kProgId, 200 + round, 150);
      draw(form);
      form.resize(150, 200 + round);
      form.shoot();
    }
    EXPECT_EQ(library.canUnloadNow(), S_OK) << round;
    // The first rounds fill the system's own stores.
    if (round == 2) settled = gdiObjects();
  }
  EXPECT_LE(gdiObjects(), settled);
}

TEST_F(FormHost, MayDropTheControlAnyWay) {
  const Library library;
  {  // The window goes first, under the active control.
    Form form(kProgId, 100, 100);
    DestroyWindow(windowOf(form));
    EXPECT_EQ(windowOf(form), nullptr);
    form.control().call(L"ReDraw");
    EXPECT_EQ(doVerb(form, OLEIVERB_SHOW), S_OK);  // it comes back with a new one
    ASSERT_NE(windowOf(form), nullptr);
    EXPECT_TRUE(IsWindowVisible(windowOf(form)));
  }
  EXPECT_EQ(library.canUnloadNow(), S_OK);
  {  // The object outlives its form.
    ComOwner<IDispatch> kept;
    {
      Form form(kProgId, 100, 100);
      form.control().dispatch()->QueryInterface(IID_IDispatch, kept.receiveAny());
    }
    host::Object control(kept.get());
    EXPECT_EQ(control.call(L"ReDraw").type(), VT_EMPTY);
    EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  }
  EXPECT_EQ(library.canUnloadNow(), S_OK);
}

class FormProgram : public FormHost {
 protected:
  Outcome run(const std::wstring& arguments) {
    return runProgram(L"\"" + programFolder() + L"\\..\\..\\kelvane-shot.exe\" " + arguments,
                      Boxes::LeftAlone);
  }
  // Width and height of a PNG, or empty.
  std::string pngSize(const std::string& name) {
    const std::wstring path = file(name);
    std::string head;
    if (std::FILE* stream = _wfopen(path.c_str(), L"rb")) {
      head.resize(24);
      head.resize(std::fread(head.data(), 1, head.size(), stream));
      std::fclose(stream);
    }
    if (head.size() != 24 || head.substr(1, 3) != "PNG") return {};
    const auto number = [&](std::size_t at) {
      return static_cast<unsigned char>(head[at]) * 256 + static_cast<unsigned char>(head[at + 1]);
    };
    return std::to_string(number(18)) + "x" + std::to_string(number(22));
  }
};

TEST_F(FormProgram, WritesPictures) {
  const std::wstring input = L" \"" + file("tiny.nc") + L"\" temp \"350,0 358,0\" 1 ";
  const struct {
    const wchar_t* command;
    const wchar_t* size;
    const char* expected;
  } rows[] = {{L"draw", L"600x400", "600x400"},
              {L"oledraw", L"321x123", "321x123"},
              {L"resize", L"\"600x400 300x200 250x150\"", "250x150"}};
  for (const auto& row : rows) {
    const Outcome outcome = run(row.command + input + row.size + L" \"" + file("out.png") + L"\"");
    EXPECT_EQ(outcome.status, 0U) << outcome.output;
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(pngSize("out.png"), row.expected);
  }
}

TEST_F(FormProgram, TellsWhatIsWrong) {
  const std::wstring rest = L" temp \"350,0 358,0\" 1 600x400 \"" + file("out.png") + L"\"";
  Outcome outcome;
  for (const std::wstring command : {L"draw", L"oledraw"}) {
    outcome = run(command + L" \"" + file("missing.nc") + L"\"" + rest);
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.status, 1U);
    EXPECT_EQ(outcome.output, "kelvane-shot: No such file or directory\n");
  }
  outcome = run(L"draw \"" + file("tiny.nc") + L"\" nosuch \"350,0 358,0\" 1 600x400 x.png");
  EXPECT_EQ(outcome.status, 1U);
  EXPECT_EQ(outcome.output, "kelvane-shot: [SelectVarByName] nc varable not identified\n");
  // No room for the axes: the drawing says so in a box only.
  for (const std::wstring command : {L"draw", L"oledraw"}) {
    outcome = run(command + L" \"" + file("tiny.nc") + L"\" temp \"350,0 358,0\" 1 1x1 \"" +
                  file("small.png") + L"\"");
    EXPECT_TRUE(outcome.ended);
    EXPECT_EQ(outcome.status, 1U);
    EXPECT_EQ(outcome.output,
              "kelvane-shot: [Cartesian] screen size out of rangepwidth, phight = -83-77\n");
    EXPECT_EQ(pngSize("small.png"), "");
  }
  EXPECT_EQ(run(L"draw").status, 2U);
  EXPECT_EQ(run(L"draw a b \"1,2 3\" 1 600x400 x.png").status, 2U);
  EXPECT_EQ(run(L"draw a b \"1,2 3,4\" 1 600by400 x.png").status, 2U);
  EXPECT_EQ(run(L"--help").status, 0U);
}

}  // namespace
}  // namespace winetest
