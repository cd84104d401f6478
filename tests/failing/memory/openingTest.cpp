#include "failing/memory/MemoryTest.h"

#include <utility>

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
  inEveryShortage({[&] { openAlongLatitude(); }, [&] { return shown.SetVarByName(salt); }});
  inEveryShortage({[&] { openAlongLatitude(); }, [&] { return shown.SetVarByName(none); },
                   RunTimeError::Never, -1});
}

TEST_F(Opening, SetVarByOrder) {
  inEveryShortage({[&] { openAlongLatitude(); }, [&] { return shown.SetVarByOrder(2); }});
}

TEST_F(Opening, ItemNameAndErrorMessage) {
  inEveryShortage({[&] { openAlongLatitude(); }, [&] { return shown.ItemName(1) == "temp"; }});
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
  inEveryShortage({[&] { openAlongLatitude(); }, [&] { return shown.EndSection(); }});
  inEveryShortage({[&] {
                     openAlongLatitude();
                     shown.NewSection();
                     for (const auto& [x, y] : {std::pair{350, -1}, {354, 0}, {357, 0}}) {
                       shown.AddSection(static_cast<float>(x), static_cast<float>(y));
                     }
                   },
                   [&] { return shown.EndSection(); }});
}

}  // namespace
