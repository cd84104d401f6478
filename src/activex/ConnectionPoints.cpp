#include "activex/ConnectionPoints.h"

#include <olectl.h>

#include <algorithm>

#include "activex/Enumerator.h"
#include "activex/guard.h"
#include "activex/guids.h"

namespace activex {
namespace {

struct Points {
  using Interface = IEnumConnectionPoints;
  using Kept = ComPtr<IConnectionPoint>;
  using Given = IConnectionPoint*;

  static bool give(const Kept& from, Given& to) noexcept {
    to = Kept(from).detach();
    return true;
  }
  static void takeBack(Given& given) noexcept {
    given->Release();
    given = nullptr;
  }
};

}  // namespace

struct EventPoint::Listed {
  using Interface = IEnumConnections;
  using Kept = Connection;
  using Given = CONNECTDATA;

  static bool give(const Connection& from, CONNECTDATA& to) noexcept {
    to = {ComPtr<IUnknown>(from.sink).detach(), from.number};
    return true;
  }
  static void takeBack(CONNECTDATA& given) noexcept {
    given.pUnk->Release();
    given = {};
  }
};

HRESULT STDMETHODCALLTYPE EventPoint::QueryInterface(REFIID iid, void** answer) {
  if (answer == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IConnectionPoint;
  *answer = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT STDMETHODCALLTYPE EventPoint::GetConnectionInterface(IID* iid) {
  if (iid == nullptr) return E_POINTER;
  *iid = DIID___KelvaneCtl;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE
EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  return control_.QueryInterface(IID_IConnectionPointContainer,
                                 reinterpret_cast<void**>(container));
}

HRESULT STDMETHODCALLTYPE EventPoint::Advise(IUnknown* sink, DWORD* connection) {
  if (connection != nullptr) *connection = 0;
  if (sink == nullptr || connection == nullptr) return E_POINTER;
  return guarded(control_, [&]() -> HRESULT {
    Connection made = {0, {}};
    // Sinks that scripts bring along are known by IDispatch only.
    if (FAILED(sink->QueryInterface(DIID___KelvaneCtl, made.sink.receiveAny())) &&
        FAILED(sink->QueryInterface(IID_IDispatch, made.sink.receiveAny()))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    made.number = ++last_;
    all_.push_back(made);
    *connection = made.number;
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE EventPoint::Unadvise(DWORD connection) {
  return guarded(control_, [&]() -> HRESULT {
    const auto found = std::find_if(all_.begin(), all_.end(), [&](const Connection& candidate) {
      return candidate.number == connection;
    });
    if (found == all_.end()) return CONNECT_E_NOCONNECTION;
    const Connection parted = *found;  // the sink may come back here when it is let go
    all_.erase(found);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE EventPoint::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return guarded(control_, [&] {
    *connections = new Enumerator<Listed>(all_);
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return guarded(object(), [&] {
    *points = new Enumerator<Points>({ComPtr<IConnectionPoint>(&events_)});
    return S_OK;
  });
}

HRESULT STDMETHODCALLTYPE ConnectionPoints::FindConnectionPoint(REFIID iid,
                                                                IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (iid != DIID___KelvaneCtl) return CONNECT_E_NOCONNECTION;
  return events_.QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(point));
}

}  // namespace activex
