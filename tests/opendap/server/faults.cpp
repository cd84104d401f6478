#include "faults.h"

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <regex>

#include "dapAnswers.h"

namespace dapserver {
namespace {

using Length = Response::Length;
using Then = Response::Then;
using Fault = std::function<void(Response&, const Selector&, const Request&)>;

const char* const kLoginPage =
    "<!DOCTYPE html>\n<html><head><title>Sign in</title></head>\n<body><h1>Please sign in</h1>\n"
    "<p>This network needs you to log in first.</p></body></html>\n";

void stop(Response& response, std::size_t bodySent, Length length, Then then) {
  response.bodySent = bodySent;
  response.length = length;
  response.then = then;
}

std::size_t withoutLast(const Response& response, int64_t bytes) {
  const auto size = static_cast<int64_t>(response.body.size());
  return static_cast<std::size_t>(std::clamp<int64_t>(size - bytes, 0, size));
}

Fault replaced(int status, const char* reason, const char* type, const std::string& body) {
  return [=](Response& response, const Selector&, const Request&) {
    response = answer(status, reason, type, body);
    if (status == 401) response.headers.emplace_back("WWW-Authenticate", "Basic realm=\"data\"");
  };
}

Fault cut(Length length, Then then) {
  return [=](Response& response, const Selector& selector, const Request&) {
    stop(response, withoutLast(response, selector.number()), length, then);
  };
}

Fault halved(Length length, Then then) {
  return [=](Response& response, const Selector&, const Request&) {
    stop(response, response.body.size() / 2, length, then);
  };
}

Fault ending(Then then) {
  return [=](Response& response, const Selector&, const Request&) {
    response.silent = true;
    response.then = then;
  };
}

Fault sent(const std::function<void(Response&, int64_t)>& change) {
  return [=](Response& response, const Selector& selector, const Request&) {
    change(response, selector.number());
  };
}

Fault redirected(const std::function<std::string(const Selector&, const Request&)>& target) {
  return [=](Response& response, const Selector& selector, const Request& request) {
    std::string location = target(selector, request);
    if (!request.query.empty()) location += "?" + request.query;
    response = answer(302, "Found", "text/html", "<html>moved</html>\n");
    response.headers.emplace_back("Location", location);
  };
}

std::string fileAndKind(const Request& request) {
  return request.path.substr(request.path.rfind('/'));
}

// The lengths of all dimensions replaced in a DDS, or in the head of data.
void announce(Response& response, int64_t length) {
  static const std::regex dimension("( = )[0-9]+\\]");
  const std::size_t end = std::min(response.body.find("\nData:\n"), response.body.size());
  response.body = std::regex_replace(response.body.substr(0, end), dimension,
                                     "$1" + std::to_string(length) + "]") +
                  response.body.substr(end);
}

void insertBehindBrace(Response& response, const std::string& text) {
  const std::size_t brace = response.body.find('{');
  if (brace != std::string::npos) response.body.insert(brace + 1, "\n" + text);
}

void moreVariables(Response& response, int64_t count) {
  std::string text;
  for (int64_t i = 0; i < count; ++i) text += "    Float32 extra" + std::to_string(i) + ";\n";
  insertBehindBrace(response, text);
}

void nest(Response& response, int64_t depth) {
  std::string text;
  for (int64_t i = 0; i < depth; ++i) text += "Structure {\n";
  text += "Byte deep;\n";
  for (int64_t i = 0; i < depth; ++i) text += "} level" + std::to_string(i) + ";\n";
  insertBehindBrace(response, text);
}

// Bytes that mean nothing, the same ones every time.
void scramble(Response& response, int64_t seed) {
  std::mt19937 generator(static_cast<std::mt19937::result_type>(seed));
  for (char& byte : response.body) byte = static_cast<char>(generator() & 0xFF);
}

const std::map<std::string, Fault>& faults() {
  static const std::string page = kLoginPage;
  static const std::map<std::string, Fault> all = {
      // Sent otherwise, but right.
      {"chunked", sent([](Response& r, int64_t) { r.length = Length::Chunked; })},
      {"untold", sent([](Response& r, int64_t) { stop(r, r.body.size(), Length::Untold,
                                                       Then::Close); })},
      {"close", sent([](Response& r, int64_t) { r.then = Then::Close; })},
      // No answer.
      {"refuse", ending(Then::Close)},
      {"reset", ending(Then::Reset)},
      {"stuck", ending(Then::Hang)},
      {"die", ending(Then::StopServing)},
      // Time, in milliseconds.
      {"slow", sent([](Response& r, int64_t ms) { r.delay = std::chrono::milliseconds(ms); })},
      {"drip", sent([](Response& r, int64_t ms) { r.drip = std::chrono::milliseconds(ms); })},
      {"stuckhalf", halved(Length::Told, Then::Hang)},
      // Cut short by so many bytes, or in the middle.
      {"cut", cut(Length::Told, Then::Close)},
      {"cutuntold", cut(Length::Untold, Then::Close)},
      {"cutchunked", cut(Length::Chunked, Then::Close)},
      {"cutreset", cut(Length::Told, Then::Reset)},
      {"half", halved(Length::Told, Then::Close)},
      {"halfuntold", halved(Length::Untold, Then::Close)},
      {"halfchunked", halved(Length::Chunked, Then::Close)},
      // A length that is not true, by so many bytes.
      {"short", sent([](Response& r, int64_t n) { r.lengthError = -n; r.then = Then::Close; })},
      {"long", sent([](Response& r, int64_t n) { r.lengthError = n; r.then = Then::Close; })},
      // Another answer.
      {"html", replaced(200, "OK", "text/html", page)},
      {"empty", replaced(200, "OK", "text/plain", "")},
      {"401", replaced(401, "Unauthorized", "text/html", "<html>who are you?</html>\n")},
      {"403", replaced(403, "Forbidden", "text/plain",
                       dapError(403, "Request too big=1234.5 Mbytes, max=500.0"))},
      {"404", replaced(404, "Not Found", "text/html", "<html>no such page</html>\n")},
      {"404error", replaced(404, "Not Found", "text/plain", dapError(404, "No such data set"))},
      {"500", replaced(500, "Internal Server Error", "text/plain",
                       dapError(500, "The archive is being moved"))},
      {"500html", replaced(500, "Internal Server Error", "text/html", page)},
      {"503", replaced(503, "Service Unavailable", "text/html", "<html>come back later</html>\n")},
      {"error", replaced(200, "OK", "text/plain", dapError(1001, "The disk is off line"))},
      {"garbage", sent(scramble)},
      {"brokendas", replaced(200, "OK", "text/plain", "Attributes {\n  temp {\n    String units ")},
      {"nodas", replaced(200, "OK", "text/plain", "Attributes {\n}\n")},
      // Elsewhere.
      {"redirect", redirected([](const Selector&, const Request& r) { return fileAndKind(r); })},
      {"loop", redirected([](const Selector&, const Request& r) { return r.path; })},
      {"elsewhere", redirected([](const Selector& s, const Request& r) {
         return "http://127.0.0.1:" + s.argument + fileAndKind(r);
       })},
      {"named", redirected([](const Selector& s, const Request& r) {
         return "http://localhost:" + s.argument + fileAndKind(r);
       })},
      {"tofile", redirected([](const Selector&, const Request&) {
         return std::string("file:///etc/hostname");
       })},
      // Too much.
      {"announce", sent(announce)},
      {"variables", sent(moreVariables)},
      {"nested", sent(nest)},
      {"endless", sent([](Response& r, int64_t) { r.endless = true; r.length = Length::Untold; })},
  };
  return all;
}

// A good answer for those who know the name and the password of the argument "name:password"
// (%-escaped in Basic form), 401 for everybody else.
Response guarded(Response good, const Selector& selector, const Request& request) {
  if (request.header("Authorization") == "Basic " + selector.argument) return good;
  Selector unknown;
  unknown.fault = "401";
  return spoilt(std::move(good), unknown, request);
}

}  // namespace

Response spoilt(Response good, const Selector& selector, const Request& request) {
  if (selector.fault == "guarded") return guarded(std::move(good), selector, request);
  const auto fault = faults().find(selector.fault);
  if (fault == faults().end()) {
    return answer(501, "Not Implemented", "text/plain", "no fault " + selector.fault + "\n");
  }
  fault->second(good, selector, request);
  return good;
}

}  // namespace dapserver
