// A program that saves a variable's key into a KEW file, again and again, while others save theirs:
//   key_saver FOLDER VARIABLE TIMES
// After every save it reads its key back. Status 1, with the reason on standard output, when a save
// fails or a key is not what was saved.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "netcdf/ncf.h"
#include "section/drawItems.h"
#include "util/lastError.h"

namespace {

void setKey(int count) {
  ModColor::NewColorKey();
  for (int i = 0; i < 20; ++i) ModColor::AddColorKey(static_cast<float>(i), 100.0F, count);
}

bool isKey(int count) {
  const std::string name = ModColor::ownKewFile();
  ModColor::NewColorKey();
  return ModColor::GetKewCol(name) == 20 && ModColor::ColorKey.color(20) == count;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  ocxNetNc::ncf.NcFileName = std::string(arguments[1]) + "/set.nc";
  KelvaneMain::DrawItem item;
  item.name = arguments[2];
  KelvaneMain::DrawItems = {item};
  KelvaneMain::Item_shown = 1;
  for (int left = std::atoi(arguments[3]); left > 0; --left) {
    setKey(left);
    ModColor::SaveKEW();
    if (!util::LastError.empty() || !isKey(left)) {
      std::printf("%d: %s\n", left, util::LastError.c_str());
      return 1;
    }
  }
  return 0;
}
