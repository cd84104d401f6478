#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "util/OneBased.h"

namespace KelvaneMain {

// A variable that can be drawn as a vertical section.
struct DrawItem {
  float maximum = 0;  // extremes of the last section read; maximum < minimum: no value was met
  float minimum = 0;
  float plot_max = 0;  // plotting range: the first range found is kept
  float plot_min = 0;
  float plot_interval = 0;
  std::string name;
  std::string units;
  int32_t variable = 0;  // catalogue number, from 1
};

extern util::OneBased<DrawItem> DrawItems;
inline int32_t nDrawItems() { return DrawItems.size(); }

// The selection, all counted from 1; 0 before the first data set.
extern int32_t Item_shown;  // position in DrawItems
extern int32_t VarShown;    // catalogue variable; 0 when none matches
extern int32_t TimeShown;   // time step

// Lists every variable of ncf with three or more dimensions, one of them the vertical one.
// Returns the number of items; 0, with the list left alone, without a vertical axis.
int32_t BuildDrawItems();

// Select an item by name (ASCII case ignored, whole name) or by position; 1, or -1.
int32_t SelectVarByName(std::string_view name);
int32_t SelectVarByOrder(int32_t order);

// Catalogue number of the variable with exactly the item's name; 0 with a message when there
// is none or the item lies outside the list.
int32_t ItemMatch(int32_t item);

}  // namespace KelvaneMain
