#pragma once

#include <set>
#include <string>

namespace diagnosis_test {

// The names that the documented schema lists for a property ("rule" or "kind") of the entries of a
// list ("checks" or "warnings").
std::set<std::string> namesInSchema(const std::string& list, const std::string& property);

}  // namespace diagnosis_test
