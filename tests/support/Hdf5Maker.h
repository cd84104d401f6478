#pragma once

#include <hdf5.h>

#include <string>
#include <vector>

namespace support {

// Makes small HDF5 files as other programs than the netCDF library write them: dimension scales and
// variables on them, with any type and storage, and links. Any refusal of the library throws. The
// same calls make the same bytes.
class Hdf5Maker {
 public:
  enum class Layout { Oldest, Newest };  // of what HDF5 has for groups, headers and indexes

  explicit Hdf5Maker(const std::string& path, Layout layout = Layout::Newest);
  ~Hdf5Maker();
  Hdf5Maker(const Hdf5Maker&) = delete;
  Hdf5Maker& operator=(const Hdf5Maker&) = delete;

  // A dimension with its variable of doubles; units may be empty.
  void axis(const std::string& name, const std::vector<double>& values, const std::string& units);
  // A creation list for a variable; the maker closes it.
  hid_t storage();
  // A type; the maker closes it.
  hid_t keep(hid_t type);

  // A variable on axes made before, of the file's type, without values.
  void variable(const std::string& name, hid_t type, const std::vector<std::string>& axes,
                hid_t storage = H5P_DEFAULT);
  // All its values, converted.
  void put(const std::string& name, const std::vector<double>& values);

  void group(const std::string& path);
  void hardLink(const std::string& path, const std::string& to);
  void softLink(const std::string& path, const std::string& to);
  void linkToOtherFile(const std::string& path, const std::string& file, const std::string& to);

  hid_t id() const { return file_; }

 private:
  struct Axis {
    std::string name;
    hsize_t length;
  };
  hsize_t length(const std::string& axis) const;

  hid_t file_ = -1;
  std::vector<Axis> axes_;
  std::vector<hid_t> lists_, types_;
};

}  // namespace support
