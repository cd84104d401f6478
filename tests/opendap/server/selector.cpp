#include "selector.h"

#include <cstdlib>
#include <vector>

namespace dapserver {
namespace {

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t at; (at = text.find(separator, begin)) != std::string::npos; begin = at + 1) {
    parts.push_back(text.substr(begin, at - begin));
  }
  parts.push_back(text.substr(begin));
  return parts;
}

}  // namespace

int64_t Selector::number() const { return std::strtoll(argument.c_str(), nullptr, 10); }

bool Selector::concerns(int count) const {
  return !fault.empty() && (faultyKind == "any" || faultyKind == kind) && count >= from &&
         count <= to;
}

Selector selectorOf(const Request& request) {
  Selector selector;
  const std::size_t dot = request.path.rfind('.');
  selector.address = request.path.substr(0, dot);
  if (dot != std::string::npos) selector.kind = request.path.substr(dot + 1);
  const std::size_t slash = selector.address.rfind('/');
  selector.file = decoded(selector.address.substr(slash == std::string::npos ? 0 : slash + 1));
  if (slash == std::string::npos || slash == 0) return selector;

  const std::vector<std::string> parts = split(selector.address.substr(1, slash - 1), '.');
  const std::size_t hyphen = parts[0].find('-');
  selector.fault = parts[0].substr(0, hyphen);
  if (hyphen != std::string::npos) selector.argument = decoded(parts[0].substr(hyphen + 1));
  if (parts.size() > 1) selector.faultyKind = parts[1];
  if (parts.size() > 2) selector.from = std::atoi(parts[2].c_str());
  if (parts.size() > 3) selector.to = std::atoi(parts[3].c_str());
  return selector;
}

}  // namespace dapserver
