#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "container/ControlHolder.h"
#include "container/HostHooks.h"
#include "model/pictureSize.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "window/Bar.h"
#include "window/MessageStrip.h"
#include "window/Metrics.h"
#include "window/Stage.h"
#include "window/StatusLine.h"

namespace form {

// The program's window: the control with all that is around it. One in a program.
class MainWindow final : private HostHooks {
 public:
  static constexpr wchar_t kClass[] = L"KelvaneHostWindow";

  // Makes the window, and the control in it; without a control it tells how to get one.
  // host::HostError when there can be no window.
  MainWindow();
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  HWND window() const { return window_; }
  void show(int command);
  // Opens a file or an address and draws it, and asks for a path when none is known.
  void open(const std::wstring& name);
  // Keys that mean something here. True when the message is done with.
  bool translate(MSG& message);

 private:
  class Modal;
  class Still;
  static constexpr UINT_PTR kPlayTimer = 1, kCloseTimer = 2;

  void onControlModal(bool up) override;
  bool onHostKey(MSG& message) override;
  void onControlStatus(const wchar_t* text) override;

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  LRESULT handle(UINT message, WPARAM wide, LPARAM longer);
  bool leave(HWND focus, const MSG& message);
  void create();
  void placeControl();
  void layOut();
  void leastSize(MINMAXINFO& limits) const;
  void onActivate(bool active);
  void onTimer(WPARAM timer);
  void onDrop(HDROP drop);
  void onClose();
  void onDestroy();

  void onCommand(int id, int notification);
  void perform(int id);
  void openFile();
  void openAddress();
  void openRecent(std::size_t k);
  void remember(const std::wstring& name, const Path& path);
  void askPath(const std::wstring& why = L"");
  std::wstring usePath(const Path& path);
  void chooseItem();
  void goToTyped();
  void step(int id);
  void play();
  void stop();
  void playNext();
  void toggleKey();
  void loadKey();
  void savePicture();
  void print();
  void copy();
  template <class Action>
  void withPicture(const wchar_t* failure, const Action& action);

  // Shows what came of a call; true when it was done. A failure ends the playing.
  bool report(const Outcome& outcome);
  void say(const std::wstring& problem);
  void note(const std::wstring& text);
  void refresh();
  void updateMenu(HMENU menu);
  void fillRecentMenu() const;
  PictureSize viewSize() const;
  bool ready() const;
  std::wstring title() const;

  HWND window_ = nullptr;
  HWND focus_ = nullptr;  // where the keyboard was when the window was left
  HACCEL keys_, timeKeys_;
  Metrics metrics_;
  Settings settings_;
  RecentList recent_;
  std::optional<Stage> stage_;
  std::optional<Bar> bar_;
  std::optional<MessageStrip> strip_;
  std::optional<StatusLine> status_;
  std::unique_ptr<ControlHolder> holder_;
  std::optional<Session> session_;
  Path usedPath_;  // the last one that was drawn along
  std::wstring note_, address_;
  int modal_ = 0;
  bool playing_ = false, closing_ = false;
};

}  // namespace form
