#include "fit/Input.h"

#include "util/ocxStrings.h"

namespace cli::fit {

std::size_t Input::size(int variable) const {
  std::size_t product = 1;
  for (const int dim : header().vars[static_cast<std::size_t>(variable)].dims) {
    product *= header().dims[static_cast<std::size_t>(dim)].length;
  }
  return product;
}

std::vector<double> Input::whole(int variable) const {
  std::vector<std::size_t> count;
  for (const int dim : header().vars[static_cast<std::size_t>(variable)].dims) {
    count.push_back(header().dims[static_cast<std::size_t>(dim)].length);
  }
  std::vector<double> values(size(variable));
  if (!values.empty()) {
    read(variable, std::vector<std::size_t>(count.size(), 0), count, values.data());
  }
  return values;
}

std::vector<std::string> Input::texts(int variable) const {
  const Variable& described = header().vars[static_cast<std::size_t>(variable)];
  const std::vector<double> codes = whole(variable);
  const std::size_t width =
      described.dims.empty()
          ? 1
          : header().dims[static_cast<std::size_t>(described.dims.back())].length;
  std::vector<std::string> rows;
  for (std::size_t first = 0; width > 0 && first + width <= codes.size(); first += width) {
    std::string row;
    for (std::size_t at = first; at < first + width && codes[at] != 0.0; ++at) {
      row += static_cast<char>(static_cast<unsigned char>(codes[at]));
    }
    rows.push_back(ocxStrings::trim(row));
  }
  return rows;
}

}  // namespace cli::fit
