#include "support/Hdf5Maker.h"

#include <hdf5_hl.h>

#include <algorithm>
#include <stdexcept>

namespace support {
namespace {

template <class Result>
Result must(Result result) {
  if (result < 0) throw std::runtime_error("HDF5 refuses to make the file");
  return result;
}

void text(hid_t object, const std::string& name, const std::string& value) {
  must(H5LTset_attribute_string(object, ".", name.c_str(), value.c_str()));
}

}  // namespace

Hdf5Maker::Hdf5Maker(const std::string& path, Layout layout) {
  const hid_t access = must(H5Pcreate(H5P_FILE_ACCESS));
  if (layout == Layout::Newest) {
    must(H5Pset_libver_bounds(access, H5F_LIBVER_LATEST, H5F_LIBVER_LATEST));
  }
  file_ = must(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access));
  H5Pclose(access);
}

Hdf5Maker::~Hdf5Maker() {
  for (const hid_t list : lists_) H5Pclose(list);
  for (const hid_t type : types_) H5Tclose(type);
  H5Fclose(file_);
}

hsize_t Hdf5Maker::length(const std::string& axis) const {
  const auto found = std::ranges::find(axes_, axis, &Axis::name);
  if (found == axes_.end()) throw std::runtime_error("no axis " + axis);
  return found->length;
}

hid_t Hdf5Maker::storage() {
  lists_.push_back(must(H5Pcreate(H5P_DATASET_CREATE)));
  must(H5Pset_obj_track_times(lists_.back(), false));
  return lists_.back();
}

hid_t Hdf5Maker::keep(hid_t type) {
  types_.push_back(must(type));
  return type;
}

void Hdf5Maker::axis(const std::string& name, const std::vector<double>& values,
                     const std::string& units) {
  axes_.push_back({name, values.size()});
  variable(name, H5T_IEEE_F64LE, {});
  const hid_t made = must(H5Dopen2(file_, name.c_str(), H5P_DEFAULT));
  must(H5DSset_scale(made, name.c_str()));
  if (!units.empty()) text(made, "units", units);
  H5Dclose(made);
  put(name, values);
}

void Hdf5Maker::variable(const std::string& name, hid_t type, const std::vector<std::string>& axes,
                         hid_t storage) {
  std::vector<hsize_t> shape;
  for (const std::string& axis : axes) shape.push_back(length(axis));
  const bool scale = axes.empty();
  if (scale) shape.push_back(length(name));
  const hid_t space = must(H5Screate_simple(static_cast<int>(shape.size()), shape.data(), nullptr));
  const hid_t list = storage == H5P_DEFAULT ? this->storage() : storage;
  const hid_t made =
      must(H5Dcreate2(file_, name.c_str(), type, space, H5P_DEFAULT, list, H5P_DEFAULT));
  for (std::size_t i = 0; i < axes.size(); ++i) {
    const hid_t axis = must(H5Dopen2(file_, axes[i].c_str(), H5P_DEFAULT));
    must(H5DSattach_scale(made, axis, static_cast<unsigned>(i)));
    H5Dclose(axis);
  }
  if (!scale) text(made, "long_name", name);
  H5Dclose(made);
  H5Sclose(space);
}

void Hdf5Maker::put(const std::string& name, const std::vector<double>& values) {
  const hid_t made = must(H5Dopen2(file_, name.c_str(), H5P_DEFAULT));
  must(H5Dwrite(made, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data()));
  H5Dclose(made);
}

void Hdf5Maker::group(const std::string& path) {
  H5Gclose(must(H5Gcreate2(file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT)));
}

void Hdf5Maker::hardLink(const std::string& path, const std::string& to) {
  must(H5Lcreate_hard(file_, to.c_str(), file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT));
}

void Hdf5Maker::softLink(const std::string& path, const std::string& to) {
  must(H5Lcreate_soft(to.c_str(), file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT));
}

// The netCDF library has turned this kind of links off for the whole process: one of our own that
// writes the same.
void Hdf5Maker::linkToOtherFile(const std::string& path, const std::string& file,
                                const std::string& to) {
  const H5L_class_t links = {
      H5L_LINK_CLASS_T_VERS,
      H5L_TYPE_EXTERNAL,
      "elsewhere",
      nullptr,
      nullptr,
      nullptr,
      [](const char*, hid_t, const void*, size_t, hid_t, hid_t) -> hid_t { return -1; },
      nullptr,
      nullptr};
  must(H5Lregister(&links));
  const std::string where = std::string(1, '\0') + file + '\0' + to + '\0';
  must(H5Lcreate_ud(file_, path.c_str(), H5L_TYPE_EXTERNAL, where.data(), where.size(), H5P_DEFAULT,
                    H5P_DEFAULT));
  must(H5Lunregister(H5L_TYPE_EXTERNAL));
}

}  // namespace support
