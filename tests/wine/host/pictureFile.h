#pragma once

#include <string>

#include "Picture.h"

namespace winetest {

// The picture in a file. host::HostError when there is none.
host::Picture loadPicture(const std::wstring& path);

}  // namespace winetest
