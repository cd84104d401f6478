// kelvane-shot: a Windows host with the control on its form, for pictures and tests of the control
// as its users meet it.
#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ComOwner.h"
#include "Form.h"

namespace {

constexpr wchar_t kProgId[] = L"Kelvane.KelvaneCtl";

constexpr char kHelp[] =
    R"(usage: kelvane-shot draw    FILE VAR PATH TIME WxH OUT
       kelvane-shot resize  FILE VAR PATH TIME "WxH WxH ..." OUT
       kelvane-shot oledraw FILE VAR PATH TIME WxH OUT
       kelvane-shot --help

Draws a section by the registered control and writes the picture.

  draw     places the control on a form, draws, and takes the form's client area
  resize   the same, then gives the form each further size in turn
  oledraw  no form and no window: the control draws into a bitmap

  FILE  netCDF file or address          VAR   variable, by its name
  PATH  "lon,lat lon,lat ..."           TIME  time step, counted from 1
  WxH   size in pixels, as 1000x600     OUT   PNG, or BMP when its name ends in .bmp

Exit status: 0; 1 with the reason on standard error; 2 for a wrong command line.
)";

struct Size {
  int width = 0, height = 0;
};

struct Command {
  std::wstring kind, file, variable, out;
  std::vector<std::pair<double, double>> path;
  int time = 0;
  std::vector<Size> sizes;
};

std::vector<std::wstring> words(const std::wstring& text) {
  std::vector<std::wstring> found;
  for (std::size_t at = 0; (at = text.find_first_not_of(L' ', at)) != std::wstring::npos;) {
    const std::size_t end = std::min(text.find(L' ', at), text.size());
    found.push_back(text.substr(at, end - at));
    at = end;
  }
  return found;
}

// Both numbers of "a<separator>b"; nothing when the text is anything else.
template <class Number, class Parse>
std::optional<std::pair<Number, Number>> pairOf(const std::wstring& text, wchar_t separator,
                                                Parse parse) {
  const std::size_t middle = text.find(separator);
  if (middle == std::wstring::npos) return std::nullopt;
  try {
    const std::wstring first = text.substr(0, middle), second = text.substr(middle + 1);
    std::size_t firstEnd = 0, secondEnd = 0;
    const auto numbers = std::pair(parse(first, &firstEnd), parse(second, &secondEnd));
    if (firstEnd != first.size() || secondEnd != second.size()) return std::nullopt;
    return numbers;
  } catch (const std::logic_error&) {  // no number, or one too large
    return std::nullopt;
  }
}

std::optional<Command> parse(const std::vector<std::wstring>& words_) {
  if (words_.size() != 7) return std::nullopt;
  Command command{words_[0], words_[1], words_[2], words_[6], {}, 0, {}};
  const bool several = command.kind == L"resize";
  if (!several && command.kind != L"draw" && command.kind != L"oledraw") return std::nullopt;
  for (const std::wstring& word : words(words_[3])) {
    const auto point =
        pairOf<double>(word, L',', [](const auto& t, auto* end) { return std::stod(t, end); });
    if (!point) return std::nullopt;
    command.path.push_back(*point);
  }
  const auto integer = [](const auto& t, auto* end) { return std::stoi(t, end); };
  const auto time = pairOf<int>(words_[4] + L",0", L',', integer);
  if (!time) return std::nullopt;
  command.time = time->first;
  for (const std::wstring& word : words(words_[5])) {
    const auto size = pairOf<int>(word, L'x', integer);
    if (!size || size->first < 1 || size->second < 1) return std::nullopt;
    command.sizes.push_back({size->first, size->second});
  }
  const bool enough = several ? !command.sizes.empty() : command.sizes.size() == 1;
  return enough ? std::optional(command) : std::nullopt;
}

void mustBeOne(host::Object& control, const host::Value& result) {
  if (result.number() == 1) return;
  throw host::HostError(E_FAIL, host::narrow(control.get(L"ErrorMessage").text()));
}

void drawSection(host::Object& control, const Command& command) {
  mustBeOne(control, control.call(L"NcFile", {command.file}));
  control.call(L"NewSection");
  for (const auto& [x, y] : command.path) control.call(L"AddSection", {x, y});
  mustBeOne(control, control.call(L"EndSection"));
  mustBeOne(control, control.call(L"SetVarByName", {command.variable}));
  // Drawing tells of a failure only by a new text.
  const std::wstring before = control.get(L"ErrorMessage").text();
  control.call(L"SetCurrentTime", {command.time});
  const std::wstring after = control.get(L"ErrorMessage").text();
  if (after != before) throw host::HostError(E_FAIL, host::narrow(after));
}

// Some failures, of drawing above all, are told only in a message box.
void mustBeQuiet(const host::BoxAnswerer& answerer) {
  if (answerer.boxes().empty()) return;
  throw host::HostError(E_FAIL, host::narrow(answerer.boxes().front().text));
}

host::Picture onForm(const Command& command) {
  host::Form form(kProgId, command.sizes[0].width, command.sizes[0].height);
  drawSection(form.control(), command);
  for (const Size& size : command.sizes) form.resize(size.width, size.height);
  form.pump();
  mustBeQuiet(form.answerer());
  return form.shoot();
}

host::Picture withoutForm(const Command& command) {
  const host::BoxAnswerer answerer;  // without a form, too, nobody sits at the boxes
  CLSID id = {};
  host::ComOwner<IUnknown> made;
  host::require(CLSIDFromProgID(kProgId, &id), "Kelvane.KelvaneCtl is not registered");
  host::require(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                 made.receiveAny()),
                "cannot make Kelvane.KelvaneCtl");
  host::Object control(made.get());
  const auto [width, height] = command.sizes[0];
  host::setExtent(control, width, height);
  drawSection(control, command);
  const host::Picture picture = host::drawWithoutForm(control, width, height);
  mustBeQuiet(answerer);
  return picture;
}

int run(const std::vector<std::wstring>& arguments) {
  if (arguments.size() == 1 && (arguments[0] == L"--help" || arguments[0] == L"-h")) {
    std::fputs(kHelp, stdout);
    return 0;
  }
  const std::optional<Command> command = parse(arguments);
  if (!command) {
    std::fputs(kHelp, stderr);
    return 2;
  }
  try {
    host::savePicture(command->kind == L"oledraw" ? withoutForm(*command) : onForm(*command),
                      command->out);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kelvane-shot: %s\n", error.what());
    return 1;
  }
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* given = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::vector<std::wstring> arguments(given + 1, given + count);
  LocalFree(given);
  OleInitialize(nullptr);
  const int status = run(arguments);
  OleUninitialize();
  return status;
}
