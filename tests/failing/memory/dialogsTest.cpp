#include <filesystem>
#include <fstream>

#include "failing/memory/MemoryTest.h"
#include "util/lastError.h"

namespace {

constexpr const char* kOtherKeys =
    "<section><variable name=\"salt\"><division><low>34</low><high>35</high><color>255</color>"
    "</division></variable></section>";

class ShownDialogs : public failing::MemoryTest {
 protected:
  ShownDialogs() {
    keyFile = folder.file("tiny.KEW");
    std::ofstream(folder.path() / "other.kew") << kOtherKeys;
  }

  // The options are shown, and a user does this with them.
  Member options(const std::function<void(control::frmOptions&)>& user) {
    return {[this, user] {
              openAlongLatitude();
              shown.Draw();
              shown.AddColorKey(0, 10, 255);
              shown.AddColorKey(10, 20, 65280);
              std::ofstream(support::pathOf(keyFile)) << kOtherKeys;
              dialogs.options.push_back(user);
            },
            [this] {
              shown.ShowOptions();
              return 1;
            }};
  }
  // The same with the editor of the key. A user who is told of no failure takes OK.
  Member editor(const std::function<void(ModColor::frmColorKey&)>& user) {
    const Member around = options([this, user](control::frmOptions& form) {
      dialogs.editors.push_back([user](ModColor::frmColorKey& key) {
        user(key);
        util::LastError.empty() ? key.cmdOK() : key.cmdCancel();
      });
      form.EditLegend();
      dialogs.editors.clear();
      form.OK();
    });
    return around;
  }
};

TEST_F(ShownDialogs, AnotherView) {
  inEveryShortage(options([](control::frmOptions& form) {
    form.optViewStyle_Click(1);
    form.OK();
  }));
  Member member = options([](control::frmOptions& form) { form.Cancel(); });
  member.asks = false;
  inEveryShortage(member);
}

TEST_F(ShownDialogs, RowsAddedAndDeleted) {
  inEveryShortage(editor([](ModColor::frmColorKey& key) {
    key.cmdAdd();
    key.cmdAdd();
    key.cmdDelete(0);
    key.rows.back().fldHighRange = 30;
  }));
}

TEST_F(ShownDialogs, RangesDivided) {
  inEveryShortage(editor([&](ModColor::frmColorKey& key) {
    dialogs.divisions.push_back([](ModColor::frmAutoDiv& division) {
      division.fldDivisions = 7;
      division.OK();
    });
    key.cmdAutoDiv();
    dialogs.divisions.clear();
  }));
}

TEST_F(ShownDialogs, RampOfColours) {
  inEveryShortage(editor([&](ModColor::frmColorKey& key) {
    dialogs.ramps.push_back([](ModColor::frmColorRamp& ramp) { ramp.OK(); });
    key.cmdColorRamp();
    dialogs.ramps.clear();
  }));
}

TEST_F(ShownDialogs, KeyImported) {
  inEveryShortage(editor([&](ModColor::frmColorKey& key) {
    dialogs.files.push_back(folder.file("other.kew"));
    dialogs.choices.push_back([](ModColor::frmVarName& choice) {
      choice.ListIndex = 0;
      choice.OK();
    });
    key.cmdImport();
    dialogs.files.clear();
    dialogs.choices.clear();
  }));
}

}  // namespace
