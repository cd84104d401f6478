#include "Subprocess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>

namespace cli_test {
namespace {

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    reading = ends[0];
    writing = ends[1];
  }
  ~Pipe() {
    closeReading();
    closeWriting();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  void closeReading() { closeOne(reading); }
  void closeWriting() { closeOne(writing); }
  std::string readAll() const {
    std::string text;
    std::array<char, 65536> buffer{};
    for (ssize_t n = 0; (n = ::read(reading, buffer.data(), buffer.size())) > 0;) {
      text.append(buffer.data(), static_cast<std::size_t>(n));
    }
    return text;
  }

  int reading = -1, writing = -1;

 private:
  static void closeOne(int& end) {
    if (end >= 0) ::close(end);
    end = -1;
  }
};

[[noreturn]] void become(std::vector<char*>& arguments, const Surroundings& surroundings,
                         const Pipe& out, const Pipe& err) {
  constexpr int kCannotStart = 127;
  std::signal(SIGPIPE, SIG_DFL);
  ::dup2(err.writing, STDERR_FILENO);
  if (surroundings.stdoutClosed) {
    ::close(STDOUT_FILENO);
  } else if (surroundings.stdoutFile) {
    const int file = ::open(surroundings.stdoutFile->c_str(), O_WRONLY | O_CREAT, 0600);
    if (file < 0) ::_exit(kCannotStart);
    ::dup2(file, STDOUT_FILENO);
  } else {
    ::dup2(out.writing, STDOUT_FILENO);
  }
  if (!surroundings.folder.empty() && ::chdir(surroundings.folder.c_str()) != 0) {
    ::_exit(kCannotStart);
  }
  ::execv(arguments.front(), arguments.data());
  ::_exit(kCannotStart);
}

}  // namespace

Result run(const std::vector<std::string>& command, const Surroundings& surroundings) {
  std::vector<std::string> copies = command;
  std::vector<char*> arguments;
  for (std::string& copy : copies) arguments.push_back(copy.data());
  arguments.push_back(nullptr);

  Pipe out, err;
  if (surroundings.stdoutReaderGone) out.closeReading();
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) become(arguments, surroundings, out, err);
  out.closeWriting();
  err.closeWriting();
  Result result;
  std::thread errors([&] { result.err = err.readAll(); });
  if (!surroundings.stdoutReaderGone) result.out = out.readAll();
  errors.join();
  int status = 0;
  if (::waitpid(child, &status, 0) != child) throw std::runtime_error("the process is lost");
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

}  // namespace cli_test
