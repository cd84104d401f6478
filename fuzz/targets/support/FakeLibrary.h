#pragma once

#include "targets/support/Input.h"

namespace fuzz {

// Puts a netCDF library in the place of the real one whose data sets, answers and refusals come
// from the input: what no file and no server has ever held. It keeps the promises of the interface
// (names within NC_MAX_NAME bytes, as many values as were asked for) and no others: a data set that
// is opened again may be another one. The input must outlive it; the real library is back at the
// end.
class FakeLibrary {
 public:
  explicit FakeLibrary(Input& input);
  ~FakeLibrary();
  FakeLibrary(const FakeLibrary&) = delete;
  FakeLibrary& operator=(const FakeLibrary&) = delete;
};

}  // namespace fuzz
