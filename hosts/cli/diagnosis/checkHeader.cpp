#include <netcdf.h>

#include <algorithm>
#include <cstdint>

#include "diagnosis/checkList.h"
#include "netcdf/ncf.h"

namespace cli::diagnosis {
namespace {

constexpr std::size_t kNames = ocxNetNc::kNameLimit;

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

Check checkLengths(const Header& header) {
  Offenders offenders;
  for (const Dimension& dimension : header.dims) {
    if (dimension.length <= static_cast<std::size_t>(INT32_MAX)) continue;
    const std::string length = std::to_string(dimension.length);
    offenders.add({quoted(dimension.name) + " has " + length, dimension.name, length, "dimension"});
  }
  return checked("dimension-lengths", "A dimension has 2147483647 values at most", Stage::Opening,
                 offenders.evidence(), {"all have", "", "", "dimension"});
}

// What a variable has of a kind of things, of which there is room for a few.
struct Room {
  const char *rule, *thing;
  std::size_t most;
  std::size_t (*countOf)(const Variable& variable);
  bool withShape;  // tells the variable's dimensions too
};
constexpr Room kRoomForDimensions = {"variable-dimensions", "dimension", ocxNetNc::kDimensionLimit,
                                     [](const Variable& variable) { return variable.dims.size(); },
                                     true};
constexpr Room kRoomForAttributes = {
    "attribute-counts", "attribute", ocxNetNc::kAttributeLimit,
    [](const Variable& variable) { return variable.attributes.size(); }, false};

Check checkRoom(const Header& header, const Room& room) {
  Offenders offenders;
  std::size_t most = 0;
  for (const Variable& variable : header.vars) {
    const std::size_t count = room.countOf(variable);
    most = std::max(most, count);
    if (count <= room.most) continue;
    const std::string shape = room.withShape ? ": " + shapeOf(header, variable) : "";
    offenders.add({quoted(variable.name) + " has " + counted(count, room.thing) + shape,
                   variable.name, std::to_string(count), "variable"});
  }
  const std::string number = std::to_string(most);
  return checked(room.rule, "A variable has " + counted(room.most, room.thing) + " at most",
                 Stage::Opening, offenders.evidence(),
                 {"the most is " + number, "", number, "variable"});
}

// The control counts dimensions from 0 on. Those of groups are counted along with the others, and
// can come between.
Check checkDimensionNumbers(const Header& header) {
  Offenders offenders;
  for (const Variable& variable : header.vars) {
    for (const int at : variable.dims) {
      const Dimension& dimension = dimensionOf(header, at);
      if (static_cast<std::size_t>(dimension.id) < header.dims.size()) continue;
      offenders.add({quoted(variable.name) + " lies on " + quoted(dimension.name) +
                         ", which is counted behind dimensions of groups",
                     dimension.name, std::to_string(dimension.id), "dimension"});
    }
  }
  return checked("group-dimensions", "No dimensions of groups come before others", Stage::Opening,
                 offenders.evidence(), {"none do", "", "", "dimension"});
}

// The types that the control reads; an address may add containers of type 0 named "DODS".
bool isReadable(const Attribute& attribute) {
  if (attribute.type == NC_NAT) return attribute.name == "DODS";
  return attribute.type >= NC_BYTE && attribute.type <= NC_DOUBLE;
}

void addUnreadable(const std::vector<Attribute>& attributes, const std::string& owner,
                   const std::string& place, Offenders& offenders) {
  for (const Attribute& attribute : attributes) {
    if (isReadable(attribute)) continue;
    const std::string type = typeName(attribute.type);
    offenders.add({"attribute " + quoted(attribute.name) + owner + " has the type " + type,
                   attribute.name, type, place});
  }
}

Check checkAttributeTypes(const Header& header) {
  Offenders offenders;
  for (const Variable& variable : header.vars) {
    addUnreadable(variable.attributes, " of " + quoted(variable.name),
                  "attribute of " + quoted(variable.name), offenders);
  }
  addUnreadable(header.globals, " of the data set", "attribute of the data set", offenders);
  return checked("attribute-types",
                 "Attributes are characters, bytes, shorts, ints, floats or doubles",
                 Stage::Opening, offenders.evidence(), {"all are", "", "", "attribute"});
}

// Identification and dates go by attributes; a server that sends none has lost them.
Check checkAnyAttribute(const Header& header) {
  bool any = false;
  for (const Variable& variable : header.vars) any |= !variable.attributes.empty();
  std::optional<Evidence> against;
  if (!any) against = Evidence{"no variable has one", "", "0", "variable"};
  return checked("attributes", "Variables have attributes", Stage::Opening, against,
                 {"they have", "", "", "variable"});
}

}  // namespace

void checkHeader(const Header& header, bool atAddress, std::vector<Check>& checks) {
  Named dimensions, variables, attributes;
  for (const Dimension& dimension : header.dims) {
    dimensions.emplace_back(dimension.name, "");
  }
  for (const Variable& variable : header.vars) {
    variables.emplace_back(variable.name, "");
    for (const Attribute& attribute : variable.attributes) {
      attributes.emplace_back(attribute.name, " of " + quoted(variable.name));
    }
  }
  for (const Attribute& attribute : header.globals) {
    attributes.emplace_back(attribute.name, " of the data set");
  }
  checks.push_back(checkNames("dimension-names", "Names of dimensions have 45 bytes at most",
                              dimensions, "dimension"));
  checks.push_back(checkLengths(header));
  checks.push_back(checkNames("variable-names", "Names of variables have 45 bytes at most",
                              variables, "variable"));
  checks.push_back(checkRoom(header, kRoomForDimensions));
  const Check numbers = checkDimensionNumbers(header);
  if (!header.groups.empty() || numbers.state == State::Failed) checks.push_back(numbers);
  checks.push_back(checkRoom(header, kRoomForAttributes));
  checks.push_back(checkNames("attribute-names", "Names of attributes have 45 bytes at most",
                              attributes, "attribute"));
  checks.push_back(checkAttributeTypes(header));
  if (!atAddress || header.vars.empty()) return;
  const Check any = checkAnyAttribute(header);
  if (any.state == State::Failed) checks.push_back(any);
}

}  // namespace cli::diagnosis
