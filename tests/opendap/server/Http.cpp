#include "Http.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace dapserver {
namespace {

// Chunks small enough that every answer has several.
constexpr std::size_t kChunk = 1000;

std::string chunked(const std::string& body, std::size_t sent) {
  std::string text;
  for (std::size_t at = 0; at < sent; at += kChunk) {
    const std::size_t size = std::min(kChunk, body.size() - at);
    std::array<char, 32> head{};
    std::snprintf(head.data(), head.size(), "%zx\r\n", size);
    text += head.data();
    text.append(body, at, std::min(size, sent - at));
    if (at + size <= sent) text += "\r\n";
  }
  if (sent == body.size()) text += "0\r\n\r\n";
  return text;
}

}  // namespace

std::string Request::header(const std::string& name) const {
  for (const auto& [key, value] : headers) {
    if (::strcasecmp(key.c_str(), name.c_str()) == 0) return value;
  }
  return {};
}

std::string Response::bytes() const {
  if (silent) return {};
  std::string text = "HTTP/1.1 " + std::to_string(status) + " " + reason + "\r\n";
  for (const auto& [name, value] : headers) text += name + ": " + value + "\r\n";
  if (then != Then::KeepOpen) text += "Connection: close\r\n";
  const std::size_t sent = std::min(bodySent.value_or(body.size()), body.size());
  if (length == Length::Chunked) {
    return text + "Transfer-Encoding: chunked\r\n\r\n" + chunked(body, sent);
  }
  if (length == Length::Told) {
    const int64_t told = static_cast<int64_t>(body.size()) + lengthError;
    text += "Content-Length: " + std::to_string(std::max<int64_t>(told, 0)) + "\r\n";
  }
  return text + "\r\n" + body.substr(0, sent);
}

Response answer(int status, std::string reason, std::string contentType, std::string body) {
  Response response;
  response.status = status;
  response.reason = std::move(reason);
  response.headers.emplace_back("Content-Type", std::move(contentType));
  response.body = std::move(body);
  return response;
}

std::string decoded(const std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned byte = 0;
    const char* const digits = text.data() + at + 1;
    if (text[at] == '%' && at + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      plain += static_cast<char>(byte);
      at += 2;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

}  // namespace dapserver
