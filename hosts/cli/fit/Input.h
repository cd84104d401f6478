#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "header/header.h"

namespace cli::fit {

// A data set to be read: its header, and values of its variables.
class Input {
 public:
  virtual ~Input() = default;

  virtual const Header& header() const = 0;
  // What the data set has beside the header and cannot be copied, in words.
  virtual const std::vector<std::string>& leftOut() const {
    static const std::vector<std::string> nothing;
    return nothing;
  }
  // A hyperslab of a variable as doubles, row by row; characters are their codes. start and count
  // have a number for each dimension. Throws Failure.
  virtual void read(int variable, const std::vector<std::size_t>& start,
                    const std::vector<std::size_t>& count, double* values) const = 0;

  // All values of a variable; for coordinates only.
  std::vector<double> whole(int variable) const;
  // The rows of a variable of characters with one or two dimensions, without blanks at their ends.
  std::vector<std::string> texts(int variable) const;
  // The number of values of a variable.
  std::size_t size(int variable) const;
};

}  // namespace cli::fit
