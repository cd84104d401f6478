#pragma once

#include <string>

#include "interruption.h"

namespace cli {

// A file in the making beside its final place: removed at the end of the scope, and by a signal
// that ends the program, unless it was put in its place.
class UnfinishedFile {
 public:
  // path: the final place; a link is followed. Throws Failure for one that is no regular file.
  explicit UnfinishedFile(const std::string& path);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  // Where to write it.
  const std::string& path() const { return path_; }
  // Forces it to the disk and puts it in its place. Throws Failure.
  void finish();

 private:
  std::string target_, path_;
  SignalsRemoveFile signals_;
};

}  // namespace cli
