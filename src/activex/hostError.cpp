#include "activex/hostError.h"

#include <oleauto.h>

#include "activex/ComPtr.h"
#include "activex/guids.h"
#include "platform/gdi/wideText.h"
#include "util/RuntimeError.h"

namespace activex {
namespace {

// Where hosts look for the classic error numbers.
constexpr HRESULT classicError(int number) {
  return static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
}

void publish(const std::string& description) {
  ComPtr<ICreateErrorInfo> maker;
  if (FAILED(CreateErrorInfo(maker.receive()))) return;
  // The calls copy their texts and only read them, whatever their parameter types say.
  std::wstring text = platform::toWide(description);
  std::wstring source = L"KelvaneCtl";
  maker->SetGUID(IID__KelvaneCtl);
  maker->SetSource(source.data());
  maker->SetDescription(text.data());
  if (const auto info = maker.as<IErrorInfo>()) SetErrorInfo(0, info.get());
}

}  // namespace

HRESULT hostError() noexcept {
  try {
    const util::ErrorInfo error = util::currentError();
    publish(error.description);
    return classicError(error.number);
  } catch (...) {
    return classicError(util::kOutOfMemory);
  }
}

HRESULT busyError() noexcept {
  try {
    publish("Another member of the control has not ended yet");
  } catch (...) {  // no memory for the text; the code says it as well
  }
  return RPC_E_CALL_REJECTED;
}

void giveException(HRESULT code, EXCEPINFO* exception) noexcept {
  ComPtr<IErrorInfo> info;
  const bool told = GetErrorInfo(0, info.receive()) == S_OK;
  if (exception == nullptr) return;
  *exception = {};
  exception->scode = code;
  if (!told) return;
  info->GetSource(&exception->bstrSource);
  info->GetDescription(&exception->bstrDescription);
}

}  // namespace activex
