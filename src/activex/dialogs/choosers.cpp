#include "activex/dialogs/choosers.h"

#include <commdlg.h>

#include <algorithm>
#include <array>

#include "platform/gdi/wideText.h"

namespace activex {
namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);

std::array<COLORREF, 16>& customColours() {
  static std::array<COLORREF, 16> colours = [] {
    std::array<COLORREF, 16> white = {};
    std::fill(white.begin(), white.end(), kWhite);
    return white;
  }();
  return colours;
}

// The process's current folder, put back on every way out.
class CurrentFolder {
 public:
  CurrentFolder() : name_(GetCurrentDirectoryW(0, nullptr), L'\0') {
    name_.resize(GetCurrentDirectoryW(static_cast<DWORD>(name_.size()), name_.data()));
  }
  ~CurrentFolder() {
    if (!name_.empty()) SetCurrentDirectoryW(name_.c_str());
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::wstring name_;
};

// The longest path that Windows knows, with its closing zero.
constexpr std::size_t kLongestPath = 32768;

}  // namespace

std::optional<platform::Colour> chooseColor(HWND owner, platform::Colour preset) {
  CHOOSECOLORW choice = {};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = owner;
  choice.rgbResult = static_cast<COLORREF>(preset) & kWhite;
  choice.lpCustColors = customColours().data();
  choice.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
  if (!ChooseColorW(&choice)) return std::nullopt;
  return static_cast<platform::Colour>(choice.rgbResult & kWhite);
}

std::optional<std::string> chooseKewFile(HWND owner) {
  // The dialog is asked to leave it alone, which some versions of Windows do not.
  const CurrentFolder current;
  std::wstring name(kLongestPath, L'\0');
  OPENFILENAMEW choice = {};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = owner;
  choice.lpstrFilter = L"KEW Files(*.kew)\0*.kew\0";
  choice.lpstrFile = name.data();
  choice.nMaxFile = static_cast<DWORD>(name.size());
  choice.lpstrDefExt = L"kew";
  choice.Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST |
                 OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (!GetOpenFileNameW(&choice)) return std::nullopt;
  name.resize(name.find(L'\0'));
  return platform::toUtf8(name);
}

}  // namespace activex
