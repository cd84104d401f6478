#pragma once

#include <string>

#include "Http.h"

namespace dapserver {

// What a path asks for: "/FAULT[-ARGUMENT][.KIND[.FROM[.TO]]]/FILE.KIND", or just "/FILE.KIND".
// The fault concerns the requests of that kind (dds, das, dods, or any) from the FROMth on (1), as
// far as the TOth, counted for each address and kind by itself.
struct Selector {
  std::string fault;     // empty: none
  std::string argument;  // what follows its hyphen
  std::string faultyKind = "any";
  int from = 1;
  int to = 1 << 30;

  std::string file;  // decoded
  std::string kind;  // dds, das, dods
  std::string address;  // the path without the kind

  int64_t number() const;  // the argument as a number, 0 when it is none
  bool concerns(int count) const;
};

Selector selectorOf(const Request& request);

}  // namespace dapserver
