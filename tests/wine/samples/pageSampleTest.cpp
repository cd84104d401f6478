#include <fstream>
#include <regex>

#include "Dispatch.h"
#include "SampleTest.h"
#include "library.h"

namespace winetest {
namespace {

std::string part(const std::string& text, const std::string& from, const std::string& to) {
  const size_t start = text.find(from);
  if (start == std::string::npos) return "";
  const size_t inside = start + from.size();
  return text.substr(inside, text.find(to, inside) - inside);
}

// The page's own script, run against the real control by the script host. The elements that the
// page names are there as stand-ins, and a user presses its buttons: the words on a button lead to
// the handler that the page gives it, and so does a choice in its list.
class PageSample : public SampleTest {
 protected:
  Outcome use(const std::string& user, const std::wstring& argument) {
    const std::string page = readFile(sample(L"section.hta"));
    const std::string own = part(page, "<script type=\"text/javascript\">", "</script>");
    EXPECT_NE(own, "");
    const std::string body = part(page, "<body", "</html>");
    std::ofstream script(folder.path() / "page.js");
    script << readFile(dataFile(L"samples\\page.js"));
    forEach(body, std::regex("id=\"(\\w+)\""), [&](const std::smatch& match) {
      script << "addElement(\"" << match[1].str() << "\");\n";
    });
    const std::regex button("<button[^>]*onclick=\"([^\"]*)\">([^<]*)</button>");
    forEach(body, button, [&](const std::smatch& match) {
      script << "addButton(\"" << match[2].str() << "\", \"" << match[1].str() << "\");\n";
    });
    script << "onChoice = \"" << part(body, "onchange=\"", "\"") << "\";\n"
           << "makeControl(\"" << part(body, "classid=\"clsid:", "\"") << "\");\n"
           << own << "\n" << part(body, "onload=\"", "\"") << ";\n" << user;
    script.close();
    return cscript(file("page.js"), {argument});
  }

 private:
  template <class Found>
  static void forEach(const std::string& text, const std::regex& wanted, Found found) {
    for (std::sregex_iterator match(text.begin(), text.end(), wanted), end; match != end; ++match) {
      found(*match);
    }
  }
};

TEST_F(PageSample, OpensStepsAndPlays) {
  const Outcome outcome = use(R"(
    tell("at first");
    element("file").value = WScript.Arguments(0);
    press("Open"); tell("opened");
    press("Next month"); tell("stepped");
    press("Play"); tick(); tick(); tell("playing");
    press("Play"); tell("paused");
    choose("salt"); tell("salt");
    press("Play"); press("Open"); tell("opened again");
  )", makeGulfSet());
  EXPECT_EQ(outcome.output,
            "at first: [] items: , key false, ticking false, may step true\n"
            "opened: [temp] items: temp salt, key true, ticking false, may step true\n"
            "stepped: [time step 2] items: temp salt, key true, ticking false, may step true\n"
            "playing: [time step 1] items: temp salt, key true, ticking true, may step true\n"
            "paused: [time step 1] items: temp salt, key true, ticking false, may step true\n"
            "salt: [salt] items: temp salt, key false, ticking false, may step true\n"
            "opened again: [temp] items: temp salt, key true, ticking false, may step true\n");
  EXPECT_EQ(outcome.status, 0U);
  EXPECT_TRUE(outcome.boxes.empty());
}

TEST_F(PageSample, TellsWhyNot) {
  const Outcome outcome = use(R"(
    element("file").value = WScript.Arguments(0);
    press("Open"); tell("elsewhere");
    element("file").value = WScript.Arguments(0) + "x";
    press("Open"); tell("missing");
    elements.section.object = null;
    press("Open"); tell("not registered");
  )", makeElsewhereSet());
  EXPECT_EQ(outcome.output,
            std::string("elsewhere: [") + kTooShort +
                "] items: temp salt, key false, ticking false, may step false\n"
                "missing: [No such file or directory] items: temp salt, key false, ticking false, "
                "may step false\n"
                "not registered: [The control is not registered for this mshta. See the README for "
                "32 and 64 bits.] items: temp salt, key false, ticking false, may step false\n");
  EXPECT_EQ(outcome.boxes.size(), 1U);
}

TEST_F(PageSample, OpensTheOptions) {
  const Outcome outcome = use(R"(
    element("file").value = WScript.Arguments(0);
    press("Open"); press("Options..."); tell("back");
  )", makeGulfSet());
  EXPECT_EQ(outcome.output,
            "back: [temp] items: temp salt, key true, ticking false, may step true\n");
  const SeenBox options{"Section View Options", ""};
  EXPECT_EQ(outcome.boxes, std::vector<SeenBox>{options});
}

}  // namespace
}  // namespace winetest
