#include "Subprocess.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
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

  int reading = -1, writing = -1;

 private:
  static void closeOne(int& end) {
    if (end >= 0) ::close(end);
    end = -1;
  }
};

// Up to the end; the end of a terminal is an error to its reader.
std::string readAll(int descriptor) {
  std::string text;
  std::array<char, 65536> buffer{};
  for (ssize_t n = 0; (n = ::read(descriptor, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(n));
  }
  return text;
}

constexpr int kCannotStart = 127;

void takePipes(const Surroundings& surroundings, const Pipe& out, const Pipe& err) {
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
}

[[noreturn]] void become(std::vector<char*>& arguments, const Surroundings& surroundings) {
  std::signal(SIGPIPE, SIG_DFL);
  std::signal(SIGXFSZ, SIG_DFL);
  if (surroundings.fileSizeLimit) {
    const rlimit limit{*surroundings.fileSizeLimit, *surroundings.fileSizeLimit};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(kCannotStart);
  }
  for (const auto& [name, value] : surroundings.environment) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }
  if (!surroundings.folder.empty() && ::chdir(surroundings.folder.c_str()) != 0) {
    ::_exit(kCannotStart);
  }
  ::execv(arguments.front(), arguments.data());
  ::_exit(kCannotStart);
}

// Waits for the end of the process, doing what is to be done meanwhile.
void await(pid_t child, const Surroundings& surroundings, Result& result) {
  bool watched = static_cast<bool>(surroundings.meanwhile);
  int status = 0;
  rusage usage{};
  for (pid_t ended = 0; ended != child;) {
    ended = ::wait4(child, &status, watched ? WNOHANG : 0, &usage);
    if (ended < 0) throw std::runtime_error("the process is lost");
    if (ended == 0) {
      watched = !surroundings.meanwhile(child);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.peakKilobytes = usage.ru_maxrss;
}

Result runInTerminal(std::vector<char*>& arguments, const Surroundings& surroundings) {
  winsize size{};
  size.ws_row = 24;
  size.ws_col = surroundings.terminalColumns;
  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, &size);
  if (child < 0) throw std::runtime_error("no terminal");
  if (child == 0) become(arguments, surroundings);
  Result result;
  std::thread shown([&] { result.out = readAll(terminal); });
  await(child, surroundings, result);
  shown.join();
  ::close(terminal);
  return result;
}

Result runInPipes(std::vector<char*>& arguments, const Surroundings& surroundings) {
  Pipe out, err;
  if (surroundings.stdoutReaderGone) out.closeReading();
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    takePipes(surroundings, out, err);
    become(arguments, surroundings);
  }
  out.closeWriting();
  err.closeWriting();
  Result result;
  std::thread errors([&] { result.err = readAll(err.reading); });
  std::thread texts([&] {
    if (!surroundings.stdoutReaderGone) result.out = readAll(out.reading);
  });
  await(child, surroundings, result);
  errors.join();
  texts.join();
  return result;
}

}  // namespace

Result run(const std::vector<std::string>& command, const Surroundings& surroundings) {
  std::vector<std::string> copies = command;
  std::vector<char*> arguments;
  for (std::string& copy : copies) arguments.push_back(copy.data());
  arguments.push_back(nullptr);
  return surroundings.terminalColumns > 0 ? runInTerminal(arguments, surroundings)
                                          : runInPipes(arguments, surroundings);
}

}  // namespace cli_test
