#pragma once

#include <Array.h>

#include "NcFile.h"

namespace dapserver {

// A variable of a file as an array that is read when it is sent, and no more of it than a
// constraint asks for. Characters are strings along their last dimension.
class ServedArray : public libdap::Array {
 public:
  ServedArray(const NcFile& file, const NcFile::Variable& variable);

  libdap::BaseType* ptr_duplicate() override { return new ServedArray(*this); }
  bool read() override;

 private:
  template <class Number>
  void readNumbers();
  void readStrings();

  const NcFile* file_;
  NcFile::Variable variable_;
};

// Whether DAP 2 has a type for a variable of the file.
bool canBeServed(const NcFile::Variable& variable);
// A variable without dimensions, or a text, with its value.
std::unique_ptr<libdap::BaseType> servedScalar(const NcFile& file,
                                               const NcFile::Variable& variable);
// The number of dimensions that remain when characters have become strings.
std::size_t servedRank(const NcFile::Variable& variable);

}  // namespace dapserver
