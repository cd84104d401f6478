#include "DialogTest.h"

namespace winetest {
namespace {

// Many rows in few windows: scrolling, keys, the height of the window.
class KeyEditorRows : public DialogTest {
 protected:
  static int windowsIn(HWND dialog) {
    int count = 0;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      ++count;
    }
    return count;
  }
  static bool isShown(HWND editor, int line) {
    const HWND low = part(editor, line, ROW_FLDLOWRANGE);
    return low != nullptr && (GetWindowLongW(low, GWL_STYLE) & WS_VISIBLE) != 0;
  }
  static int shownIn(HWND editor) {
    int line = 0;
    while (isShown(editor, line)) ++line;
    return line;
  }
  // The number of the first row in view.
  static std::string first(HWND editor) { return textOf(part(editor, 0, ROW_NUMBER)); }
  static void untilFirst(User& user, HWND editor, const std::string& number) {
    user.until("row " + number + " comes first", [&] { return first(editor) == number; });
  }
  static void untilFocus(User& user, HWND editor, int line, int which) {
    user.until("the focus at line " + std::to_string(line) + " part " + std::to_string(which),
               [&] { return user.focus() == part(editor, line, which); });
  }
  static SCROLLINFO scrollBar(HWND editor) {
    SCROLLINFO range = {};
    range.cbSize = sizeof range;
    range.fMask = SIF_ALL;
    GetScrollInfo(GetDlgItem(editor, IDC_VSCROLL1), SB_CTL, &range);
    return range;
  }
  // How many rows are in view at a time.
  static int page(HWND editor) { return static_cast<int>(scrollBar(editor).nPage); }
  // How many that are in the window as it opens, at this resolution and in this font.
  int roomByDesign() {
    int room = 0;
    editKey([&](User& user, HWND editor) {
      room = page(editor);
      user.click(editor, IDCANCEL);
    });
    return room;
  }
  static int topOf(HWND editor, int line) {
    RECT place = {};
    GetWindowRect(part(editor, line, ROW_FLDLOWRANGE), &place);
    return place.top;
  }
  // From a row to the next one, in pixels.
  static int pitch(HWND editor) { return topOf(editor, 1) - topOf(editor, 0); }
  static void scroll(HWND editor, int request, int position = 0) {
    PostMessageW(editor, WM_VSCROLL,
                 MAKEWPARAM(static_cast<WORD>(request), static_cast<WORD>(position)),
                 reinterpret_cast<LPARAM>(GetDlgItem(editor, IDC_VSCROLL1)));
  }
};

TEST_F(KeyEditorRows, ShowsAnyNumberInTheSameWindows) {
  int windows[3] = {}, at = 0;
  for (const int rows : {3, 300, 3000}) {
    makeKey(rows);
    editKey([&](User& user, HWND editor) {
      windows[at++] = windowsIn(editor);
      const int room = page(editor), last = room - 1;
      EXPECT_GT(room, 5);
      EXPECT_EQ(shownIn(editor), std::min(rows, room));
      EXPECT_EQ(scrollBar(editor).nMax, std::max(rows, room) - 1);
      scroll(editor, SB_BOTTOM);
      if (rows == 3000) {
        untilFirst(user, editor, std::to_string(3001 - room));
        EXPECT_EQ(textOf(part(editor, last, ROW_FLDHIGHRANGE)), "3000");
        user.type(part(editor, last, ROW_FLDHIGHRANGE), L"3001");
        scroll(editor, SB_TOP);
        untilFirst(user, editor, "1");
        scroll(editor, SB_THUMBPOSITION, 3000 - room);
        untilFirst(user, editor, std::to_string(3001 - room));
        EXPECT_EQ(textOf(part(editor, last, ROW_FLDHIGHRANGE)), "3001");
      }
      user.click(editor, IDCANCEL);
    });
  }
  EXPECT_EQ(windows[0], windows[1]);
  EXPECT_EQ(windows[1], windows[2]);
}

TEST_F(KeyEditorRows, ScrollByBarAndWheel) {
  makeKey(40);
  editKey([](User& user, HWND editor) {
    scroll(editor, SB_LINEDOWN);
    untilFirst(user, editor, "2");
    const int room = page(editor);
    scroll(editor, SB_PAGEDOWN);
    untilFirst(user, editor, std::to_string(2 + room));
    EXPECT_EQ(scrollBar(editor).nPos, 1 + room);
    scroll(editor, SB_LINEUP);
    untilFirst(user, editor, std::to_string(1 + room));
    scroll(editor, SB_PAGEUP);
    untilFirst(user, editor, "1");
    scroll(editor, SB_LINEUP);
    scroll(editor, SB_THUMBTRACK, 20);
    untilFirst(user, editor, "21");
    EXPECT_EQ(textOf(part(editor, 3, ROW_FLDLOWRANGE)), "23");
    EXPECT_EQ(textOf(part(editor, 3, ROW_LBLCOLOR)), "Color of division 24: #170000");
    EXPECT_EQ(textOf(part(editor, 3, ROW_LOWLABEL)), "Low of division 24");
    EXPECT_EQ(textOf(part(editor, 3, ROW_HIGHLABEL)), "High of division 24");
    EXPECT_EQ(textOf(part(editor, 3, ROW_CMDDELETE)), "Delete division 24");
    // Over any control: a field, a swatch, the window itself; also by parts of a notch.
    const auto turn = [&](HWND over, int delta) {
      PostMessageW(over, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
    };
    turn(part(editor, 5, ROW_FLDHIGHRANGE), -WHEEL_DELTA);
    untilFirst(user, editor, "24");
    turn(part(editor, 0, ROW_LBLCOLOR), WHEEL_DELTA);
    untilFirst(user, editor, "21");
    turn(GetDlgItem(editor, IDC_CMDADD), WHEEL_DELTA);
    untilFirst(user, editor, "18");
    turn(editor, -WHEEL_DELTA / 3);
    untilFirst(user, editor, "19");
    turn(editor, 100 * WHEEL_DELTA);
    untilFirst(user, editor, "1");
    user.click(editor, IDCANCEL);
  });
}

TEST_F(KeyEditorRows, ScrollWithTheFocusOnItsRow) {
  makeKey(40);
  editKey([](User& user, HWND editor) {
    user.press(part(editor, 5, ROW_FLDHIGHRANGE));
    untilFocus(user, editor, 5, ROW_FLDHIGHRANGE);
    scroll(editor, SB_LINEDOWN);
    untilFocus(user, editor, 4, ROW_FLDHIGHRANGE);
    scroll(editor, SB_PAGEDOWN);
    untilFocus(user, editor, 0, ROW_FLDHIGHRANGE);
    user.click(editor, IDCANCEL);
  });
}

TEST_F(KeyEditorRows, AreWalkedByKeys) {
  makeKey(40);
  editKey([](User& user, HWND editor) {
    untilFocus(user, editor, 0, ROW_FLDLOWRANGE);
    user.key(VK_UP);
    user.key(VK_DOWN);
    untilFocus(user, editor, 1, ROW_FLDLOWRANGE);
    const int room = page(editor), last = room - 1;
    const std::string firstAtEnd = std::to_string(41 - room);
    const std::string firstAfterAPage = std::to_string(1 + room);
    user.key(VK_END, User::WithControl);
    untilFirst(user, editor, firstAtEnd);
    untilFocus(user, editor, last, ROW_FLDLOWRANGE);
    user.key(VK_DOWN);
    user.key(VK_UP);
    untilFocus(user, editor, last - 1, ROW_FLDLOWRANGE);
    user.key(VK_PRIOR);
    untilFirst(user, editor, std::to_string(41 - 2 * room));
    untilFocus(user, editor, last - 1, ROW_FLDLOWRANGE);
    user.key(VK_NEXT);
    untilFirst(user, editor, firstAtEnd);
    untilFocus(user, editor, last - 1, ROW_FLDLOWRANGE);
    user.key(VK_NEXT);
    untilFocus(user, editor, last, ROW_FLDLOWRANGE);
    user.key(VK_HOME, User::WithControl);
    untilFirst(user, editor, "1");
    untilFocus(user, editor, 0, ROW_FLDLOWRANGE);
    // What is typed goes into the row that the keys have come to.
    user.key(VK_NEXT);
    untilFirst(user, editor, firstAfterAPage);
    user.key('7');
    user.until("the number typed", [&] { return textOf(user.focus()) == "7"; });
    user.key(VK_PRIOR);
    untilFirst(user, editor, "1");
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "0");
    user.key(VK_NEXT);
    untilFirst(user, editor, firstAfterAPage);
    EXPECT_EQ(textOf(part(editor, 0, ROW_FLDLOWRANGE)), "7");
    user.key(VK_ESCAPE);
  });
}

TEST_F(KeyEditorRows, AreAllReachedByTab) {
  makeKey(roomByDesign() + 2);
  editKey([](User& user, HWND editor) {
    const int last = page(editor) - 1;
    untilFocus(user, editor, 0, ROW_FLDLOWRANGE);
    const int parts[] = {ROW_FLDLOWRANGE, ROW_FLDHIGHRANGE, ROW_LBLCOLOR, ROW_CMDDELETE};
    for (int row = 0; row < last + 3; ++row) {
      for (const int which : parts) {
        const int line = std::min(row, last);
        untilFocus(user, editor, line, which);
        EXPECT_EQ(textOf(part(editor, line, ROW_NUMBER)), std::to_string(row + 1));
        user.key(VK_TAB);
      }
    }
    for (const int button :
         {IDC_CMDADD, IDOK, IDCANCEL, IDC_CMDAUTODIV, IDC_CMDCOLORRAMP, IDC_CMDIMPORT}) {
      user.until("Tab to " + std::to_string(button),
                 [&] { return user.focus() == GetDlgItem(editor, button); });
      user.key(VK_TAB);
    }
    // On to the first row in view, and back to those above it.
    for (int row = 2; row >= 0; --row) {
      untilFocus(user, editor, 0, ROW_FLDLOWRANGE);
      EXPECT_EQ(first(editor), std::to_string(row + 1));
      user.key(VK_TAB, User::WithShift);
      if (row == 0) continue;
      untilFocus(user, editor, 0, ROW_CMDDELETE);
      for (const int which : {ROW_LBLCOLOR, ROW_FLDHIGHRANGE, ROW_FLDLOWRANGE}) {
        user.key(VK_TAB, User::WithShift);
        untilFocus(user, editor, 0, which);
      }
    }
    user.until("Shift+Tab", [&] { return user.focus() == GetDlgItem(editor, IDC_CMDIMPORT); });
    user.key(VK_ESCAPE);
  });
}

TEST_F(KeyEditorRows, HaveButtonsForTheKeyboard) {
  makeKey(roomByDesign() + 1);
  editKey([](User& user, HWND editor) {
    const int last = page(editor) - 1;
    user.key(VK_TAB);
    user.key(VK_TAB);
    untilFocus(user, editor, 0, ROW_LBLCOLOR);
    user.key(VK_SPACE);
    user.chooseColor(RGB(1, 2, 3));
    untilFocus(user, editor, 0, ROW_LBLCOLOR);
    user.key(VK_RETURN);
    user.chooseColor(RGB(4, 5, 6));
    user.until("the colour", [&] {
      return textOf(part(editor, 0, ROW_LBLCOLOR)) == "Color of division 1: #040506";
    });
    user.key(VK_TAB);
    user.key(VK_RETURN);
    user.until("the row goes", [&] { return textOf(part(editor, 0, ROW_FLDLOWRANGE)) == "1"; });
    untilFocus(user, editor, 0, ROW_CMDDELETE);
    // Rows above come into view when the last ones go; the focus stays on a row.
    user.key(VK_END, User::WithControl);
    untilFocus(user, editor, last, ROW_CMDDELETE);
    user.key(VK_SPACE);
    user.until("the row goes", [&] { return !isShown(editor, last); });
    untilFocus(user, editor, last - 1, ROW_CMDDELETE);
    user.key('A', User::WithAlt);
    user.until("the row is back", [&] { return isShown(editor, last); });
    user.key(VK_ESCAPE);
  });
}

TEST_F(KeyEditorRows, AreMoreInAHigherWindow) {
  makeKey(100);
  editKey([](User& user, HWND editor) {
    RECT place = {};
    GetWindowRect(editor, &place);
    const int width = place.right - place.left, height = place.bottom - place.top;
    const auto resize = [&](int newWidth, int newHeight) {
      SetWindowPos(editor, nullptr, 0, 0, newWidth, newHeight,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
      RECT now = {};
      GetWindowRect(editor, &now);
      return now;
    };
    const int room = page(editor);
    scroll(editor, SB_BOTTOM);
    untilFirst(user, editor, std::to_string(101 - room));
    // As much higher as the screen has room for.
    const RECT higher = resize(width, height + 5 * pitch(editor));
    const int grown = higher.bottom - higher.top - height;
    EXPECT_GT(grown, pitch(editor));
    const int more = room + grown / pitch(editor), last = more - 1;
    EXPECT_EQ(shownIn(editor), more);
    EXPECT_EQ(first(editor), std::to_string(101 - more));
    EXPECT_EQ(textOf(part(editor, last, ROW_FLDHIGHRANGE)), "100");
    EXPECT_EQ(page(editor), more);
    user.press(part(editor, last, ROW_FLDHIGHRANGE));
    untilFocus(user, editor, last, ROW_FLDHIGHRANGE);
    const RECT least = resize(width + 200, 1);
    EXPECT_EQ(least.right - least.left, width) << "the width is fixed";
    EXPECT_EQ(shownIn(editor), 3);
    EXPECT_TRUE(isShown(editor, 0));
    EXPECT_FALSE(isShown(editor, 3));
    untilFocus(user, editor, 2, ROW_FLDHIGHRANGE);
    // Nothing lies outside, nor on one another.
    RECT area = {}, problem = {}, add = {};
    GetClientRect(editor, &area);
    GetWindowRect(GetDlgItem(editor, IDC_PROBLEM), &problem);
    GetWindowRect(GetDlgItem(editor, IDC_CMDADD), &add);
    MapWindowPoints(nullptr, editor, reinterpret_cast<POINT*>(&problem), 2);
    MapWindowPoints(nullptr, editor, reinterpret_cast<POINT*>(&add), 2);
    EXPECT_LE(problem.bottom, area.bottom);
    EXPECT_LT(add.bottom, problem.top);
    resize(width, height);
    EXPECT_EQ(shownIn(editor), room);
    user.click(editor, IDCANCEL);
  });
}

}  // namespace
}  // namespace winetest
