#include "activex/dataChange.h"

#include <vector>

namespace activex {
namespace {

// What one sink asked for, and a reference to it.
struct Connection {
  explicit Connection(STATDATA& from) : data(from) { from = {}; }
  Connection(Connection&& other) noexcept : data(other.data) { other.data = {}; }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() {
    CoTaskMemFree(data.formatetc.ptd);
    if (data.pAdvSink != nullptr) data.pAdvSink->Release();
  }

  STATDATA data;
};

// All of them before any is told, since a sink may connect others or part itself.
std::vector<Connection> connections(IDataAdviseHolder& holder) {
  std::vector<Connection> all;
  ComPtr<IEnumSTATDATA> list;
  if (FAILED(holder.EnumAdvise(list.receive())) || !list) return all;
  STATDATA next = {};
  while (list->Next(1, &next, nullptr) == S_OK) all.emplace_back(next);
  return all;
}

}  // namespace

void sendDataChange(IUnknown& object, ComPtr<IDataAdviseHolder> holder) {
  if (!holder) return;
  const auto source = ComPtr<IUnknown>(&object).as<IDataObject>();
  for (const Connection& connection : connections(*holder.get())) {
    STATDATA data = connection.data;
    // First, since what a sink does now may change the picture again.
    if ((data.advf & ADVF_ONLYONCE) != 0) holder->Unadvise(data.dwConnection);
    STGMEDIUM medium = {};
    if ((data.advf & ADVF_NODATA) == 0) source->GetData(&data.formatetc, &medium);
    data.pAdvSink->OnDataChange(&data.formatetc, &medium);
    ReleaseStgMedium(&medium);
  }
}

}  // namespace activex
