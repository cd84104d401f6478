#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace dapserver {

struct Request {
  std::string method;
  std::string path;   // with %XX as it came
  std::string query;  // what follows the question mark, with %XX as it came
  std::vector<std::pair<std::string, std::string>> headers;

  // The value of a header (any case), empty when there is none.
  std::string header(const std::string& name) const;
};

// An answer, and everything that can be wrong with the way it is sent.
struct Response {
  enum class Length { Told, Chunked, Untold };  // Untold: the end of the connection is the end
  enum class Then {
    KeepOpen,     // for the next request
    Close,        // as most servers do
    Reset,        // the connection is torn down
    Hang,         // nothing more ever comes
    StopServing,  // the connection is closed, and no other is ever taken
  };

  int status = 200;
  std::string reason = "OK";
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;

  Length length = Length::Told;
  int64_t lengthError = 0;                // added to the length that is told
  std::optional<std::size_t> bodySent;    // only so many bytes of the body, without the end mark
  bool silent = false;                    // not a byte is sent
  bool endless = false;                   // the body's last bytes come again and again
  std::chrono::milliseconds delay{0};     // before the answer
  std::chrono::milliseconds drip{0};      // between single bytes; 0: all at once
  Then then = Then::KeepOpen;

  // The bytes that go over the connection.
  std::string bytes() const;
};

Response answer(int status, std::string reason, std::string contentType, std::string body);

// %XX replaced by the bytes they stand for.
std::string decoded(const std::string& text);

}  // namespace dapserver
