#include "activex/DataSinks.h"

#include <algorithm>

#include "activex/Enumerator.h"

namespace activex {

struct DataSinks::Listed {
  using Interface = IEnumSTATDATA;
  using Kept = Connection;
  using Given = STATDATA;

  static bool give(const Connection& from, STATDATA& to) noexcept {
    to = {from.format, from.flags, ComPtr<IAdviseSink>(from.sink).detach(), from.number};
    return true;
  }
  static void takeBack(STATDATA& given) noexcept {
    given.pAdvSink->Release();
    given = {};
  }
};

DWORD DataSinks::add(const FORMATETC& format, DWORD flags, IAdviseSink& sink) {
  FORMATETC kept = format;
  kept.ptd = nullptr;
  const Connection made = {kept, flags, ++last_, ComPtr<IAdviseSink>(&sink)};
  const bool primed = (flags & ADVF_PRIMEFIRST) != 0;
  // With nothing left to send, there is nothing to keep.
  if (!primed || (flags & ADVF_ONLYONCE) == 0) all_.push_back(made);
  if (primed) send(made, (flags & ADVF_NODATA) == 0);
  return made.number;
}

bool DataSinks::remove(DWORD connection) {
  const auto found = std::find_if(all_.begin(), all_.end(), [&](const Connection& candidate) {
    return candidate.number == connection;
  });
  if (found == all_.end()) return false;
  const Connection parted = *found;  // the sink may come back here when it is let go
  all_.erase(found);
  return true;
}

HRESULT DataSinks::list(IEnumSTATDATA** sinks) const {
  *sinks = new Enumerator<Listed>(all_);
  return S_OK;
}

// Every sink gets what it was connected for, though others part or connect meanwhile.
void DataSinks::changed() {
  const std::vector<Connection> told = all_;
  for (const Connection& connection : told) {
    // First, since what a sink does now may change the picture again.
    if ((connection.flags & ADVF_ONLYONCE) != 0 && !remove(connection.number)) continue;
    send(connection, (connection.flags & ADVF_NODATA) == 0);
  }
}

void DataSinks::stopping() {
  const std::vector<Connection> told = all_;
  for (const Connection& connection : told) {
    if ((connection.flags & ADVF_DATAONSTOP) != 0) send(connection, true);
  }
}

void DataSinks::send(const Connection& connection, bool withData) {
  FORMATETC format = connection.format;
  STGMEDIUM medium = {};
  if (withData) {
    if (const auto source = ComPtr<IUnknown>(&object_).as<IDataObject>()) {
      source->GetData(&format, &medium);
    }
  }
  connection.sink->OnDataChange(&format, &medium);
  ReleaseStgMedium(&medium);
}

}  // namespace activex
