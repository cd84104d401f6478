// kelvane-frames: how long the registered control takes for frames on a form, beside the bare calls
// of the netCDF library for the same values and one fill of the picture, all in one process and in
// turn. Writes one line of JSON, times in milliseconds.
//   kelvane-frames NAME FILE "lon,lat lon,lat ..." FRAMES
#include <ole2.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "BareReads.h"
#include "BlankPictureBox.h"
#include "ComOwner.h"
#include "Form.h"
#include "activex/dialogs/ids.h"
#include "control/KelvaneCtl.h"
#include "netcdf/ncf.h"
#include "section/sectionPath.h"

namespace {

constexpr int kWidth = 1000, kHeight = 600;

using Corners = std::vector<std::pair<double, double>>;

Corners parsePath(const std::string& text) {
  Corners corners;
  std::istringstream words(text);
  double x = 0, y = 0;
  for (char comma = 0; words >> x >> comma >> y;) corners.emplace_back(x, y);
  return corners;
}

struct QuietDesktop : platform::Desktop {
  void ShowMessage(std::string_view, std::string_view, platform::MessageIcon) override {}
  void SetWaitPointer(bool) override {}
};

// The cells that a path crosses, as the core in this program finds them.
std::vector<bench::BareReads::Place> cellsOf(const std::string& file, const Corners& corners) {
  cli::BlankPictures pictures;
  QuietDesktop desktop;
  control::KelvaneCtl core(pictures.pictures(), desktop);
  if (core.NcFile(file) != 1) throw host::HostError(E_FAIL, core.ErrorMessage());
  for (const auto& [x, y] : corners) core.AddSection(static_cast<float>(x), static_cast<float>(y));
  if (core.EndSection() != 1) throw host::HostError(E_FAIL, core.ErrorMessage());
  std::vector<bench::BareReads::Place> places;
  for (const KelvaneMain::Cell cell : KelvaneMain::section.column_cells) {
    places.emplace_back(static_cast<std::size_t>(cell.i - 1), static_cast<std::size_t>(cell.j - 1));
  }
  return places;
}

void mustBeOne(host::Object& control, const host::Value& result) {
  if (result.number() == 1) return;
  throw host::HostError(E_FAIL, host::narrow(control.get(L"ErrorMessage").text()));
}

void open(host::Object& control, const std::string& file, const Corners& corners) {
  mustBeOne(control, control.call(L"NcFile", {host::wide(file)}));
  control.call(L"NewSection");
  for (const auto& [x, y] : corners) control.call(L"AddSection", {x, y});
  mustBeOne(control, control.call(L"EndSection"));
  control.call(L"SetCurrentTime", {1});
}

void CALLBACK chooseContourLines(HWND, UINT, UINT_PTR, DWORD) {
  const HWND dialog = FindWindowW(nullptr, L"Section View Options");
  if (dialog == nullptr) return;
  for (const int button : {IDC_OPTVIEWSTYLE1, IDOK}) {
    SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
  }
}

// As a user does it: only the dialog can, which lets the thread's timers run.
void turnContourLinesOn(host::Object& control) {
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, chooseContourLines);
  control.call(L"ShowOptions");
  KillTimer(nullptr, timer);
}

// What is measured, with its times.
struct Part {
  const char* name;
  std::function<void()> work;
  std::vector<double> times;
};

void measure(std::vector<Part>& parts, int frames) {
  for (int n = 0; n < frames; ++n) {
    for (Part& part : parts) {
      const auto start = std::chrono::steady_clock::now();
      part.work();
      const std::chrono::duration<double, std::milli> took =
          std::chrono::steady_clock::now() - start;
      part.times.push_back(took.count());
    }
  }
}

void run(const std::string& name, const std::string& file, const Corners& corners, int frames) {
  const std::vector<bench::BareReads::Place> cells = cellsOf(file, corners);
  bench::BareReads bare(file, cells);
  host::Form form(L"Kelvane.KelvaneCtl", kWidth, kHeight);
  open(form.control(), file, corners);
  std::vector<uint32_t> pixels(std::size_t{kWidth} * kHeight);
  volatile uint32_t seen = 0;
  uint32_t colour = 0;
  // Every part goes through all steps, so that none finds the values of the one before.
  const auto steps = static_cast<std::size_t>(ocxNetNc::ncf.ntime);
  std::size_t step = 0;
  std::vector<Part> parts = {{"frame",
                              [&] {
                                form.control().call(L"AdvanceTime", {1});
                                form.pump();
                              },
                              {}},
                             {"redraw",
                              [&] {
                                form.control().call(L"ReDraw");
                                form.pump();
                              },
                              {}},
                             {"columns", [&] { bare.columnByColumn(step); }, {}},
                             {"box", [&] { bare.boundingBox(step = (step + 1) % steps); }, {}},
                             {"fill",
                              [&] {
                                std::fill(pixels.begin(), pixels.end(), ++colour);
                                seen = pixels[colour % pixels.size()];
                              },
                              {}}};
  measure(parts, frames);
  turnContourLinesOn(form.control());
  std::vector<Part> withContours = {{"contours", parts[1].work, {}}};
  measure(withContours, frames);
  parts.push_back(withContours.front());
  if (!form.answerer().boxes().empty()) {
    throw host::HostError(E_FAIL, host::narrow(form.answerer().boxes().front().text));
  }
  std::printf("{\"name\": \"%s\", \"cells\": \"%zu columns\"", name.c_str(), cells.size());
  for (const Part& part : parts) {
    std::printf(", \"%s\": [", part.name);
    for (std::size_t n = 0; n < part.times.size(); ++n) {
      std::printf("%s%.3f", n > 0 ? ", " : "", part.times[n]);
    }
    std::printf("]");
  }
  std::printf("}\n");
}

}  // namespace

int main(int count, char** arguments) {
  const int frames = count == 5 ? std::atoi(arguments[4]) : 0;
  if (frames < 1) {
    std::fputs("usage: kelvane-frames NAME FILE \"lon,lat lon,lat ...\" FRAMES\n", stderr);
    return 2;
  }
  OleInitialize(nullptr);
  int status = 0;
  try {
    run(arguments[1], arguments[2], parsePath(arguments[3]), frames);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kelvane-frames: %s\n", error.what());
    status = 1;
  }
  OleUninitialize();
  return status;
}
