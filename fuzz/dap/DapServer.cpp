#include "DapServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

#include "DapSet.h"
#include "damage.h"

namespace fuzz {
namespace {

// "%5B" in an address is "[".
std::string decoded(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      result += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

bool isDamaged(const std::string& kind, const std::string& constraint, uint64_t choice,
               Random& random) {
  // Without the length of its sequence no data set opens: mostly it comes.
  if (constraint == "seq.a" && !random.oneIn(8)) return false;
  switch (choice) {
    case 0:
      return kind == "dds";
    case 1:
      return kind == "das";
    case 2:
      return kind == "dds" || (kind == "dods" && random.oneIn(2));
    default:
      return kind == "dods";
  }
}

std::string answerTo(const std::string& request, uint64_t caseNumber) {
  const std::size_t begin = request.find(' ') + 1;
  const std::string target = request.substr(begin, request.find(' ', begin) - begin);
  const std::size_t mark = target.find('?');
  const std::string constraint = mark == std::string::npos ? "" : decoded(target.substr(mark + 1));
  const std::string path = target.substr(0, mark);
  const std::string kind = path.substr(path.rfind('.') + 1);

  Random choices(caseNumber * 7919 + 1);
  const bool bare = choices.oneIn(2);
  const uint64_t choice = choices.below(6);
  // The two descriptions of an open differ in one case of six.
  const std::string about = choice == 2 ? kind : kind + constraint;
  Random random(caseNumber * 104729 + scrambled(about));
  std::string answer = dapAnswer(kind, constraint, bare);
  if (isDamaged(kind, constraint, choice, random)) damage(answer, random);
  return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(answer.size()) + "\r\n\r\n" +
         answer;
}

void serveConnection(int connection, const std::atomic<uint64_t>& caseNumber) {
  std::string received;
  std::array<char, 4096> part{};
  for (;;) {
    std::size_t end = 0;
    while ((end = received.find("\r\n\r\n")) == std::string::npos) {
      const ssize_t count = read(connection, part.data(), part.size());
      if (count <= 0) return;
      received.append(part.data(), static_cast<std::size_t>(count));
    }
    const std::string answer = answerTo(received.substr(0, end), caseNumber);
    received.erase(0, end + 4);
    if (write(connection, answer.data(), answer.size()) < 0) return;
  }
}

void serve(int listener, const std::atomic<uint64_t>& caseNumber) {
  for (;;) {
    const int connection = accept(listener, nullptr, nullptr);
    if (connection < 0) return;
    const int one = 1;
    setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    serveConnection(connection, caseNumber);
    close(connection);
  }
}

}  // namespace

int startServer(const std::atomic<uint64_t>& caseNumber) {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* plain = reinterpret_cast<sockaddr*>(&address);
  if (listener < 0 || bind(listener, plain, size) != 0 || listen(listener, 64) != 0 ||
      getsockname(listener, plain, &size) != 0) {
    return -1;
  }
  std::thread([listener, &caseNumber] { serve(listener, caseNumber); }).detach();
  return ntohs(address.sin_port);
}

}  // namespace fuzz
