#include "DapServer.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace opendap_test {
namespace {

std::array<int, 2> newPipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return ends;
}

std::string readLine(int descriptor) {
  std::string line;
  for (char byte = 0; ::read(descriptor, &byte, 1) == 1 && byte != '\n';) line += byte;
  return line;
}

}  // namespace

bool DapServer::Request::asksFor(const std::string& kind) const {
  return path.ends_with("." + kind);
}

std::string DapServer::Request::header(const std::string& name) const {
  for (const std::string& line : headers) {
    if (line.starts_with(name + ": ")) return line.substr(name.size() + 2);
  }
  return {};
}

DapServer::DapServer(const std::string& folder, std::string log) : log_(std::move(log)) {
  const std::array<int, 2> in = newPipe(), out = newPipe();
  process_ = ::fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ == 0) {
    ::dup2(in[0], STDIN_FILENO);
    ::dup2(out[1], STDOUT_FILENO);
    ::execl(DAP_SERVER, DAP_SERVER, folder.c_str(), log_.c_str(), nullptr);
    ::_exit(127);
  }
  ::close(in[0]);
  ::close(out[1]);
  stdin_ = in[1];
  port_ = std::atoi(readLine(out[0]).c_str());
  ::close(out[0]);
  if (port_ == 0) throw std::runtime_error("the server did not start");
}

DapServer::~DapServer() {
  ::close(stdin_);
  ::waitpid(process_, nullptr, 0);
}

std::string DapServer::url(const std::string& path, const std::string& credentials) const {
  return "http://" + credentials + "127.0.0.1:" + std::to_string(port_) + "/" + path;
}

std::vector<DapServer::Request> DapServer::requests() const {
  std::vector<Request> all;
  std::ifstream log(log_);
  for (std::string line; std::getline(log, line);) {
    std::vector<std::string> fields;
    std::istringstream parts(line);
    for (std::string field; std::getline(parts, field, '\t');) fields.push_back(field);
    if (fields.size() < 3) fields.resize(3);
    all.push_back({fields[1], fields[2], {fields.begin() + 3, fields.end()}});
  }
  return all;
}

int DapServer::count(const std::string& kind) const {
  return static_cast<int>(
      std::ranges::count_if(requests(), [&](const Request& r) { return r.asksFor(kind); }));
}

}  // namespace opendap_test
