#pragma once

#include <windows.h>

#include <ole2.h>

#include <vector>

#include "activex/ComPtr.h"

namespace activex {

// Who wants to hear that the picture as data has changed, and in which form each wants it. The
// system has a holder for such connections, but leaves it open which of the flags it heeds and
// who frees what was sent.
//
// Flags: ADVF_NODATA sends the mere news, ADVF_PRIMEFIRST sends at once, ADVF_ONLYONCE parts after
// the first sending, and ADVF_DATAONSTOP sends the data once more when the object is closed, even
// with ADVF_NODATA. The others concern caches and make no difference.
class DataSinks {
 public:
  explicit DataSinks(IUnknown& object) : object_(object) {}

  // The number of the connection, never 0. A target device is not kept, since it makes no
  // difference to the data.
  DWORD add(const FORMATETC& format, DWORD flags, IAdviseSink& sink);
  // False when there is no such connection.
  bool remove(DWORD connection);
  HRESULT list(IEnumSTATDATA** sinks) const;

  void changed();
  // The object is being closed.
  void stopping();

 private:
  struct Connection {
    FORMATETC format;
    DWORD flags, number;
    ComPtr<IAdviseSink> sink;
  };
  struct Listed;

  void send(const Connection& connection, bool withData);

  IUnknown& object_;
  std::vector<Connection> all_;
  DWORD last_ = 0;
};

}  // namespace activex
