// A DAP 2 server for the tests: serves the netCDF files of a folder on 127.0.0.1, rightly or with
// the fault that a path names (README.md).
//
// Usage: dap_server FOLDER LOG
// Prints its port when it is ready and ends when its standard input does. LOG gets a line a
// request: method, path, constraint and headers, with tabs between them.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>

#include "HttpServer.h"
#include "dapAnswers.h"
#include "faults.h"

namespace {

using namespace dapserver;

class Service {
 public:
  Service(std::string folder, const std::string& log) : folder_(std::move(folder)), log_(log) {}

  Response handle(const Request& request) {
    note(request);
    const Selector selector = selectorOf(request);
    const int count = ++counts_[selector.address + "." + selector.kind];
    const bool faulty = selector.concerns(count);
    std::string file = selector.file;
    if (faulty && selector.fault == "swap") file = selector.argument + ".nc";
    Response good = dapAnswer(folder_ + "/" + file, selector.kind, decoded(request.query));
    if (!faulty || selector.fault == "swap") return good;
    return spoilt(std::move(good), selector, request);
  }

 private:
  void note(const Request& request) {
    log_ << request.method << '\t' << request.path << '\t' << decoded(request.query);
    for (const auto& [name, value] : request.headers) log_ << '\t' << name << ": " << value;
    log_ << '\n' << std::flush;
  }

  std::string folder_;
  std::ofstream log_;
  std::map<std::string, int> counts_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: dap_server FOLDER LOG\n";
    return 2;
  }
  try {
    Service service(argv[1], argv[2]);
    HttpServer server([&](const Request& request) { return service.handle(request); });
    std::cout << server.port() << std::endl;
    server.run();
  } catch (const std::exception& problem) {
    std::cerr << "dap_server: " << problem.what() << '\n';
    return 1;
  }
  return 0;
}
