#include <functional>

#include "fit/rules.h"
#include "netcdf/ncf.h"

namespace cli::fit {
namespace {

constexpr auto kMost = static_cast<std::size_t>(ocxNetNc::kNameLimit);

// The start of a name, without cutting a character in two; a number tells it from others.
std::string shortened(const std::string& name,
                      const std::function<bool(const std::string&)>& taken) {
  for (int number = 1;; ++number) {
    const std::string tail = number == 1 ? "" : "_" + std::to_string(number);
    std::size_t length = kMost - tail.size();
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) --length;
    std::string wanted = name.substr(0, length) + tail;
    if (!taken(wanted)) return wanted;
  }
}

void tell(Draft& draft, const std::string& before, const std::string& after) {
  draft.change(before, "shortened to " + after, "the control takes names of 45 bytes at most");
}

void fitAttributeNames(Draft& draft, Attributes& attributes) {
  for (Attribute& attribute : attributes) {
    if (attribute.name.size() <= kMost) continue;
    const std::string before = attribute.name;
    attribute.name = shortened(
        before, [&](const std::string& name) { return find(attributes, name) != nullptr; });
    tell(draft, before, attribute.name);
  }
}

}  // namespace

void fitNames(Draft& draft) {
  const auto taken = [&](const std::string& name) { return draft.freeName(name) != name; };
  for (std::size_t at = 0; at < draft.plan.vars.size(); ++at) {
    if (draft.plan.vars[at].gone) continue;
    const std::string before = draft.plan.vars[at].name;
    if (before.size() > kMost) {
      draft.rename(static_cast<int>(at), shortened(before, taken));
      tell(draft, before, draft.plan.vars[at].name);
    }
    fitAttributeNames(draft, draft.plan.vars[at].attributes);
  }
  for (PlanDim& dim : draft.plan.dims) {
    if (dim.gone || dim.name.size() <= kMost) continue;
    const std::string before = dim.name;
    dim.name = shortened(before, taken);
    tell(draft, before, dim.name);
  }
  fitAttributeNames(draft, draft.plan.globals);
}

}  // namespace cli::fit
