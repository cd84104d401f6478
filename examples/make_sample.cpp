// Makes the sample data sets, a year of two made-up oceans:
//   ocean.nc    a western boundary ocean: a coast in the west with its shelf and slope, a warm
//               and a cold eddy that drift to the west, a seamount, a main thermocline, and a
//               mixed layer that deepens in winter
//   ocean4.nc   the same numbers as netCDF-4, compressed
//   pacific.nc  a Pacific, whose longitudes run across the date line from 120 to 300
//
// A good section of each: from the shore over the shelf, through both eddies and over the
// seamount; and along the equator:
//   kelvane draw ocean.nc --var temp --path "285.25,32 292.75,35.1" --time 5 -o section.png
//   kelvane draw pacific.nc --var temp --path "122,0 282,0" -o equator.png

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#include "SampleFile.h"
#include "SampleOcean.h"
#include "SamplePacific.h"

int main(int argc, char** argv) {
  constexpr char kUsage[] = "usage: make_sample OUTDIR\n";
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument == "--help") return std::fputs(kUsage, stdout) < 0 ? 1 : 0;
  // An option that is no option would become a folder.
  if (argc != 2 || argument.starts_with('-')) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  try {
    const std::filesystem::path folder(argv[1]);
    std::filesystem::create_directories(folder);
    const sample::SampleOcean ocean;
    sample::writeSea(ocean, (folder / "ocean.nc").string(), sample::Format::Classic);
    sample::writeSea(ocean, (folder / "ocean4.nc").string(), sample::Format::Compressed);
    const sample::SamplePacific pacific;
    sample::writeSea(pacific, (folder / "pacific.nc").string(), sample::Format::Classic);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_sample: %s\n", error.what());
    return 1;
  }
  return 0;
}
