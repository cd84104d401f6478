#pragma once

#include <functional>

#include "Dispatch.h"

namespace winetest {

// Objects with a default property, as text fields and cells are that hosts hand over in place of
// their contents. The value holds the only reference.
host::Value objectOf(const host::Value& content);   // as VT_DISPATCH
host::Value unknownOf(const host::Value& content);  // as VT_UNKNOWN
// One whose default property is the object itself, without end.
host::Value endlessObject();
// One that does something when asked, and is 1.
host::Value actingObject(std::function<void()> action);
// One that raises an error when asked.
host::Value brokenObject();

// How many of these objects there are.
int valueObjects();

}  // namespace winetest
