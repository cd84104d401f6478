#include "netcdf/classicHeader.h"

#include <netcdf.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>
#include <vector>

namespace ocxNetNc {
namespace {

constexpr int64_t kLargest = std::numeric_limits<int64_t>::max();
constexpr int64_t kStreaming = -1;  // a record count left open by a writer that cannot go back

struct Broken {};

// Sums and products of sizes, all at least 0.
int64_t sum(int64_t a, int64_t b) {
  if (a > kLargest - b) throw Broken{};
  return a + b;
}
int64_t product(int64_t a, int64_t b) {
  if (b != 0 && a > kLargest / b) throw Broken{};
  return a * b;
}
int64_t padded(int64_t size) { return sum(size, (4 - size % 4) % 4); }

int64_t sizeOfType(int64_t type) {
  static constexpr std::array<int64_t, 12> kSizes = {0, 1, 1, 2, 4, 4, 8, 1, 2, 4, 8, 8};
  return kSizes[static_cast<std::size_t>(type)];
}

// The file as a row of big-endian numbers; reading beyond its end throws Broken.
class Source {
 public:
  Source(const std::filesystem::path& path, int64_t size)
      : stream_(path, std::ios::binary), size_(size) {}

  int64_t position() const { return position_; }
  int64_t left() const { return size_ - position_; }

  int64_t number(int bytes) {
    if (left() < bytes) throw Broken{};
    uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) {
      const int byte = stream_.get();
      if (byte == std::char_traits<char>::eof()) throw Broken{};
      value = value << 8 | static_cast<uint64_t>(byte);
    }
    position_ += bytes;
    return static_cast<int64_t>(value);
  }
  void skip(int64_t bytes) {
    if (left() < bytes) throw Broken{};
    // Seeking throws away what the stream has read ahead: names and most texts are in there.
    if (bytes <= kReadThrough) {
      stream_.ignore(static_cast<std::streamsize>(bytes));
    } else {
      stream_.seekg(static_cast<std::streamoff>(bytes), std::ios::cur);
    }
    position_ += bytes;
  }

 private:
  static constexpr int64_t kReadThrough = 65536;

  std::ifstream stream_;
  int64_t size_;
  int64_t position_ = 0;
};

struct Variable {
  bool record = false;
  int64_t size = 0;  // bytes, of one record for a record variable
  int64_t begin = 0;
};

class HeaderReader {
 public:
  HeaderReader(Source& source, int version)
      : source_(source),
        countBytes_(version == 5 ? 8 : 4),
        offsetBytes_(version == 1 ? 4 : 8),
        lastType_(version == 5 ? NC_UINT64 : NC_DOUBLE) {}

  // Reads the header behind the magic number; throws Broken.
  void read() {
    records_ = source_.number(countBytes_);
    if (countBytes_ == 4 && records_ == 0xFFFFFFFF) records_ = kStreaming;
    if (records_ < kStreaming) throw Broken{};
    for (int64_t left = listOf(kDimensions); left > 0; --left) readDimension();
    readAttributes();
    for (int64_t left = listOf(kVariables); left > 0; --left) readVariable();
    for (const Variable& variable : variables_) {
      if (variable.begin < source_.position()) throw Broken{};
    }
  }

  // Where the data end that the header describes.
  int64_t endOfData() const {
    int64_t end = 0;
    for (const Variable& variable : variables_) {
      if (!variable.record) end = std::max(end, sum(variable.begin, variable.size));
    }
    if (records_ < 1) return end;
    const int64_t before = product(records_ - 1, recordSize());
    for (const Variable& variable : variables_) {
      if (variable.record) {
        end = std::max(end, sum(sum(variable.begin, variable.size), before));
      }
    }
    return end;
  }

 private:
  static constexpr int64_t kDimensions = 10;
  static constexpr int64_t kVariables = 11;
  static constexpr int64_t kAttributes = 12;

  int64_t count() {
    const int64_t value = source_.number(countBytes_);
    if (value < 0) throw Broken{};
    return value;
  }

  // The number of elements of a list; each takes some bytes, so that there cannot be more than
  // the file has.
  int64_t listOf(int64_t tag) {
    const int64_t stored = source_.number(4);
    const int64_t elements = count();
    if (stored != tag && (stored != 0 || elements != 0)) throw Broken{};
    if (elements > source_.left() / 4) throw Broken{};
    return elements;
  }

  void skipName() {
    const int64_t length = count();
    if (length < 1 || length > NC_MAX_NAME) throw Broken{};
    source_.skip(padded(length));
  }

  int64_t type() {
    const int64_t stored = source_.number(4);
    if (stored < NC_BYTE || stored > lastType_) throw Broken{};
    return stored;
  }

  void readDimension() {
    skipName();
    const int64_t length = count();
    const bool unlimited = length == 0;
    if (unlimited && std::count(lengths_.begin(), lengths_.end(), 0) != 0) throw Broken{};
    lengths_.push_back(length);
  }

  void readAttributes() {
    for (int64_t left = listOf(kAttributes); left > 0; --left) {
      skipName();
      const int64_t size = sizeOfType(type());
      source_.skip(padded(product(count(), size)));
    }
  }

  void readVariable() {
    skipName();
    const int64_t rank = count();
    if (rank > NC_MAX_VAR_DIMS) throw Broken{};
    Variable variable;
    variable.size = 1;
    for (int64_t place = 0; place < rank; ++place) {
      const auto dimension = static_cast<uint64_t>(source_.number(countBytes_));
      if (dimension >= lengths_.size()) throw Broken{};
      const int64_t length = lengths_[static_cast<std::size_t>(dimension)];
      if (length == 0 && place != 0) throw Broken{};
      if (length == 0) {
        variable.record = true;
      } else {
        variable.size = product(variable.size, length);
      }
    }
    readAttributes();
    variable.size = product(variable.size, sizeOfType(type()));
    source_.skip(countBytes_);  // the stored size says nothing new
    variable.begin = source_.number(offsetBytes_);
    if (variable.begin < 0) throw Broken{};
    variables_.push_back(variable);
  }

  // The distance between records: what all record variables take, rounded up to four bytes each
  // unless there is only one.
  int64_t recordSize() const {
    int64_t raw = 0;
    int64_t whole = 0;
    int64_t variables = 0;
    for (const Variable& variable : variables_) {
      if (!variable.record) continue;
      ++variables;
      raw = variable.size;
      whole = sum(whole, padded(variable.size));
    }
    return variables == 1 ? raw : whole;
  }

  Source& source_;
  int countBytes_;
  int offsetBytes_;
  int64_t lastType_;
  int64_t records_ = 0;
  std::vector<int64_t> lengths_;  // of the dimensions; 0 is the record dimension
  std::vector<Variable> variables_;
};

HeaderState check(const std::filesystem::path& path) {
  const std::filesystem::file_status status = std::filesystem::status(path);
  // Opening one of these would wait for somebody at the other end.
  if (is_fifo(status) || is_socket(status)) return HeaderState::Broken;
  if (!is_regular_file(status)) return HeaderState::Sound;
  const auto size = static_cast<int64_t>(std::filesystem::file_size(path));
  Source source(path, size);
  try {
    if (source.number(3) != 0x434446) return HeaderState::Sound;  // "CDF"
    const int64_t version = source.number(1);
    if (version != 1 && version != 2 && version != 5) return HeaderState::Sound;
    HeaderReader header(source, static_cast<int>(version));
    header.read();
    return header.endOfData() > size ? HeaderState::CutShort : HeaderState::Sound;
  } catch (const Broken&) {
    return source.position() < 4 ? HeaderState::Sound : HeaderState::Broken;
  }
}

}  // namespace

HeaderState checkClassicHeader(const std::string& name) {
  try {
    return check(std::filesystem::path(name));
  } catch (const std::system_error&) {
    return HeaderState::Sound;  // no file that can be looked at
  }
}

}  // namespace ocxNetNc
