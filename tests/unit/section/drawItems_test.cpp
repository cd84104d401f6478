#include "section/drawItems.h"

#include <limits>

#include "unit/section/SectionTest.h"
#include "util/lastError.h"

using namespace KelvaneMain;
using ocxNetNc::ncf;

namespace {

class DrawItemList : public SectionTest {
 protected:
  // Dimension 1 is the vertical one.
  static void add(const std::string& name, const std::vector<int32_t>& dims) {
    ocxNetNc::NcVar variable;
    variable.Name = name;
    variable.Unit = name + " unit";
    variable.NDims = static_cast<int32_t>(dims.size());
    for (std::size_t d = 0; d < dims.size(); ++d) variable.DimId[d] = dims[d];
    ncf.NcVars.push(variable);
    ncf.NcNVars = ncf.NcVars.size();
    ncf.level_dId = 1;
  }
  static void addUsualSet() {
    add("depth", {1});
    add("temp", {0, 1, 2, 3});
    add("zeta", {0, 2, 3});
    add("Temp", {0, 1, 2, 3});
    add("profile", {0, 1});
    add("salt", {1, 2, 3});
  }
};

TEST_F(DrawItemList, HoldsVariablesOfThreeDimensionsOneOfThemVertical) {
  addUsualSet();
  EXPECT_EQ(BuildDrawItems(), 3);
  ASSERT_EQ(nDrawItems(), 3);
  EXPECT_EQ(DrawItems(1).name, "temp");
  EXPECT_EQ(DrawItems(1).units, "temp unit");
  EXPECT_EQ(DrawItems(1).variable, 2);
  EXPECT_EQ(DrawItems(2).name, "Temp");
  EXPECT_EQ(DrawItems(3).name, "salt");
  EXPECT_EQ(DrawItems(3).variable, 6);
  for (const DrawItem& item : DrawItems) {
    EXPECT_EQ(item.maximum, 0);
    EXPECT_EQ(item.minimum, 0);
    EXPECT_EQ(item.plot_max, 0);
    EXPECT_EQ(item.plot_min, 0);
    EXPECT_EQ(item.plot_interval, 0);
  }
}

TEST_F(DrawItemList, IsLeftAloneWithoutAVerticalAxis) {
  addUsualSet();
  ASSERT_EQ(BuildDrawItems(), 3);
  ncf.level_dId = -1;
  EXPECT_EQ(BuildDrawItems(), 0);
  EXPECT_EQ(nDrawItems(), 3);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(DrawItemList, IsEmptiedWhenNoVariableCanBeDrawn) {
  addUsualSet();
  ASSERT_EQ(BuildDrawItems(), 3);
  ncf.NcVars.clear();
  add("depth", {1});
  EXPECT_EQ(BuildDrawItems(), 0);
  EXPECT_EQ(nDrawItems(), 0);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(DrawItemList, IsSearchedByNameWithoutCaseAndTheCatalogueWithIt) {
  addUsualSet();
  BuildDrawItems();
  EXPECT_EQ(SelectVarByName("TEMP"), 1);
  EXPECT_EQ(Item_shown, 1);
  EXPECT_EQ(VarShown, 2);
  EXPECT_EQ(SelectVarByName("sAlT"), 1);
  EXPECT_EQ(Item_shown, 3);
  EXPECT_EQ(VarShown, 6);
  EXPECT_EQ(util::LastError, "");
}

TEST_F(DrawItemList, KeepsTheSelectionWhenNoItemHasTheName) {
  addUsualSet();
  BuildDrawItems();
  ASSERT_EQ(SelectVarByOrder(3), 1);
  for (const char* name : {"nosuch", "", "tem", "temperature", " temp", "temp ", "zeta"}) {
    util::LastError.clear();
    EXPECT_EQ(SelectVarByName(name), -1) << name;
    EXPECT_EQ(util::LastError, "[SelectVarByName] nc varable not identified") << name;
    EXPECT_EQ(Item_shown, 3);
    EXPECT_EQ(VarShown, 6);
  }
}

TEST_F(DrawItemList, MovesTheSelectionWhenOnlyTheVariableIsMissing) {
  addUsualSet();
  BuildDrawItems();
  ncf.NcVars(6).Name = "SALT";
  EXPECT_EQ(SelectVarByName("salt"), -1);
  EXPECT_EQ(util::LastError, "[SelectVarByName] nc varable not identified");
  EXPECT_EQ(Item_shown, 3);
  EXPECT_EQ(VarShown, 0);
  EXPECT_EQ(SelectVarByOrder(1), 1);
  EXPECT_EQ(SelectVarByOrder(3), -1);
  EXPECT_EQ(util::LastError, "[SelectVarByOrder] nc varable not identified");
  EXPECT_EQ(Item_shown, 3);
  EXPECT_EQ(VarShown, 0);
}

TEST_F(DrawItemList, IgnoresPositionsOutside) {
  addUsualSet();
  BuildDrawItems();
  ASSERT_EQ(SelectVarByOrder(2), 1);
  EXPECT_EQ(VarShown, 4);
  for (const int32_t order : {std::numeric_limits<int32_t>::min(), -1, 0, 4,
                              std::numeric_limits<int32_t>::max()}) {
    EXPECT_EQ(SelectVarByOrder(order), -1) << order;
    EXPECT_EQ(Item_shown, 2);
    EXPECT_EQ(VarShown, 4);
  }
  EXPECT_EQ(util::LastError, "");
}

TEST_F(DrawItemList, MatchesItemsToVariablesExactly) {
  addUsualSet();
  BuildDrawItems();
  EXPECT_EQ(ItemMatch(1), 2);
  EXPECT_EQ(ItemMatch(2), 4);
  EXPECT_EQ(util::LastError, "");
  for (const int32_t item : {-1, 0, 4}) {
    util::LastError.clear();
    EXPECT_EQ(ItemMatch(item), 0);
    EXPECT_EQ(util::LastError, "[ItemMatch&] Item_shown& does not match nc varable");
  }
  util::LastError.clear();
  ncf.NcVars(2).Name = "other";
  EXPECT_EQ(ItemMatch(1), 0);
  EXPECT_EQ(util::LastError, "[ItemMatch&] Item_shown& does not match nc varable");
}

}  // namespace
