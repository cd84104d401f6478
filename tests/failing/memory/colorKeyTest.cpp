#include <filesystem>
#include <fstream>

#include "colorkey/colorKey.h"
#include "colorkey/kewFile.h"
#include "failing/memory/MemoryTest.h"

namespace {

constexpr const char* kKeys =
    "<?xml version=\"1.0\"?><section><!-- mine --><variable name=\"salt\"><division><low>34</low>"
    "<high>35</high><color>255</color></division></variable></section>";
constexpr const char* kOwnKey =
    "<section><variable name=\"temp\"><division><low>1</low><high>5</high><color>255</color>"
    "</division><division><low>5</low><high>9</high><color>65280</color></division></variable>"
    "</section>";

class ColorKeys : public failing::MemoryTest {
 protected:
  ColorKeys() { keyFile = folder.file("tiny.KEW"); }

  // The set is open, beside it a key file; without contents there is none.
  void begin(const char* contents) {
    openAlongLatitude();
    std::filesystem::remove(support::pathOf(keyFile));
    if (contents != nullptr) std::ofstream(support::pathOf(keyFile)) << contents;
  }
  void takeKey() {
    shown.NewColorKey();
    for (int i = 0; i < 12; ++i) {
      shown.AddColorKey(static_cast<float>(i), static_cast<float>(i + 1), 100 * i);
    }
  }
};

TEST_F(ColorKeys, AddColorKey) {
  inEveryShortage({[&] { begin(nullptr); },
                   [&] {
                     takeKey();
                     return 1;
                   },
                   RunTimeError::Allowed});
}

TEST_F(ColorKeys, KewFile) {
  inEveryShortage({[&] { begin(kOwnKey); }, [&] { return shown.KewFile(keyFile); }});
}

TEST_F(ColorKeys, InitColorKeyTakesTheKeyOfTheFile) {
  inEveryShortage({[&] { begin(kOwnKey); },
                   [&] {
                     shown.InitColorKey();
                     return 1;
                   }});
  EXPECT_EQ(contentsOf(keyFile), kOwnKey);
}

TEST_F(ColorKeys, SaveKEW) {
  for (const char* contents : {static_cast<const char*>(nullptr), kKeys, kOwnKey}) {
    inEveryShortage({[&] {
                       begin(contents);
                       takeKey();
                     },
                     [&] {
                       ModColor::SaveKEW();
                       return 1;
                     }});
  }
}

TEST_F(ColorKeys, InitColorKeyMakesAKeyAndSavesIt) {
  for (const char* contents : {static_cast<const char*>(nullptr), kKeys}) {
    inEveryShortage({[&] { begin(contents); },
                     [&] {
                       shown.InitColorKey();
                       return 1;
                     }});
  }
}

}  // namespace
