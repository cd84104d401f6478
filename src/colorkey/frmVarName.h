#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Dialog.h"

namespace ModColor {

// Lists the variable names of a colour-key file for the user to pick one.
class frmVarName : public platform::Dialog {
 public:
  // Fills the list from a file: the name of every variable element in document order, the empty
  // text where it has none. A file that cannot be loaded leaves the list empty.
  void filename(const std::string& name);

  const std::vector<std::string>& lstVarNames() const { return names_; }
  // The list's selected entry, from 0; -1 when none is.
  int32_t ListIndex = -1;

  // Takes the selected entry; the empty text when none is.
  void OK();
  void Cancel();

  int32_t Result() const { return result_; }  // -1 cancelled or closed, 1 after OK
  const std::string& varname() const { return varname_; }

 private:
  std::vector<std::string> names_;
  int32_t result_ = -1;
  std::string varname_;
};

}  // namespace ModColor
