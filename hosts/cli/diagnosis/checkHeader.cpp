#include <netcdf.h>

#include <algorithm>
#include <cstdint>

#include "diagnosis/checkList.h"
#include "netcdf/ncf.h"

namespace cli::diagnosis {
namespace {

constexpr std::size_t kNames = ocxNetNc::kNameLimit;
constexpr std::size_t kDimensions = ocxNetNc::kDimensionLimit;
constexpr std::size_t kAttributes = ocxNetNc::kAttributeLimit;

// The things that break a rule: the first is told whole, of the others how many they are.
class Offenders {
 public:
  void add(const Evidence& evidence) {
    if (!first_) first_ = evidence;
    ++count_;
  }
  std::optional<Evidence> evidence() const {
    std::optional<Evidence> told = first_;
    if (told) told->finding += andMore(count_ - 1);
    return told;
  }

 private:
  std::optional<Evidence> first_;
  std::size_t count_ = 0;
};

// The longest name of a list, and those that are too long.
template <class Things>
Check checkNames(const std::string& rule, const std::string& title, const Things& things,
                 const std::string& place) {
  Offenders offenders;
  std::string longest;
  for (const auto& [name, owner] : things) {
    if (name.size() > longest.size()) longest = name;
    if (name.size() <= kNames) continue;
    const std::string bytes = std::to_string(name.size());
    offenders.add({quoted(name) + owner + " has " + bytes + " bytes", name, bytes, place});
  }
  return checked(rule, title, Stage::Opening, offenders.evidence(),
                 {longest.empty() ? "there is none"
                                  : "the longest, " + quoted(longest) + ", has " +
                                        std::to_string(longest.size()),
                  longest, std::to_string(longest.size()), place});
}

using Named = std::vector<std::pair<std::string, std::string>>;

Check checkLengths(const SetHeader& header) {
  Offenders offenders;
  for (const SetHeader::Dimension& dimension : header.dimensions) {
    if (dimension.length <= static_cast<std::size_t>(INT32_MAX)) continue;
    const std::string length = std::to_string(dimension.length);
    offenders.add({quoted(dimension.name) + " has " + length, dimension.name, length, "dimension"});
  }
  return checked("dimension-lengths", "A dimension has 2147483647 values at most", Stage::Opening,
                 offenders.evidence(), {"all have", "", "", "dimension"});
}

Check checkRanks(const SetHeader& header) {
  Offenders offenders;
  std::size_t most = 0;
  for (const SetHeader::Variable& variable : header.variables) {
    const std::size_t rank = variable.dimensions.size();
    most = std::max(most, rank);
    if (rank <= kDimensions) continue;
    offenders.add({quoted(variable.name) + " has " + counted(rank, "dimension") + ": " +
                       header.shapeOf(variable),
                   variable.name, std::to_string(rank), "variable"});
  }
  const std::string number = std::to_string(most);
  return checked("variable-dimensions", "A variable has 5 dimensions at most", Stage::Opening,
                 offenders.evidence(), {"the most is " + number, "", number, "variable"});
}

Check checkAttributeCounts(const SetHeader& header) {
  Offenders offenders;
  std::size_t most = 0;
  for (const SetHeader::Variable& variable : header.variables) {
    const std::size_t count = variable.attributes.size();
    most = std::max(most, count);
    if (count <= kAttributes) continue;
    offenders.add({quoted(variable.name) + " has " + counted(count, "attribute"), variable.name,
                   std::to_string(count), "variable"});
  }
  const std::string number = std::to_string(most);
  return checked("attribute-counts", "A variable has 15 attributes at most", Stage::Opening,
                 offenders.evidence(), {"the most is " + number, "", number, "variable"});
}

// The types that the control reads; an address may add containers of type 0 named "DODS".
bool isReadable(const SetHeader::Attribute& attribute) {
  if (attribute.type == NC_NAT) return attribute.name == "DODS";
  return attribute.type >= NC_BYTE && attribute.type <= NC_DOUBLE;
}

void addUnreadable(const std::vector<SetHeader::Attribute>& attributes, const std::string& owner,
                   const std::string& place, Offenders& offenders) {
  for (const SetHeader::Attribute& attribute : attributes) {
    if (isReadable(attribute)) continue;
    const std::string type = typeName(attribute.type);
    offenders.add({"attribute " + quoted(attribute.name) + owner + " has the type " + type,
                   attribute.name, type, place});
  }
}

Check checkAttributeTypes(const SetHeader& header) {
  Offenders offenders;
  for (const SetHeader::Variable& variable : header.variables) {
    addUnreadable(variable.attributes, " of " + quoted(variable.name),
                  "attribute of " + quoted(variable.name), offenders);
  }
  addUnreadable(header.attributes, " of the data set", "attribute of the data set", offenders);
  return checked("attribute-types",
                 "Attributes are characters, bytes, shorts, ints, floats or doubles",
                 Stage::Opening, offenders.evidence(), {"all are", "", "", "attribute"});
}

// Identification and dates go by attributes; a server that sends none has lost them.
Check checkAnyAttribute(const SetHeader& header) {
  bool any = false;
  for (const SetHeader::Variable& variable : header.variables) any |= !variable.attributes.empty();
  std::optional<Evidence> against;
  if (!any) against = Evidence{"no variable has one", "", "0", "variable"};
  return checked("attributes", "Variables have attributes", Stage::Opening, against,
                 {"they have", "", "", "variable"});
}

}  // namespace

void checkHeader(const SetHeader& header, bool atAddress, std::vector<Check>& checks) {
  Named dimensions, variables, attributes;
  for (const SetHeader::Dimension& dimension : header.dimensions) {
    dimensions.emplace_back(dimension.name, "");
  }
  for (const SetHeader::Variable& variable : header.variables) {
    variables.emplace_back(variable.name, "");
    for (const SetHeader::Attribute& attribute : variable.attributes) {
      attributes.emplace_back(attribute.name, " of " + quoted(variable.name));
    }
  }
  for (const SetHeader::Attribute& attribute : header.attributes) {
    attributes.emplace_back(attribute.name, " of the data set");
  }
  checks.push_back(checkNames("dimension-names", "Names of dimensions have 45 bytes at most",
                              dimensions, "dimension"));
  checks.push_back(checkLengths(header));
  checks.push_back(checkNames("variable-names", "Names of variables have 45 bytes at most",
                              variables, "variable"));
  checks.push_back(checkRanks(header));
  checks.push_back(checkAttributeCounts(header));
  checks.push_back(checkNames("attribute-names", "Names of attributes have 45 bytes at most",
                              attributes, "attribute"));
  checks.push_back(checkAttributeTypes(header));
  if (!atAddress || header.variables.empty()) return;
  const Check any = checkAnyAttribute(header);
  if (any.state == State::Failed) checks.push_back(any);
}

}  // namespace cli::diagnosis
