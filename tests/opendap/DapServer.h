#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace opendap_test {

// The DAP server of server/, started for one test and ended with it.
class DapServer {
 public:
  struct Request {
    std::string path;
    std::string constraint;
    std::vector<std::string> headers;  // "Name: value"

    bool asksFor(const std::string& kind) const;  // dds, das or dods
    // The value of a header, empty when there is none.
    std::string header(const std::string& name) const;
  };

  // Serves the files of a folder; the log is written to a file of that name.
  DapServer(const std::string& folder, std::string log);
  ~DapServer();
  DapServer(const DapServer&) = delete;
  DapServer& operator=(const DapServer&) = delete;

  int port() const { return port_; }
  // The address of a path, with what stands before the host ("user:secret@") if anything.
  std::string url(const std::string& path, const std::string& credentials = "") const;

  // All requests so far.
  std::vector<Request> requests() const;
  int count(const std::string& kind) const;

 private:
  std::string log_;
  pid_t process_ = -1;
  int stdin_ = -1;
  int port_ = 0;
};

}  // namespace opendap_test
