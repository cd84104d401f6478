#include <memory>

#include "ComOwner.h"
#include "DialogTest.h"
#include "gdiObjects.h"

namespace winetest {
namespace {

// What the host notices of a dialog, and what it may do meanwhile.
using DialogHost = DialogTest;

TEST_F(DialogHost, OwnsTheDialogsAndIsDisabled) {
  showOptions([this](User& user, HWND options) {
    EXPECT_EQ(GetWindow(options, GW_OWNER), form_.window());
    EXPECT_FALSE(IsWindowEnabled(form_.window()));
    user.click(options, IDC_CMDEDITLEGEND);
    const HWND editor = user.dialog(kEditor);
    EXPECT_EQ(GetWindow(editor, GW_OWNER), options);
    EXPECT_FALSE(IsWindowEnabled(options));
    user.click(editor, IDCANCEL);
    user.untilGone(editor);
    user.until("the options are back", [&] { return IsWindowEnabled(options) != 0; });
    user.click(options, IDCANCEL);
  });
  EXPECT_TRUE(IsWindowEnabled(form_.window()));
}

TEST_F(DialogHost, CannotReenter) {
  HRESULT drawing = S_OK, options = S_OK;
  int items = -1;
  const auto refusal = [this](const wchar_t* member) {
    try {
      control().call(member);
    } catch (const host::HostError& error) {
      return error.code();
    }
    return S_OK;
  };
  showOptions([&](User& user, HWND dialog) {
    user.onMainThread([&] {
      drawing = refusal(L"Draw");
      options = refusal(L"ShowOptions");
      items = control().get(L"NumDrawAbleItems").number();
      form_.resize(300, 200);
    });
    user.click(dialog, IDOK);
  });
  EXPECT_EQ(drawing, RPC_E_CALL_REJECTED);
  EXPECT_EQ(options, RPC_E_CALL_REJECTED);
  EXPECT_EQ(items, 2);
  EXPECT_EQ(form_.shoot().width, 300);
  EXPECT_TRUE(form_.oleDraw() == form_.shoot());
}

// A dialog under another one takes no orders, not from a program that sends them all the same.
TEST_F(DialogHost, CannotCloseADialogUnderAnother) {
  makeKey(2);
  showOptions([](User& user, HWND options) {
    user.click(options, IDC_CMDEDITLEGEND);
    const HWND editor = user.dialog(kEditor);
    user.click(editor, IDC_CMDAUTODIV);
    const HWND division = user.dialog(kAutoDiv);
    for (const HWND below : {options, editor}) {
      PostMessageW(below, WM_CLOSE, 0, 0);
      PostMessageW(below, WM_COMMAND, IDOK, 0);
      PostMessageW(below, WM_COMMAND, IDCANCEL, 0);
      PostMessageW(below, WM_COMMAND, IDC_CMDADD, 0);
    }
    user.onMainThread([] {});
    EXPECT_TRUE(IsWindowVisible(editor));
    EXPECT_TRUE(IsWindowVisible(options));
    user.type(GetDlgItem(division, IDC_FLDDIVISIONS), L"4");
    user.click(division, IDOK);
    user.untilGone(division);
    user.until("four rows", [&] { return IsWindowVisible(part(editor, 3, ROW_FLDLOWRANGE)); });
    EXPECT_FALSE(IsWindowVisible(part(editor, 4, ROW_FLDLOWRANGE)));
    user.click(editor, IDCANCEL);
    user.untilGone(editor);
    user.click(options, IDC_OPTVIEWSTYLE2);
    user.click(options, IDOK);
  });
  EXPECT_TRUE(control().get(L"DrawProfile").flag());
}

// A window of the host's in a corner of the screen, away from the dialogs, which counts how often
// it is painted.
class Bystander {
 public:
  Bystander() {
    WNDCLASSW kind = {};
    kind.lpfnWndProc = procedure;
    kind.lpszClassName = L"Bystander";
    RegisterClassW(&kind);
    window_ =
        CreateWindowExW(WS_EX_NOACTIVATE, L"Bystander", L"", WS_POPUP | WS_VISIBLE,
                        GetSystemMetrics(SM_CXSCREEN) - 20, GetSystemMetrics(SM_CYSCREEN) - 20, 20,
                        20, nullptr, nullptr, nullptr, nullptr);
  }
  ~Bystander() {
    DestroyWindow(window_);
    UnregisterClassW(L"Bystander", nullptr);
  }
  static inline int paints = 0;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    paints += message == WM_PAINT;
    return DefWindowProcW(window, message, wide, longer);
  }
  HWND window_ = nullptr;
};

// The form goes with its control while dialogs are up, one on the other: they go too, the call
// comes back, and the control is still good for something.
TEST_F(DialogHost, TakesItsDialogsAlong) {
  makeKey(2);
  editKey([](User& user, HWND editor) { user.click(editor, IDOK); });  // something to import
  const struct {
    std::vector<int> clicks;  // in the editor and what it opens
    std::wstring last;
  } rows[] = {{{}, kEditor},
              {{IDC_CMDAUTODIV}, kAutoDiv},
              {{partOf(0, ROW_LBLCOLOR)}, kChooser},
              {{IDC_CMDCOLORRAMP}, kColorRamp},
              {{IDC_CMDCOLORRAMP, IDC_LBLFIRSTCOLOR}, kChooser},
              {{IDC_CMDCOLORRAMP, IDC_LBLLASTCOLOR}, kChooser},
              {{IDC_CMDIMPORT}, kOpen},
              {{IDC_CMDIMPORT}, kVarName},
              {{}, kOptions}};
  for (const auto& [clicks, last] : rows) {
    auto form = std::make_unique<host::Form>(L"Kelvane.KelvaneCtl", 300, 200);
    host::Object kept(form->control().dispatch());
    const HWND window = form->window();
    const Bystander bystander;
    form->pump();
    ASSERT_GT(Bystander::paints, 0);
    EXPECT_EQ(User::during([&] { kept.call(L"ShowOptions"); },
                           [&](User& user) {
                             const HWND options = user.dialog(kOptions);
                             if (last != kOptions) {
                               user.click(options, IDC_CMDEDITLEGEND);
                               const HWND editor = user.dialog(kEditor);
                               if (!clicks.empty()) user.click(editor, clicks[0]);
                               if (clicks.size() > 1)
                                 user.click(user.dialog(kColorRamp), clicks[1]);
                               if (last == kVarName) user.chooseFile(folder_.file("tiny.KEW"));
                             }
                             user.dialog(last);
                             user.onMainThread([&] {
                               Bystander::paints = 0;
                               DestroyWindow(window);
                             });
                             user.untilGone(window);
                             user.untilGone(options);
                           }),
              "")
        << host::narrow(last);
    EXPECT_FALSE(IsWindow(window));
    form_.pump();
    EXPECT_EQ(Bystander::paints, 0) << host::narrow(last);
    EXPECT_EQ(kept.get(L"NumDrawAbleItems").number(), 2);
    form.reset();
    kept.call(L"ReDraw");
  }
}

// Without a form: the dialogs have no owner then.
TEST_F(DialogHost, NeedNotBeThere) {
  host::ComOwner<IUnknown> made;
  CLSID id = {};
  ASSERT_EQ(CLSIDFromProgID(L"Kelvane.KelvaneCtl", &id), S_OK);
  ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.receiveAny()),
            S_OK);
  host::Object lone(made.get());
  EXPECT_EQ(User::during([&] { lone.call(L"ShowOptions"); },
                         [&](User& user) {
                           const HWND options = user.dialog(kOptions);
                           EXPECT_EQ(GetWindow(options, GW_OWNER), nullptr);
                           user.click(options, IDC_CMDEDITLEGEND);
                           const HWND editor = user.dialog(kEditor);
                           user.click(editor, IDCANCEL);
                           user.untilGone(editor);
                           user.click(options, IDOK);
                         }),
            "");
}

// The colours that the user has mixed are there the next time.
TEST_F(DialogHost, KeepsTheUsersColors) {
  constexpr int addToCustom = 712;  // by the system's own template
  static uint32_t blue = 30;
  blue += 10;  // a new colour, however often the test is repeated
  makeKey(1);
  // How many pixels of the chooser have the colour; with add, after it was mixed.
  const auto customColour = [this](bool add) {
    uint32_t seen = 0;
    editKey([&](User& user, HWND editor) {
      user.click(editor, partOf(0, ROW_LBLCOLOR));
      const HWND chooser = user.dialog(kChooser);
      if (add) {
        SetDlgItemInt(chooser, 706, 10, FALSE);
        SetDlgItemInt(chooser, 707, 200, FALSE);
        SetDlgItemInt(chooser, 708, blue, FALSE);
        user.click(chooser, addToCustom);
      }
      const host::Picture picture = user.shoot(chooser);
      for (const uint32_t pixel : picture.pixels) seen += pixel == (0x0AC800 | blue);
      user.chooseColor({});
      user.click(editor, IDCANCEL);
    });
    return seen;
  };
  const uint32_t before = customColour(false);
  customColour(true);
  EXPECT_GT(customColour(false), before) << "kept although the choice was cancelled";
}

// Windows and menus of this process. Where the system does not count them, every handle is tried.
int userObjects() {
  const auto counted = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  if (counted > 0) return counted;
  int found = 0;
  for (ULONG_PTR index = 1; index < 0x10000; ++index) {
    found += IsWindow(reinterpret_cast<HWND>(index)) || IsMenu(reinterpret_cast<HMENU>(index));
  }
  return found;
}

TEST_F(DialogHost, IsLeftNothingBehindByDialogs) {
  // The counts count.
  const HPEN pen = CreatePen(PS_SOLID, 1, 0);
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  const int gdiWithProbe = gdiObjects(), userWithProbe = userObjects();
  DeleteObject(pen);
  DestroyWindow(window);
  ASSERT_EQ(gdiObjects(), gdiWithProbe - 1);
  ASSERT_LT(userObjects(), userWithProbe);

  makeKey(20);
  int gdi = 0, user = 0;
  for (int round = 0; round < 53; ++round) {
    showOptions([](User& at, HWND options) {
      at.click(options, IDC_CMDEDITLEGEND);
      const HWND editor = at.dialog(kEditor);
      at.type(part(editor, 0, ROW_FLDLOWRANGE), L"1x");
      at.shoot(editor);
      at.click(editor, partOf(0, ROW_LBLCOLOR));
      at.chooseColor({});
      at.until("the editor is back", [&] { return IsWindowEnabled(editor) != 0; });
      at.click(editor, IDCANCEL);
      at.untilGone(editor);
      at.click(options, IDCANCEL);
    });
    // The first rounds fill the system's own stores.
    if (round == 2) gdi = gdiObjects(), user = userObjects();
  }
  EXPECT_LE(gdiObjects(), gdi);
  EXPECT_LE(userObjects(), user);
}

}  // namespace
}  // namespace winetest
