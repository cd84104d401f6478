#include "HttpServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace dapserver {
namespace {

// The request at the beginning of what was received; none while its end has not come.
std::optional<Request> takeRequest(std::string& received) {
  const std::size_t end = received.find("\r\n\r\n");
  if (end == std::string::npos) return std::nullopt;
  const std::string head = received.substr(0, end + 2);
  received.erase(0, end + 4);

  Request request;
  std::size_t at = head.find("\r\n");
  const std::string first = head.substr(0, at);
  const std::size_t space = first.find(' ');
  const std::size_t last = first.rfind(' ');
  request.method = first.substr(0, space);
  if (space != std::string::npos && last > space) {
    const std::string target = first.substr(space + 1, last - space - 1);
    const std::size_t mark = target.find('?');
    request.path = target.substr(0, mark);
    if (mark != std::string::npos) request.query = target.substr(mark + 1);
  }
  for (at += 2; at < head.size();) {
    const std::size_t stop = head.find("\r\n", at);
    const std::string line = head.substr(at, stop - at);
    const std::size_t colon = line.find(':');
    if (colon != std::string::npos) {
      const std::size_t value = line.find_first_not_of(' ', colon + 1);
      request.headers.emplace_back(line.substr(0, colon),
                                   value == std::string::npos ? "" : line.substr(value));
    }
    at = stop + 2;
  }
  return request;
}

// Poll's events for one descriptor.
pollfd watched(int descriptor, bool reading, bool writing) {
  pollfd item{};
  item.fd = descriptor;
  item.events = static_cast<short>((reading ? POLLIN : 0) | (writing ? POLLOUT : 0));
  return item;
}

constexpr short kReadable = POLLIN | POLLHUP | POLLERR;

}  // namespace

HttpServer::HttpServer(Handler handler) : handler_(std::move(handler)) {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const plain = reinterpret_cast<sockaddr*>(&address);
  if (listener_ < 0 || ::bind(listener_, plain, size) != 0 || ::listen(listener_, 32) != 0 ||
      ::getsockname(listener_, plain, &size) != 0) {
    throw std::runtime_error("no port to listen on");
  }
  port_ = ntohs(address.sin_port);
}

HttpServer::~HttpServer() {
  for (Connection& connection : connections_) close(connection);
  stopServing();
}

void HttpServer::run() {
  while (!ended_) {
    wait();
    connections_.remove_if([](const Connection& connection) { return connection.socket < 0; });
  }
}

// Milliseconds until an answer is due, -1 when none is.
int HttpServer::pause() const {
  int shortest = -1;
  for (const Connection& connection : connections_) {
    if (!connection.answering || connection.hanging) continue;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(connection.due - Clock::now());
    const int milliseconds = static_cast<int>(std::max<int64_t>(left.count(), 0));
    if (milliseconds > 0) shortest = shortest < 0 ? milliseconds : std::min(shortest, milliseconds);
  }
  return shortest;
}

void HttpServer::wait() {
  std::vector<pollfd> items = {watched(STDIN_FILENO, true, false),
                               watched(listener_, true, false)};
  std::vector<Connection*> behind;
  for (Connection& connection : connections_) {
    const bool due = connection.answering && !connection.hanging && connection.due <= Clock::now();
    items.push_back(watched(connection.socket, !connection.answering || connection.hanging, due));
    behind.push_back(&connection);
  }
  if (::poll(items.data(), items.size(), pause()) < 0) return;
  if ((items[0].revents & kReadable) != 0) {
    char byte = 0;
    ended_ = ::read(STDIN_FILENO, &byte, 1) <= 0;
  }
  for (std::size_t i = 0; i < behind.size(); ++i) {
    const short events = items[i + 2].revents;
    if ((events & POLLOUT) != 0) {
      send(*behind[i]);
    } else if ((events & kReadable) != 0) {
      receive(*behind[i]);
    }
  }
  if (listener_ >= 0 && (items[1].revents & POLLIN) != 0) accept();
}

void HttpServer::accept() {
  const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (socket < 0) return;
  const int yes = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
  connections_.emplace_back().socket = socket;
}

void HttpServer::receive(Connection& connection) {
  std::array<char, 65536> buffer{};
  const ssize_t got = ::recv(connection.socket, buffer.data(), buffer.size(), 0);
  if (got <= 0) {
    close(connection);
    return;
  }
  connection.received.append(buffer.data(), static_cast<std::size_t>(got));
  if (!connection.answering) respond(connection);
}

void HttpServer::respond(Connection& connection) {
  const std::optional<Request> request = takeRequest(connection.received);
  if (!request) return;
  connection.response = handler_(*request);
  connection.bytes = connection.response.bytes();
  connection.sent = 0;
  connection.due = Clock::now() + connection.response.delay;
  connection.answering = true;
  if (connection.bytes.empty()) finish(connection);
}

void HttpServer::send(Connection& connection) {
  const Response& response = connection.response;
  const std::size_t left = connection.bytes.size() - connection.sent;
  const std::size_t size = response.drip.count() > 0 ? std::min<std::size_t>(left, 1) : left;
  const ssize_t done =
      ::send(connection.socket, connection.bytes.data() + connection.sent, size, MSG_NOSIGNAL);
  if (done < 0) {
    close(connection);
    return;
  }
  connection.sent += static_cast<std::size_t>(done);
  connection.due = Clock::now() + response.drip;
  if (connection.sent < connection.bytes.size()) return;
  if (response.endless) {
    connection.sent -= std::min<std::size_t>(response.body.size(), 65536);
  } else {
    finish(connection);
  }
}

void HttpServer::finish(Connection& connection) {
  connection.answering = false;
  switch (connection.response.then) {
    case Response::Then::KeepOpen:
      if (!connection.received.empty()) respond(connection);
      break;
    case Response::Then::Close:
      close(connection);
      break;
    case Response::Then::Reset:
      close(connection, true);
      break;
    case Response::Then::Hang:
      connection.answering = connection.hanging = true;
      break;
    case Response::Then::StopServing:
      close(connection);
      stopServing();
      break;
  }
}

void HttpServer::close(Connection& connection, bool reset) {
  if (connection.socket < 0) return;
  if (reset) {
    const linger atOnce{1, 0};
    ::setsockopt(connection.socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  } else {
    ::shutdown(connection.socket, SHUT_WR);
  }
  ::close(connection.socket);
  connection.socket = -1;
}

void HttpServer::stopServing() {
  if (listener_ >= 0) ::close(listener_);
  listener_ = -1;
}

}  // namespace dapserver
