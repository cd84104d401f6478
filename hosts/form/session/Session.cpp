#include "session/Session.h"

#include <algorithm>
#include <exception>

#include "model/address.h"
#include "model/stepCount.h"

namespace form {
namespace {

// The name of no item: asking for it fails and changes nothing but the text of the last failure.
constexpr wchar_t kNoItem[] = L"";

class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  ~Busy() { flag_ = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
};

}  // namespace

Outcome Session::attempt(const std::function<Outcome()>& action) {
  if (busy_) return {L"The control is still at work."};
  const Busy busy(busy_);
  try {
    return action();
  } catch (const host::HostError& error) {
    if (error.code() == RPC_E_CALL_REJECTED) {
      return {L"The control is busy with a dialog of its own."};
    }
    return {L"The control refused: " + host::wide(error.what())};
  } catch (const std::exception& error) {
    return {L"That failed: " + host::wide(error.what())};
  }
}

std::wstring Session::reason() { return control_.get(L"ErrorMessage").text(); }

// The text of the last failure is never cleared. A known one in its place shows whether what
// comes next has failed.
void Session::markReason() { control_.call(L"SetVarByName", {kNoItem}); }

Outcome Session::drawing(const std::function<void()>& action) {
  markReason();
  const std::wstring before = reason();
  action();
  const std::wstring after = reason();
  return {after == before ? std::wstring() : after};
}

Outcome Session::open(const std::wstring& name) {
  return attempt([&] {
    const std::wstring before = open_ ? given_ : std::wstring();
    const Path path = path_;
    const bool profile = open_ && control_.get(L"DrawProfile").flag();
    const int step = step_;
    Outcome outcome = openNow(name);
    if (outcome.done() || before.empty()) return outcome;
    // The control has let go of the data set that was open.
    if (openNow(before).done()) {
      if (!path.empty()) pathNow(path);
      control_.put(L"DrawProfile", profile);
      step_ = steps_ > 0 ? std::clamp(step, 1, steps_) : step;
      if (drawable()) control_.call(L"SetCurrentTime", {step_});
    }
    return outcome;
  });
}

Outcome Session::openNow(const std::wstring& name) {
  const std::wstring item =
      item_ >= 1 && item_ <= static_cast<int>(items_.size())
          ? items_[static_cast<std::size_t>(item_) - 1] : std::wstring();
  open_ = false;
  path_.clear();
  if (control_.call(L"NcFile", {name}).number() != 1) return {reason()};
  given_ = name;
  name_ = withoutCredentials(name);
  items_.clear();
  const int count = control_.get(L"NumDrawAbleItems").number();
  for (int k = 1; k <= count; ++k) items_.push_back(control_.call(L"ItemName", {k}).text());
  item_ = step_ = 1;
  open_ = true;
  steps_ = findSteps();
  const auto same = std::find(items_.begin(), items_.end(), item);
  if (same != items_.end()) {
    const int order = static_cast<int>(same - items_.begin()) + 1;
    if (control_.call(L"SetVarByOrder", {order}).number() == 1) item_ = order;
  }
  return {};
}

// No member tells the number of time steps, but stepping on goes back to the first one after the
// last. Without a path there is nothing to read, so that it costs next to nothing.
int Session::findSteps() {
  control_.call(L"NewSection");
  control_.call(L"EndSection");
  try {
    return countSteps([&](int n) { return control_.call(L"AdvanceTime", {n}).number(); });
  } catch (const host::HostError&) {
    return 0;
  }
}

Outcome Session::setPath(const Path& path) {
  return attempt([&]() -> Outcome {
    const Path before = path_;
    Outcome outcome = pathNow(path);
    if (!outcome.done() && !before.empty()) pathNow(before);
    return outcome;
  });
}

Outcome Session::pathNow(const Path& path) {
  path_.clear();
  control_.call(L"NewSection");
  for (const auto& [longitude, latitude] : path) {
    control_.call(L"AddSection", {longitude, latitude});
  }
  if (control_.call(L"EndSection").number() != 1) return {reason()};
  path_ = path;
  return {};
}

Outcome Session::setItem(int item) {
  return attempt([&]() -> Outcome {
    if (control_.call(L"SetVarByOrder", {item}).number() != 1) return {reason()};
    item_ = item;
    if (!drawable()) return {};
    return drawing([&] { control_.call(L"SetCurrentTime", {step_}); });
  });
}

Outcome Session::goTo(int step) {
  return attempt([&]() -> Outcome {
    if (!drawable()) return {};
    step_ = step;
    return drawing([&] { control_.call(L"SetCurrentTime", {step}); });
  });
}

Outcome Session::next() {
  return attempt([&]() -> Outcome {
    if (!drawable()) return {};
    return drawing([&] { step_ = control_.call(L"AdvanceTime", {1}).number(); });
  });
}

Outcome Session::draw() {
  return attempt([&]() -> Outcome {
    if (!drawable()) return {};
    return drawing([&] { control_.call(L"SetCurrentTime", {step_}); });
  });
}

bool Session::flag(const wchar_t* property) {
  try {
    return control_.get(property).flag();
  } catch (const std::exception&) {
    return false;
  }
}

bool Session::profile() { return flag(L"DrawProfile"); }
bool Session::usesKey() { return flag(L"UseColorKey"); }

Outcome Session::redraw() {
  if (!drawable()) return {};
  return drawing([&] { control_.call(L"ReDraw"); });
}

Outcome Session::setProfile(bool profile) {
  return attempt([&] {
    control_.put(L"DrawProfile", profile);
    return redraw();
  });
}

Outcome Session::setUsesKey(bool use) {
  return attempt([&]() -> Outcome {
    control_.put(L"UseColorKey", use);
    if (use && !control_.get(L"UseColorKey").flag()) {
      return {L"There is no color key yet. Load one or make one first."};
    }
    return redraw();
  });
}

Outcome Session::loadKey(const std::wstring& file) {
  return attempt([&]() -> Outcome {
    markReason();
    const std::wstring before = reason();
    if (control_.call(L"KewFile", {file}).number() != 1) {
      const std::wstring after = reason();
      control_.put(L"UseColorKey", false);
      redraw();
      return {after == before ? L"The file has no key for this item." : after};
    }
    control_.put(L"UseColorKey", true);
    return redraw();
  });
}

Outcome Session::makeKey() {
  return attempt([&]() -> Outcome {
    if (!drawable()) return {L"Set a path first: a key is made of the values along it."};
    const Outcome made = drawing([&] { control_.call(L"InitColorKey"); });
    const Outcome drawn = redraw();
    return made.done() ? drawn : made;
  });
}

Outcome Session::showOptions() {
  return attempt([&]() -> Outcome {
    markReason();
    const std::wstring before = reason();
    control_.call(L"ShowOptions");
    const std::wstring after = reason();
    return {after == before ? std::wstring() : after};
  });
}

}  // namespace form
