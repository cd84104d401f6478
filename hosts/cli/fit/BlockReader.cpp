#include "fit/BlockReader.h"

#include <algorithm>

namespace cli::fit {

BlockReader::BlockReader(const Input& input, const Plan& plan, const PlanVar& variable)
    : input_(input), plan_(plan), variable_(variable) {
  for (const int dim : input.header().vars[static_cast<std::size_t>(variable.source)].dims) {
    const auto at = std::ranges::find(variable.dims, dim);
    positions_.push_back(at == variable.dims.end() ? -1
                                                   : static_cast<int>(at - variable.dims.begin()));
  }
}

bool BlockReader::isOfInput(std::size_t at) const {
  return std::ranges::find(positions_, static_cast<int>(at)) != positions_.end();
}

std::vector<BlockReader::Run> BlockReader::runsOf(const std::vector<std::size_t>& index,
                                                  std::size_t start, std::size_t count) {
  std::vector<Run> runs;
  std::size_t at = start;
  const std::size_t end = start + count;
  while (at < end) {
    std::size_t next = at + 1;
    const bool down = next < end && index[next] + 1 == index[at];
    if (down) {
      while (next < end && index[next] + 1 == index[next - 1]) ++next;
      runs.push_back({index[next - 1], next - at, next - 1 - start, true});
    } else {
      while (next < end && index[next] == index[next - 1] + 1) ++next;
      runs.push_back({index[at], next - at, at - start, false});
    }
    at = next;
  }
  return runs;
}

void BlockReader::scatter(const std::vector<Run>& runs, std::vector<double>& values) const {
  const std::size_t rank = runs.size();
  std::ptrdiff_t place = 0;
  std::vector<std::ptrdiff_t> steps(rank);
  for (std::size_t k = 0; k < rank; ++k) {
    place += static_cast<std::ptrdiff_t>(runs[k].place) * strides_[k];
    steps[k] = runs[k].turned ? -strides_[k] : strides_[k];
  }
  if (rank == 0) {
    values[0] = buffer_[0];
    return;
  }
  std::vector<std::size_t> at(rank, 0);
  const std::size_t last = rank - 1;
  const double* from = buffer_.data();
  for (;;) {
    std::ptrdiff_t to = place;
    for (std::size_t i = 0; i < runs[last].length; ++i, to += steps[last]) {
      values[static_cast<std::size_t>(to)] = *from++;
    }
    std::size_t k = last;
    for (;;) {
      if (k == 0) return;
      --k;
      place += steps[k];
      if (++at[k] < runs[k].length) break;
      place -= steps[k] * static_cast<std::ptrdiff_t>(runs[k].length);
      at[k] = 0;
    }
  }
}

void BlockReader::read(const std::vector<std::size_t>& start, const std::vector<std::size_t>& count,
                       std::vector<double>& values) {
  std::vector<std::ptrdiff_t> blockStrides(count.size());
  std::ptrdiff_t all = 1;
  for (std::size_t at = count.size(); at-- > 0;) {
    blockStrides[at] = all;
    all *= static_cast<std::ptrdiff_t>(count[at]);
  }
  values.resize(static_cast<std::size_t>(all));
  const std::vector<int>& dims =
      input_.header().vars[static_cast<std::size_t>(variable_.source)].dims;
  const std::size_t rank = dims.size();
  strides_.assign(rank, 0);
  std::vector<std::vector<Run>> choices(rank);
  for (std::size_t k = 0; k < rank; ++k) {
    const std::vector<std::size_t>& index = plan_.dims[static_cast<std::size_t>(dims[k])].index;
    if (positions_[k] < 0) {
      choices[k] = runsOf(index, 0, 1);
    } else {
      const auto position = static_cast<std::size_t>(positions_[k]);
      strides_[k] = blockStrides[position];
      choices[k] = runsOf(index, start[position], count[position]);
    }
  }
  // Every combination of runs is a hyperslab of the input.
  std::vector<std::size_t> at(rank, 0);
  for (;;) {
    std::vector<Run> runs;
    std::vector<std::size_t> from, lengths;
    std::size_t size = 1;
    for (std::size_t k = 0; k < rank; ++k) {
      runs.push_back(choices[k][at[k]]);
      from.push_back(runs[k].first);
      lengths.push_back(runs[k].length);
      size *= runs[k].length;
    }
    buffer_.resize(size);
    input_.read(variable_.source, from, lengths, buffer_.data());
    scatter(runs, values);
    std::size_t k = rank;
    for (;;) {
      if (k == 0) return;
      --k;
      if (++at[k] < choices[k].size()) break;
      at[k] = 0;
    }
  }
}

}  // namespace cli::fit
