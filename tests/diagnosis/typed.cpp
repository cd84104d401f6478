#include "typed.h"

#include <gtest/gtest.h>

#include "diagnosis/remedy.h"

namespace diagnosis_test {

cli_test::Result typed(const std::string& command, const std::string& folder) {
  EXPECT_EQ(command.substr(0, 8), "kelvane ");
  cli_test::Surroundings surroundings;
  surroundings.folder = folder;
  const std::string program = cli::diagnosis::shellWord(KELVANE_PROGRAM);
  return cli_test::run({"/bin/sh", "-c", program + command.substr(7)}, surroundings);
}

}  // namespace diagnosis_test
