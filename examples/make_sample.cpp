// Makes the sample data sets: ocean.nc (classic) and ocean4.nc (netCDF-4, compressed), the same
// numbers in both. A made-up western boundary ocean: a coast in the west with its shelf and
// slope, a warm and a cold eddy that drift to the west, a seamount, a main thermocline, and a
// mixed layer that deepens in winter.
//
// A good section runs from the shore over the shelf, through both eddies and over the seamount:
//   kelvane draw ocean.nc --var temp --path "285.25,32 292.75,35.1" --time 5 -o section.png

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

#include "SampleFile.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: make_sample OUTDIR\n", stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder(argv[1]);
    std::filesystem::create_directories(folder);
    sample::writeOcean((folder / "ocean.nc").string(), sample::Format::Classic);
    sample::writeOcean((folder / "ocean4.nc").string(), sample::Format::Compressed);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_sample: %s\n", error.what());
    return 1;
  }
  return 0;
}
