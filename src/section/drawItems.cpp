#include "section/drawItems.h"

#include <string>

#include "netcdf/ncf.h"
#include "util/lastError.h"
#include "util/ocxStrings.h"

namespace KelvaneMain {

using ocxNetNc::ncf;

util::OneBased<DrawItem> DrawItems;
int32_t Item_shown = 0;
int32_t VarShown = 0;
int32_t TimeShown = 0;

namespace {

// Number of the first catalogue variable of exactly this name; 0 when there is none.
int32_t variableNamed(std::string_view name) {
  for (int32_t v = 1; v <= ncf.NcVars.size(); ++v) {
    if (ncf.NcVars(v).Name == name) return v;
  }
  return 0;
}

// Shows an item of the list. The catalogue is searched by name, because a failed opening can
// leave the items of one data set beside the catalogue of another.
int32_t select(int32_t item, const char* notIdentified) {
  Item_shown = item;
  VarShown = variableNamed(DrawItems(item).name);
  if (VarShown > 0) return 1;
  util::LastError = notIdentified;
  return -1;
}

}  // namespace

int32_t BuildDrawItems() {
  try {
    if (ncf.level_dId == -1) return 0;
    DrawItems.clear();
    for (int32_t v = 1; v <= ncf.NcVars.size(); ++v) {
      const ocxNetNc::NcVar& variable = ncf.NcVars(v);
      if (variable.NDims < 3 || variable.dimensionAt(ncf.level_dId) < 0) continue;
      DrawItem item;
      item.name = variable.Name;
      item.units = variable.Unit;
      item.variable = v;
      DrawItems.push(std::move(item));
    }
    return DrawItems.size();
  } catch (...) {
    util::reportBracketed("BuildDrawItems");
    return 0;
  }
}

int32_t SelectVarByName(std::string_view name) {
  constexpr const char* notIdentified = "[SelectVarByName] nc varable not identified";
  for (int32_t item = 1; item <= nDrawItems(); ++item) {
    if (ocxStrings::equalNoCase(DrawItems(item).name, name)) return select(item, notIdentified);
  }
  util::LastError = notIdentified;
  return -1;
}

int32_t SelectVarByOrder(int32_t order) {
  if (!DrawItems.has(order)) return -1;
  return select(order, "[SelectVarByOrder] nc varable not identified");
}

int32_t ItemMatch(int32_t item) {
  const int32_t variable = DrawItems.has(item) ? variableNamed(DrawItems(item).name) : 0;
  if (variable == 0) util::LastError = "[ItemMatch&] Item_shown& does not match nc varable";
  return variable;
}

}  // namespace KelvaneMain
