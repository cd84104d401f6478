#include "dialogs/smallDialogs.h"

#include "container/controlFactory.h"
#include "dialogs/Dialog.h"
#include "ids.h"
#include "model/degrees.h"
#include "version.h"

namespace form {
namespace {

class AddressDialog final : public Dialog {
 public:
  explicit AddressDialog(std::wstring address)
      : Dialog(IDD_ADDRESS), address_(std::move(address)) {}
  bool ask(HWND owner) { return run(owner) == IDOK; }
  const std::wstring& address() const { return address_; }

 private:
  HWND onInit() override {
    setText(IDC_ADDRESS, address_);
    SendMessageW(item(IDC_ADDRESS), EM_SETSEL, 0, -1);
    enable(IDOK, !address_.empty());
    return item(IDC_ADDRESS);
  }
  void onCommand(int id, int notification) override {
    if (id == IDC_ADDRESS && notification == EN_CHANGE) {
      address_ = trimmed(textOf(IDC_ADDRESS));
      enable(IDOK, !address_.empty());
    }
    Dialog::onCommand(id, notification);
  }

  std::wstring address_;
};

class PictureSizeDialog final : public Dialog {
 public:
  explicit PictureSizeDialog(const PictureSize& size) : Dialog(IDD_PICTURE_SIZE), size_(size) {}
  bool ask(HWND owner) { return run(owner) == IDOK; }
  const PictureSize& size() const { return size_; }

 private:
  HWND onInit() override {
    SendMessageW(item(IDC_WIDTH), EM_SETLIMITTEXT, 6, 0);
    SendMessageW(item(IDC_HEIGHT), EM_SETLIMITTEXT, 6, 0);
    const std::wstring height = std::to_wstring(size_.height);
    setText(IDC_WIDTH, std::to_wstring(size_.width));
    setText(IDC_HEIGHT, height);
    SendMessageW(item(IDC_WIDTH), EM_SETSEL, 0, -1);
    return item(IDC_WIDTH);
  }
  void onCommand(int id, int notification) override {
    if (notification == EN_CHANGE) {
      std::wstring problem;
      const auto size = readPictureSize(textOf(IDC_WIDTH), textOf(IDC_HEIGHT), problem);
      if (size) size_ = *size;
      setText(IDC_PROBLEM, problem);
      enable(IDOK, size.has_value());
    }
    Dialog::onCommand(id, notification);
  }

  PictureSize size_;
};

class AboutDialog final : public Dialog {
 public:
  AboutDialog() : Dialog(IDD_ABOUT) {}
  void show(HWND owner) { run(owner); }

 private:
  HWND onInit() override {
    setText(IDC_ABOUT_NAME, L"KelvaneHost " KELVANE_VERSION_TEXT L" (" + std::to_wstring(kBits) +
                                L"-bit)");
    setText(IDC_ABOUT_TEXT,
            L"Vertical sections and profiles of ocean and atmosphere model output in netCDF data "
            L"sets, drawn by the control KelvaneCtl.\n\nThe Kelvane authors, MIT licence.");
    return nullptr;
  }
};

}  // namespace

std::optional<std::wstring> askAddress(HWND owner, const std::wstring& preset) {
  AddressDialog dialog(preset);
  return dialog.ask(owner) ? std::optional(dialog.address()) : std::nullopt;
}

std::optional<PictureSize> askPictureSize(HWND owner, const PictureSize& preset) {
  PictureSizeDialog dialog(preset);
  return dialog.ask(owner) ? std::optional(dialog.size()) : std::nullopt;
}

void showAbout(HWND owner) { AboutDialog().show(owner); }

}  // namespace form
