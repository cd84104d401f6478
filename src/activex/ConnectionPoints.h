#pragma once

#include <windows.h>

#include <ocidl.h>

#include <vector>

#include "activex/ComPtr.h"
#include "activex/Role.h"

namespace activex {

// Where sinks for the control's events connect. The control fires none, but hosts that handle
// events connect to every control, and some give up on one that has no such place. An object of
// its own to COM; its life is the control's.
class EventPoint final : public IConnectionPoint {
 public:
  explicit EventPoint(IUnknown& control) : control_(control) {}
  EventPoint(const EventPoint&) = delete;
  EventPoint& operator=(const EventPoint&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** answer) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return control_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return control_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** container) override;
  // CONNECT_E_CANNOTCONNECT when the sink is for other events.
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD number;
    ComPtr<IUnknown> sink;
  };
  struct Listed;

  IUnknown& control_;
  std::vector<Connection> all_;
  DWORD last_ = 0;
};

// Leads to the one connection point of the control.
class ConnectionPoints final : public Role<IConnectionPointContainer> {
 public:
  explicit ConnectionPoints(IUnknown& object) : Role(object), events_(object) {}

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  // CONNECT_E_NOCONNECTION for all interfaces but that of the events.
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

 private:
  EventPoint events_;
};

}  // namespace activex
