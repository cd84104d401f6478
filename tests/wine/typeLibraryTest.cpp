#include <gtest/gtest.h>

#include <windows.h>

#include "ComOwner.h"
#include "describeTypes.h"
#include "library.h"

namespace winetest {
namespace {

// Identifiers, numbers, names and types never change once they are out.
TEST(TypeLibrary, IsFrozen) {
  const std::string expected = readFile(dataFile(L"types.expected"));
  ASSERT_NE(expected, "");
  host::ComOwner<ITypeLib> types;
  ASSERT_EQ(LoadTypeLibEx(libraryPath().c_str(), REGKIND_NONE, types.receive()), S_OK);
  EXPECT_EQ(describeTypes(*types.get()), expected);
}

}  // namespace
}  // namespace winetest
