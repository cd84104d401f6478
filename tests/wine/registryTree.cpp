#include "registryTree.h"

#include <algorithm>
#include <vector>

#include "Dispatch.h"

namespace winetest {
namespace {

struct Buffers {
  std::vector<wchar_t> name = std::vector<wchar_t>(0x4000);
  std::vector<BYTE> data = std::vector<BYTE>(0x10000);
};

void readInto(RegistryTree& tree, HKEY key, const std::wstring& path, Buffers& buffers) {
  auto& [name, data] = buffers;
  tree[path] = L"";
  for (DWORD index = 0;; ++index) {
    auto nameLength = static_cast<DWORD>(name.size());
    auto dataLength = static_cast<DWORD>(data.size());
    DWORD type = 0;
    const LSTATUS status = RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type,
                                         data.data(), &dataLength);
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) break;
    tree[path + L":" + std::wstring(name.data(), nameLength)] =
        std::to_wstring(type) + L" " +
        std::wstring(data.data(), data.data() + std::min<std::size_t>(dataLength, data.size()));
  }
  for (DWORD index = 0;; ++index) {
    auto nameLength = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(key, index, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    const std::wstring child(name.data(), nameLength);
    HKEY opened = nullptr;
    if (RegOpenKeyExW(key, child.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) continue;
    readInto(tree, opened, path + L"\\" + child, buffers);
    RegCloseKey(opened);
  }
}

}  // namespace

RegistryTree readTree(HKEY root, const std::wstring& path) {
  RegistryTree tree;
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS) {
    Buffers buffers;
    readInto(tree, opened, path, buffers);
    RegCloseKey(opened);
  }
  return tree;
}

std::string difference(const RegistryTree& before, const RegistryTree& after) {
  std::string text;
  for (const auto& [path, contents] : before) {
    const auto found = after.find(path);
    if (found == after.end()) text += "gone: " + host::narrow(path) + "\n";
    else if (found->second != contents) text += "changed: " + host::narrow(path) + "\n";
  }
  for (const auto& [path, contents] : after) {
    if (!before.contains(path)) text += "left behind: " + host::narrow(path) + "\n";
  }
  return text;
}

}  // namespace winetest
