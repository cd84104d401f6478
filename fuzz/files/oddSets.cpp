#include "oddSets.h"

#include <array>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "rising.h"
#include "support/Hdf5Maker.h"

namespace fuzz {
namespace {

using support::Hdf5Maker;

constexpr std::size_t kTimes = 2, kLevels = 3, kRows = 4, kColumns = 5;
constexpr std::size_t kCells = kTimes * kLevels * kRows * kColumns;

void must(herr_t status) {
  if (status < 0) throw std::runtime_error("HDF5 refuses to make the seeds");
}

// A file with the axes of a model.
struct Model {
  Model(const std::filesystem::path& path, Hdf5Maker::Layout layout) : file(path.string(), layout) {
    file.axis("time", {36, 60}, "hours since 1990-01-01 00:00:00");
    file.axis("depth", {0, 50, 200}, "m");
    file.axis("lat", rising(kRows, -1, 0.5), "degrees_north");
    file.axis("lon", rising(kColumns, 352, 2), "degrees_east");
  }
  void variable(const std::string& name, hid_t type, hid_t storage = H5P_DEFAULT) {
    file.variable(name, type, {"time", "depth", "lat", "lon"}, storage);
    file.put(name, rising(kCells, 3, 1));
  }
  hid_t chunks() {
    const hid_t list = file.storage();
    const std::array<hsize_t, 4> shape = {1, 2, 3, 5};
    must(H5Pset_chunk(list, 4, shape.data()));
    return list;
  }
  // A number of some type of HDF5, with another size.
  hid_t resized(hid_t type, std::size_t size) {
    const hid_t copy = file.keep(H5Tcopy(type));
    must(H5Tset_size(copy, size));
    return copy;
  }

  Hdf5Maker file;
};

// Every filter that packs numbers.
void makeFilters(const std::filesystem::path& path, Hdf5Maker::Layout layout) {
  Model model(path, layout);
  const hid_t bits = model.file.keep(H5Tcopy(H5T_STD_I32LE));
  must(H5Tset_precision(bits, 9));
  const hid_t nbit = model.chunks(), whole = model.chunks(), decimals = model.chunks(),
              all = model.chunks();
  must(H5Pset_nbit(nbit));
  must(H5Pset_scaleoffset(whole, H5Z_SO_INT, H5Z_SO_INT_MINBITS_DEFAULT));
  must(H5Pset_scaleoffset(decimals, H5Z_SO_FLOAT_DSCALE, 2));
  must(H5Pset_shuffle(all));
  must(H5Pset_deflate(all, 4));
  must(H5Pset_fletcher32(all));
  model.variable("bits", bits, nbit);
  model.variable("whole", H5T_STD_I16LE, whole);
  model.variable("decimals", H5T_IEEE_F32LE, decimals);
  model.variable("all", H5T_STD_I16BE, all);
}

// Types that netCDF has not, or has in another way.
void makeTypes(const std::filesystem::path& path, Hdf5Maker::Layout layout) {
  Model model(path, layout);
  Hdf5Maker& file = model.file;
  model.variable("temp", H5T_STD_I16BE);
  model.variable("long_double", H5T_NATIVE_LDOUBLE);
  model.variable("three_bytes", model.resized(H5T_STD_I32LE, 3));
  const hid_t half = file.keep(H5Tcopy(H5T_IEEE_F32LE));
  must(H5Tset_fields(half, 15, 10, 5, 0, 10));
  must(H5Tset_size(half, 2));
  must(H5Tset_ebias(half, 15));
  model.variable("half", half);
  const std::vector<std::string> grid = {"lat", "lon"};
  file.variable("opaque", file.keep(H5Tcreate(H5T_OPAQUE, 7)), grid);
  file.variable("words", model.resized(H5T_C_S1, 12), grid);
  file.variable("references", H5T_STD_REF_OBJ, grid);
  const hsize_t length = 3;
  const hid_t list = file.keep(H5Tarray_create2(H5T_STD_I16LE, 1, &length));
  file.variable("lists", list, grid);
  file.variable("sequences", file.keep(H5Tvlen_create(H5T_IEEE_F64LE)), grid);
  const hid_t place = file.keep(H5Tcreate(H5T_COMPOUND, 16));
  must(H5Tinsert(place, "lon", 0, H5T_IEEE_F64LE));
  must(H5Tinsert(place, "list", 8, list));
  file.variable("places", place, grid);
  must(H5Tcommit2(file.id(), "place", place, H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
  const hid_t kind = file.keep(H5Tenum_create(H5T_STD_I8LE));
  const signed char land = 1;
  must(H5Tenum_insert(kind, "land", &land));
  model.file.variable("kinds", kind, grid);
}

// Links of every kind, and values that are somewhere else.
void makeLinks(const std::filesystem::path& path, Hdf5Maker::Layout layout) {
  Model model(path, layout);
  Hdf5Maker& file = model.file;
  model.variable("temp", H5T_STD_I16LE);
  file.group("/run");
  file.group("/run/inner");
  file.hardLink("/run/same", "/temp");
  file.hardLink("/also", "/run/inner");
  file.softLink("/run/inner/again", "/temp");
  file.softLink("/nowhere", "/not/there");
  if (layout == Hdf5Maker::Layout::Newest) file.linkToOtherFile("/away", "other.nc", "/temp");
  const hid_t raw = file.storage();
  must(H5Pset_external(raw, "other.raw", 0, kRows * kColumns * sizeof(double)));
  file.variable("raw", H5T_IEEE_F64LE, {"lat", "lon"}, raw);
  const std::array<hsize_t, 4> shape = {kTimes, kLevels, kRows, kColumns};
  const hid_t all = H5Screate_simple(4, shape.data(), nullptr);
  const hid_t inside = file.storage();
  must(H5Pset_virtual(inside, all, ".", "/temp", all));
  H5Sclose(all);
  file.variable("inside", H5T_STD_I16LE, {"time", "depth", "lat", "lon"}, inside);
}

}  // namespace

void makeOddSets(const std::filesystem::path& folder) {
  for (const auto& [name, layout] :
       {std::pair{"old", Hdf5Maker::Layout::Oldest}, std::pair{"new", Hdf5Maker::Layout::Newest}}) {
    makeFilters(folder / (std::string("filters-") + name + ".nc"), layout);
    makeTypes(folder / (std::string("types-") + name + ".nc"), layout);
    makeLinks(folder / (std::string("links-") + name + ".nc"), layout);
  }
  Model loop(folder / "loop.nc", Hdf5Maker::Layout::Oldest);
  loop.variable("temp", H5T_STD_I16LE);
  loop.file.group("/run");
  loop.file.hardLink("/run/root", "/");
}

}  // namespace fuzz
