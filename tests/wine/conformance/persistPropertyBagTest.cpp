#include "Keeping.h"

namespace winetest {
namespace {

using PersistPropertyBag = Keeping<IPersistPropertyBag>;

TEST_F(PersistPropertyBag, BringsTheExtentBack) {
  Bag bag;
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_FALSE(dirty());
  setExtent(7000, 5000);
  EXPECT_EQ(persist_->Save(&bag, FALSE, TRUE), S_OK);
  EXPECT_TRUE(dirty());
  EXPECT_EQ(persist_->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_FALSE(dirty());
  ASSERT_EQ(bag.values.size(), 2U);
  EXPECT_EQ(bag.values[L"_ExtentX"].type(), VT_I4);
  EXPECT_EQ(bag.values[L"_ExtentX"].number(), 7000);
  EXPECT_EQ(bag.values[L"_ExtentY"].type(), VT_I4);
  EXPECT_EQ(bag.values[L"_ExtentY"].number(), 5000);

  setExtent(100, 200);
  ErrorLog errors;
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 5000);
  EXPECT_FALSE(dirty());
  EXPECT_TRUE(errors.names.empty());
  EXPECT_EQ(bag.references, 1U);
  EXPECT_EQ(errors.references, 1U);
}

TEST_F(PersistPropertyBag, LeavesWhatIsMissingAsItIs) {
  Bag bag;
  ErrorLog errors;
  setExtent(7000, 5000);
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 5000);
  bag.values[L"_ExtentY"] = Value(1234);
  bag.values[L"BackColor"] = Value(L"of another control");
  EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
  expectExtent(7000, 1234);
  EXPECT_TRUE(errors.names.empty());
}

TEST_F(PersistPropertyBag, TakesNumbersOfAnyType) {
  const struct {
    Value value;
    LONG number;
  } rows[] = {{Value(0), 0}, {Value(L"8123"), 8123}, {Value(4321.0), 4321}};
  for (const auto& row : rows) {
    Bag bag;
    ErrorLog errors;
    bag.values[L"_ExtentX"] = row.value;
    setExtent(7000, 5000);
    EXPECT_EQ(persist_->Load(&bag, &errors), S_OK);
    expectExtent(row.number, 5000);
    EXPECT_TRUE(errors.names.empty());
  }
}

TEST_F(PersistPropertyBag, TellsTheErrorLogOfWhatIsNoExtent) {
  Value object, null;
  V_VT(&object.variant()) = VT_UNKNOWN;
  V_UNKNOWN(&object.variant()) = control_.identity();
  control_.identity()->AddRef();
  V_VT(&null.variant()) = VT_NULL;
  for (const Value& wrong : {Value(-1), Value(L"wide"), Value(L""), Value(1e20), object, null}) {
    Bag bag;
    ErrorLog errors;
    bag.values[L"_ExtentX"] = wrong;
    bag.values[L"_ExtentY"] = Value(1234);
    setExtent(7000, 5000);
    EXPECT_EQ(persist_->Load(&bag, &errors), S_OK) << wrong.type();
    expectExtent(7000, 1234);
    EXPECT_EQ(errors.names, std::vector<std::wstring>{L"_ExtentX"}) << wrong.type();
    EXPECT_EQ(persist_->Load(&bag, nullptr), S_OK) << wrong.type();
    expectExtent(7000, 1234);
  }
}

TEST_F(PersistPropertyBag, StaysDirtyWhenTheBagIsFull) {
  setExtent(7000, 5000);
  for (const int room : {0, 1}) {
    Bag bag;
    bag.room = room;
    EXPECT_EQ(persist_->Save(&bag, TRUE, TRUE), E_OUTOFMEMORY) << room;
    EXPECT_TRUE(dirty()) << room;
  }
  EXPECT_EQ(persist_->Load(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(persist_->Save(nullptr, TRUE, TRUE), E_POINTER);
}

TEST_F(PersistPropertyBag, TakesTheLastStateInAnyOrder) {
  Bag bag;
  bag.values[L"_ExtentX"] = Value(111);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_EQ(persist_->Load(&bag, nullptr), S_OK);
  bag.values[L"_ExtentX"] = Value(222);
  EXPECT_EQ(persist_->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(extent().cx, 222);
  EXPECT_EQ(persist_->InitNew(), S_OK);
  EXPECT_EQ(extent().cx, 222);
  EXPECT_FALSE(dirty());
}

}  // namespace
}  // namespace winetest
