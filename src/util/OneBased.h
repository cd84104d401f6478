#pragma once

#include <cstdint>
#include <vector>

#include "util/RuntimeError.h"

namespace util {

// A list counted from 1, as the host and every record of this system count. An index outside
// 1..size() is run-time error 9, so that no foreign index can reach memory it does not own.
template <class T>
class OneBased {
 public:
  OneBased() = default;
  explicit OneBased(int32_t count, const T& value = T()) { assign(count, value); }
  OneBased(std::initializer_list<T> values) : items_(values) {}

  int32_t size() const noexcept { return static_cast<int32_t>(items_.size()); }
  bool empty() const noexcept { return items_.empty(); }
  bool has(int64_t index) const noexcept { return index >= 1 && index <= size(); }
  void clear() noexcept { items_.clear(); }

  T& operator()(int64_t index) { return items_[place(index)]; }
  const T& operator()(int64_t index) const { return items_[place(index)]; }

  // Makes the list 1..count afresh, every element equal to value. A negative count is error 9.
  void assign(int32_t count, const T& value = T()) {
    if (count < 0) raise(kSubscript);
    items_.assign(static_cast<std::size_t>(count), value);
  }
  // Makes the list 1..count and keeps what it holds. A count below 1 is error 9: the range
  // 1..0 does not exist.
  void resizeKeeping(int32_t count) {
    if (count < 1) raise(kSubscript);
    items_.resize(static_cast<std::size_t>(count));
  }
  void push(T value) { items_.push_back(std::move(value)); }

  T* data() noexcept { return items_.data(); }
  const T* data() const noexcept { return items_.data(); }
  auto begin() noexcept { return items_.begin(); }
  auto end() noexcept { return items_.end(); }
  auto begin() const noexcept { return items_.begin(); }
  auto end() const noexcept { return items_.end(); }

 private:
  std::size_t place(int64_t index) const {
    if (!has(index)) raise(kSubscript);
    return static_cast<std::size_t>(index - 1);
  }
  std::vector<T> items_;
};

}  // namespace util
