#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Dispatch.h"
#include "model/pathText.h"

namespace form {

// The outcome of asking the control for something: done, or the reason why not, for the user.
struct Outcome {
  std::wstring problem;
  bool done() const { return problem.empty(); }
};

// What is open in the control, kept in step with it. Speaks to the control through its automation
// members only. Items and time steps count from 1. No call throws; while one is under way, the
// control may let messages through, and every further call is refused.
class Session {
 public:
  // The control must outlive the session.
  explicit Session(host::Object& control) : control_(control) {}

  // A call is under way.
  bool busy() const { return busy_; }
  bool isOpen() const { return open_; }
  // What was opened; an address without user name and password.
  const std::wstring& name() const { return name_; }
  const std::vector<std::wstring>& items() const { return items_; }
  int item() const { return item_; }
  int step() const { return step_; }
  // How many steps there are; 0 when that is not known.
  int steps() const { return steps_; }
  // The path in use; empty without one.
  const Path& path() const { return path_; }
  bool drawable() const { return open_ && !path_.empty(); }

  // Opens a file or an address. The item of the same name stays chosen. Nothing is drawn yet, and
  // the path has to be set anew. What was open before stays when that fails.
  Outcome open(const std::wstring& name);
  // The path in use stays when the new one is refused.
  Outcome setPath(const Path& path);
  // These draw when there is a path.
  Outcome setItem(int item);
  Outcome goTo(int step);
  Outcome next();
  Outcome draw();

  bool profile();
  Outcome setProfile(bool profile);
  bool usesKey();
  Outcome setUsesKey(bool use);
  Outcome loadKey(const std::wstring& file);
  Outcome makeKey();
  Outcome showOptions();

 private:
  Outcome attempt(const std::function<Outcome()>& action);
  Outcome drawing(const std::function<void()>& action);
  Outcome openNow(const std::wstring& name);
  Outcome pathNow(const Path& path);
  bool flag(const wchar_t* property);
  int findSteps();
  std::wstring reason();
  void markReason();
  Outcome redraw();

  host::Object& control_;
  bool busy_ = false, open_ = false;
  std::wstring name_;
  // The same as it was given. For opening it again only, never for showing or keeping.
  std::wstring given_;
  std::vector<std::wstring> items_;
  int item_ = 0, step_ = 0, steps_ = 0;
  Path path_;
};

}  // namespace form
