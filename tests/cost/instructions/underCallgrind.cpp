#include "underCallgrind.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "support/TempFolder.h"

namespace cost {
namespace {

int run(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t child = 0;
  const int error = posix_spawn(&child, pointers[0], nullptr, nullptr, pointers.data(), environ);
  if (error != 0) throw std::system_error(error, std::generic_category(), words[0]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) throw std::system_error(errno, std::generic_category(), words[0]);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

}  // namespace

int runUnderCallgrind(char** arguments) {
  const support::TempFolder folder;
  const std::string report = folder.file("report");
  setenv(kReportName, report.c_str(), 1);
  // How the C library copies depends on the processor: a byte at a time as callgrind counts it, or
  // 16 or 32 bytes with an instruction. Here it is 16 everywhere.
  setenv("GLIBC_TUNABLES", "glibc.cpu.hwcaps=-ERMS,-FSRM,-AVX,-AVX2,-AVX_Fast_Unaligned_Load", 1);
  std::vector<std::string> words = {VALGRIND_PROGRAM,
                                    "--quiet",
                                    "--tool=callgrind",
                                    "--instr-atstart=no",
                                    "--callgrind-out-file=" + report,
                                    std::filesystem::read_symlink("/proc/self/exe").string()};
  for (char** argument = arguments + 1; *argument != nullptr; ++argument) {
    words.emplace_back(*argument);
  }
  return run(words);
}

}  // namespace cost
