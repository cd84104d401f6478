// Times whole processes, one after the other in turn, so that a comparison holds while the
// machine's speed drifts. Reads a plan from standard input, a command a line, its words separated
// by tabs:
//   NAME <tab> RUNS <tab> PROGRAM <tab> ARGUMENT ...
// Every round starts each command that still has runs left. What the commands print goes to the
// file that is named on the command line. Writes one JSON object: for each name the lists of wall
// and processor milliseconds and of peak memory in kilobytes, and how many runs failed.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Command {
  std::string name;
  int runs = 0;
  std::vector<std::string> words;
  std::vector<double> wall, cpu;
  std::vector<long> peak;
  int failures = 0;
};

std::vector<Command> readPlan() {
  std::vector<Command> plan;
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream words(line);
    Command command;
    std::string word;
    std::getline(words, command.name, '\t');
    std::getline(words, word, '\t');
    command.runs = std::atoi(word.c_str());
    while (std::getline(words, word, '\t')) command.words.push_back(word);
    if (command.runs < 1 || command.words.empty()) {
      std::fprintf(stderr, "alternate: no command: %s\n", line.c_str());
      std::exit(2);
    }
    plan.push_back(std::move(command));
  }
  return plan;
}

double milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

// Runs a command once. Spawning from this small process keeps the peak that the system tells for
// the child that of the child's own program.
void run(Command& command, const posix_spawn_file_actions_t& streams) {
  std::vector<char*> arguments;
  for (std::string& word : command.words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawnp(&child, arguments[0], &streams, nullptr, arguments.data(), environ) != 0) {
    ++command.failures;
    return;
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) ++command.failures;
  command.wall.push_back(wall.count());
  command.cpu.push_back(milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime));
  command.peak.push_back(usage.ru_maxrss);
}

template <class Number>
void printList(const char* name, const std::vector<Number>& numbers) {
  std::cout << '"' << name << "\": [";
  for (std::size_t n = 0; n < numbers.size(); ++n) std::cout << (n > 0 ? ", " : "") << numbers[n];
  std::cout << "], ";
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: alternate LOG <PLAN\n", stderr);
    return 2;
  }
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_addopen(&streams, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&streams, 1, arguments[1], O_WRONLY | O_CREAT | O_APPEND, 0644);
  posix_spawn_file_actions_adddup2(&streams, 1, 2);

  std::vector<Command> plan = readPlan();
  bool more = true;
  for (int round = 0; more; ++round) {
    more = false;
    for (Command& command : plan) {
      if (round < command.runs) run(command, streams);
      more = more || round + 1 < command.runs;
    }
  }
  posix_spawn_file_actions_destroy(&streams);

  std::cout << "{";
  for (std::size_t n = 0; n < plan.size(); ++n) {
    std::cout << (n > 0 ? ",\n" : "\n") << '"' << plan[n].name << "\": {";
    printList("wall", plan[n].wall);
    printList("cpu", plan[n].cpu);
    printList("peak", plan[n].peak);
    std::cout << "\"failures\": " << plan[n].failures << '}';
  }
  std::cout << "\n}\n";
}
