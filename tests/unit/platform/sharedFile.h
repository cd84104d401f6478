#pragma once

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/files.h"

namespace support {

// What came of two threads that write one file while a third reads it.
struct SharedFile {
  int written = 0, read = 0;
  int mixed = 0;  // times that something else was read than one of the written texts as a whole
  std::vector<std::string> writeFailures, readFailures;
};

// Each thread writes a long text of its own `times` times; the reader reads until both are done.
inline SharedFile shareFile(const std::string& path, int times) {
  // Long enough for a reader to come in between, where a text is written in place.
  constexpr std::size_t kLength = 300'000;
  SharedFile result;
  std::mutex guard;
  std::atomic<int> writing{2};
  platform::writeWholeFile(path, std::string(kLength, 'a'));
  const auto write = [&](char letter) {
    const std::string text(kLength, letter);
    for (int count = 0; count < times; ++count) {
      std::string failure;
      try {
        platform::writeWholeFile(path, text);
      } catch (const std::runtime_error& error) {
        failure = error.what();
      }
      const std::lock_guard lock(guard);
      if (failure.empty()) {
        ++result.written;
      } else {
        result.writeFailures.push_back(failure);
      }
    }
    --writing;
  };
  const auto readOnce = [&] {
    try {
      const std::string text = platform::readWholeFile(path, 2 * kLength);
      ++result.read;
      if (text != std::string(kLength, 'a') && text != std::string(kLength, 'b')) ++result.mixed;
    } catch (const std::runtime_error& error) {
      result.readFailures.emplace_back(error.what());
    }
  };
  std::thread first(write, 'a'), second(write, 'b');
  std::thread reader([&] {
    while (writing > 0) readOnce();
    readOnce();
  });
  first.join();
  second.join();
  reader.join();
  return result;
}

}  // namespace support
