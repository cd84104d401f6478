#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "util/OneBased.h"
#include "util/calendar.h"

// The catalogue of the open data set and everything identification adds to it.
namespace ocxNetNc {

inline constexpr int32_t kNameLimit = 45;       // bytes in a stored name
inline constexpr int32_t kDimensionLimit = 5;   // dimensions of a variable
inline constexpr int32_t kAttributeLimit = 15;  // attributes of a variable

struct NcDim {
  std::string Name;
  int32_t Length = 0;
  int32_t Unlimited = 0;  // 1 for the unlimited dimension
  int32_t Reserved = 0;
};

struct NcVar {
  std::string Name;
  std::string LongName;
  int32_t Type = 0;  // library type number: 1 byte, 2 char, 3 short, 4 int, 5 float, 6 double
  int32_t NDims = 0;
  std::array<int32_t, kDimensionLimit> DimId{};  // library identifiers, from 0
  std::array<std::string, kDimensionLimit> DimName;
  int32_t NAtts = 0;
  std::array<std::string, kAttributeLimit> AttName;
  std::array<int32_t, kAttributeLimit> AttType{};
  std::array<std::string, kAttributeLimit> AttValue;
  double TotalBytes = 0;
  int32_t ElemSize = 0;  // bytes; 0 for types above 6
  double ValidMin = 0;   // 0, 0: no valid range
  double ValidMax = 0;
  double Missing = 0;  // 0: none known
  double Scale = 1;
  double Offset = 0;
  std::string Unit;

  // Position (from 0) of a dimension among the variable's dimensions; -1 when it has none such.
  int32_t dimensionAt(int32_t dimId) const;
};

// Longitudes or latitudes: one number an axis point; for a grid of cells, icells x jcells
// numbers in the file's own order (the last dimension varies fastest).
using CoordinateValues = util::OneBased<float>;

struct Ncf {
  std::string NcFileName;
  std::string NcAltFileName;
  int32_t NcNDims = 0;
  int32_t NcNVars = 0;
  int32_t NcState = 0;
  int32_t NcId = -1;  // the data set is open exactly while this is 0 or more
  int32_t NcStatus = 0;
  int32_t NcUnlimDim = -1;
  int32_t NcNGAtts = 0;
  util::OneBased<std::string> NcGAttName;
  util::OneBased<std::string> NcGAttValue;
  util::OneBased<int32_t> NcGAttType;

  // Coordinates. Identifiers of dimensions count from 0, numbers of variables from 1; -1 means
  // not found. The variable numbers outlive their data set until another match.
  int32_t lon_dId = -1, lon_vId = 0;
  int32_t lat_dId = -1, lat_vId = 0;
  int32_t time_dId = -1, time_vId = 0;
  int32_t level_dId = -1, level_vId = 0;
  int32_t ncell_dId = -1;
  int32_t icell_dId = -1, jcell_dId = -1, kcell_dId = -1;
  int32_t has_time = -1;
  int32_t has_level = -1;
  // -1 not yet determined; 0 a grid of cells; 1 longitude, latitude last; 2 latitude,
  // longitude last.
  int32_t grid_order = -1;
  int32_t nlon = 0, nlat = 0;
  int32_t icells = 0, jcells = 0, ncells = 0;
  CoordinateValues lon_values, lat_values;
  float dlon = 0, dlat = 0;  // mean spacing, degrees

  // Time axis.
  int32_t ntime = 0;
  util::OneBased<double> time_values;
  std::string time_unit;
  util::Date time_origin = util::kDateZero;
  std::string first_time_label, last_time_label;
  util::Date first_time = util::kDateZero;

  // Vertical axis: level k at level_values[k], k = 1..nlevels; element 0 is the top of the
  // column and stays zero.
  int32_t nlevels = 0;
  std::vector<double> level_values;

  util::OneBased<NcDim> NcDims;  // dimension id + 1
  util::OneBased<NcVar> NcVars;  // variable id + 1
};

extern Ncf ncf;

// The depth of level k (0..nlevels); an index outside is run-time error 9.
double levelDepth(int32_t k);

// File name or address last given to NcFile.
extern std::string DataSetName;

}  // namespace ocxNetNc
