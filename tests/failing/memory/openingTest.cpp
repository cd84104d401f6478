#include "failing/memory/MemoryTest.h"

#include <utility>

#include "section/drawItems.h"
#include "section/sectionPath.h"
#include "util/lastError.h"

namespace {

using Opening = failing::MemoryTest;

TEST_F(Opening, NcFile) {
  const std::string name = tinySet();
  inEveryShortage({[] {}, [&] { return shown.NcFile(name); }});
}

TEST_F(Opening, NcFileInPlaceOfAnotherSet) {
  const std::string name = tinySet(), other = tinySet("other.nc");
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.Draw();
                   },
                   [&] { return shown.NcFile(other); }});
}

TEST_F(Opening, NcFileOfAMissingFile) {
  const std::string name = folder.file("missing.nc");
  inEveryShortage({[] {}, [&] { return shown.NcFile(name); }, RunTimeError::Never, -1});
}

TEST_F(Opening, SetVarByName) {
  const std::string salt = "salt", none = "none of this name";
  inEveryShortage({.before = [&] { openAlongLatitude(); },
                   .call = [&] { return shown.SetVarByName(salt); },
                   .asks = false});
  inEveryShortage({.before = [&] { openAlongLatitude(); },
                   .call = [&] { return shown.SetVarByName(none); },
                   .success = -1,
                   .asks = false});
}

TEST_F(Opening, SetVarByOrder) {
  inEveryShortage({.before = [&] { openAlongLatitude(); },
                   .call = [&] { return shown.SetVarByOrder(2); },
                   .asks = false});
}

TEST_F(Opening, ItemNameAndErrorMessage) {
  // Longer than what a text has room for in itself.
  const std::string name = "sea_water_potential_temperature";
  inEveryShortage({[&] {
                     openAlongLatitude();
                     KelvaneMain::DrawItems(1).name = name;
                   },
                   [&] { return shown.ItemName(1) == name; }});
  inEveryShortage({[&] { openAlongLatitude(); }, [&] {
                     util::LastError = "[Somewhere] Error: something of some length";
                     const std::string text = shown.ErrorMessage();
                     return text == util::LastError || text == "Out of memory";
                   }});
}

TEST_F(Opening, AddSection) {
  inEveryShortage({[&] { openAlongLatitude(); },
                   [&] {
                     for (int corner = 0; corner < 20; ++corner) shown.AddSection(352, 0);
                     return 1;
                   },
                   RunTimeError::Allowed});
}

TEST_F(Opening, EndSection) {
  inEveryShortage({[&] {
                     openAlongLatitude();
                     KelvaneMain::section = {};
                   },
                   [&] { return shown.EndSection(); }});
  inEveryShortage({[&] {
                     openAlongLatitude();
                     KelvaneMain::section = {};
                     shown.NewSection();
                     for (const auto& [x, y] : {std::pair{350, -1}, {354, 0}, {357, 0}}) {
                       shown.AddSection(static_cast<float>(x), static_cast<float>(y));
                     }
                   },
                   [&] { return shown.EndSection(); }});
}

}  // namespace
