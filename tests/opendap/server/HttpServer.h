#pragma once

#include <functional>
#include <list>
#include <string>

#include "Http.h"

namespace dapserver {

// A small HTTP 1.1 server on 127.0.0.1, in one thread: any number of connections, each of which
// can be kept waiting without keeping the others waiting.
class HttpServer {
 public:
  using Handler = std::function<Response(const Request&)>;

  // Takes a free port. Throws std::runtime_error when there is none.
  explicit HttpServer(Handler handler);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  int port() const { return port_; }
  // Serves until the standard input ends, whoever may still be connected.
  void run();

 private:
  using Clock = std::chrono::steady_clock;
  struct Connection {
    int socket = -1;
    std::string received;
    Response response;
    std::string bytes;     // of the response
    std::size_t sent = 0;  // of the bytes
    Clock::time_point due{};
    bool answering = false;
    bool hanging = false;
  };

  int pause() const;
  void wait();
  void accept();
  void receive(Connection& connection);
  void respond(Connection& connection);
  void send(Connection& connection);
  void finish(Connection& connection);
  static void close(Connection& connection, bool reset = false);
  void stopServing();

  Handler handler_;
  int listener_ = -1;
  int port_ = 0;
  bool ended_ = false;
  std::list<Connection> connections_;
};

}  // namespace dapserver
