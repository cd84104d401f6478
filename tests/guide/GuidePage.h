#pragma once

#include <string>
#include <vector>

#include "childProcess.h"

namespace winetest {

// The examples of one page, in one language. In the order of the page they are one program; their
// comments tell what it prints ("-> text") and which message boxes come up ("box: caption: text").
struct GuidePage {
  std::string program;
  std::string output;          // one line for each "->"
  std::vector<SeenBox> boxes;  // one for each "box:"
};

// The blocks of a page's text that are marked with a language, whose comments start as given.
GuidePage readGuidePage(const std::string& page, const std::string& language,
                        const std::string& comment);

}  // namespace winetest
