#include "fit/Writer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "failures.h"
#include "fit/BlockReader.h"
#include "fit/blocks.h"
#include "fit/missing.h"
#include "util/numberText.h"

namespace cli::fit {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

void check(int status, const std::string& what) {
  if (status != NC_NOERR) throw Failure("Cannot write " + what + ": " + nc_strerror(status));
}

// From the input's numbers to the copy's; what is missing becomes NaN if it is to be replaced.
void convert(const PlanVar& variable, std::vector<double>& values) {
  if (variable.wrap > 0) {
    for (double& value : values) {
      if (value < 0) value += variable.wrap;
    }
  }
  if (!variable.fill) return;
  for (double& value : values) {
    if (standsForMissing(value, variable.missing)) {
      value = kNan;
    } else if (variable.unpacked) {
      value = value * variable.scale + variable.offset;
    }
  }
}

void fill(const PlanVar& variable, std::vector<double>& values) {
  if (!variable.fill) return;
  for (double& value : values) {
    if (std::isnan(value)) value = *variable.fill;
  }
}

// The control would take a value for missing that is none, or the other way round.
bool misread(const PlanVar& variable, double value, double missing) {
  if (variable.fill && value == *variable.fill) return false;
  if (std::isnan(value)) return true;
  if (missing == 0.0) return value == kNewFill && !isWhole(variable.type);
  if (standsForMissing(value, variable.missing)) return false;
  return takenForMissing(value, missing);
}

}  // namespace

// How a variable is divided for reading and writing.
struct Writer::Shape {
  std::vector<std::size_t> lengths;
  std::vector<bool> divided;
  bool planes = false;
};

Writer::Writer(const Input& input, const Plan& plan, Method method, std::set<int> refilled)
    : input_(input), plan_(plan), method_(method), refilled_(std::move(refilled)) {
  regridders_.resize(plan.regriddings.size());
}

Writer::~Writer() {
  if (id_ >= 0) nc_abort(id_);
}

Writer::Shape Writer::shapeOf(const PlanVar& variable) const {
  Shape shape;
  shape.planes = variable.grid >= 0;
  for (std::size_t at = 0; at < variable.dims.size(); ++at) {
    const int dim = variable.dims[at];
    shape.lengths.push_back(plan_.dims[static_cast<std::size_t>(dim)].length());
    const bool last = at + 2 >= variable.dims.size();
    const bool ofInput = variable.source < 0 || (shape.planes && last) ||
                         BlockReader(input_, plan_, variable).isOfInput(at);
    // A plane at a time; and what is repeated, once for every time.
    shape.divided.push_back(!ofInput || (shape.planes && !last));
  }
  return shape;
}

int32_t Writer::blocks() const {
  std::size_t all = 0;
  for (const PlanVar& variable : plan_.vars) {
    const Shape shape = shapeOf(variable);
    all += Blocks(shape.lengths, shape.divided, shape.planes).count();
  }
  return static_cast<int32_t>(std::min<std::size_t>(all, std::numeric_limits<int32_t>::max()));
}

void Writer::define() {
  for (const PlanDim& dim : plan_.dims) {
    dimIds_.push_back(-1);
    if (dim.gone) continue;
    check(nc_def_dim(id_, dim.name.c_str(), dim.unlimited ? NC_UNLIMITED : dim.length(),
                     &dimIds_.back()),
          "the dimension " + dim.name);
  }
  for (const PlanVar& variable : plan_.vars) {
    std::vector<int> dims;
    for (const int dim : variable.dims) dims.push_back(dimIds_[static_cast<std::size_t>(dim)]);
    varIds_.push_back(-1);
    check(nc_def_var(id_, variable.name.c_str(), variable.type, static_cast<int>(dims.size()),
                     dims.data(), &varIds_.back()),
          "the variable " + variable.name);
    defineAttributes(varIds_.back(), &variable, variable.attributes);
  }
  defineAttributes(NC_GLOBAL, nullptr, plan_.globals);
  int before = 0;
  check(nc_set_fill(id_, NC_NOFILL, &before), "the file");
  check(nc_enddef(id_), "the header");
}

void Writer::defineAttributes(int id, const PlanVar* variable, const Attributes& attributes) {
  for (const Attribute& each : attributes) {
    Attribute attribute = each;
    if (variable != nullptr && each.name == "_FillValue") {
      // The library wants it of the variable's own type.
      if (each.isText() == variable->isNumeric()) {
        if (!each.isText()) continue;
        attribute.numbers = {util::leadingNumber(each.text)};
      }
      attribute.type = variable->type;
    }
    const std::string what = "the attribute " + attribute.name;
    if (attribute.isText()) {
      check(nc_put_att_text(id_, id, attribute.name.c_str(), attribute.text.size(),
                            attribute.text.data()),
            what);
    } else {
      check(nc_put_att_double(id_, id, attribute.name.c_str(), attribute.type,
                              attribute.numbers.size(), attribute.numbers.data()),
            what);
    }
  }
}

const Regridder& Writer::regridder(int grid) {
  const auto at = static_cast<std::size_t>(grid);
  if (!regridders_[at]) {
    const Regridding& old = plan_.regriddings[at];
    const std::size_t columns =
        old.dims.size() == 2 ? input_.header().dims[static_cast<std::size_t>(old.dims[1])].length
                             : 0;
    regridders_[at] =
        std::make_unique<Regridder>(old, columns, plan_.gridLons, plan_.gridLats, method_);
  }
  return *regridders_[at];
}

void Writer::readBlock(const PlanVar& variable, const std::vector<std::size_t>& start,
                       const std::vector<std::size_t>& count, std::vector<double>& values) {
  if (variable.grid < 0) {
    BlockReader(input_, plan_, variable).read(start, count, values);
    convert(variable, values);
    return;
  }
  // The plane of the old grid, in the order of its points.
  PlanVar old = variable;
  old.dims.resize(old.dims.size() - 2);
  std::vector<std::size_t> from(start.begin(), start.end() - 2);
  std::vector<std::size_t> lengths(count.begin(), count.end() - 2);
  for (const int dim : plan_.regriddings[static_cast<std::size_t>(variable.grid)].dims) {
    old.dims.push_back(dim);
    from.push_back(0);
    lengths.push_back(input_.header().dims[static_cast<std::size_t>(dim)].length);
  }
  std::vector<double> plane;
  BlockReader(input_, plan_, old).read(from, lengths, plane);
  convert(variable, plane);
  regridder(variable.grid).apply(plane, values);
}

void Writer::put(std::size_t number, const std::vector<std::size_t>& start,
                 const std::vector<std::size_t>& count, const std::vector<double>& values) {
  const PlanVar& variable = plan_.vars[number];
  const int id = varIds_[number];
  const std::string what = "values of " + variable.name;
  if (variable.type == NC_CHAR) {
    std::string codes;
    for (const double code : values) {
      codes += static_cast<char>(static_cast<unsigned char>(code));
    }
    check(nc_put_vara_text(id_, id, start.data(), count.data(), codes.data()), what);
  } else if (variable.type == NC_FLOAT) {
    std::vector<float> singles(values.size());
    std::ranges::transform(values, singles.begin(),
                           [](double value) { return static_cast<float>(value); });
    check(nc_put_vara_float(id_, id, start.data(), count.data(), singles.data()), what);
  } else {
    check(nc_put_vara_double(id_, id, start.data(), count.data(), values.data()), what);
  }
}

// False when the control would misread values of the variable.
bool Writer::writeVariable(std::size_t number) {
  const PlanVar& variable = plan_.vars[number];
  const Shape shape = shapeOf(variable);
  const double missing = controlMissing(variable.attributes);
  const bool checked = variable.drawn && !refilled_.contains(variable.source);
  std::vector<double> values;
  for (Blocks block(shape.lengths, shape.divided, shape.planes); !block.atEnd(); block.next()) {
    const std::vector<std::size_t> count = block.lengths();
    if (variable.values) {
      // Axes are short, but not always shorter than a block.
      const std::size_t first = block.start().empty() ? 0 : block.start()[0];
      const std::size_t size = count.empty() ? 1 : count[0];
      const auto from = variable.values->begin() + static_cast<std::ptrdiff_t>(first);
      values.assign(from, from + static_cast<std::ptrdiff_t>(size));
    } else {
      readBlock(variable, block.start(), count, values);
      fill(variable, values);
    }
    if (checked && std::ranges::any_of(
                       values, [&](double value) { return misread(variable, value, missing); })) {
      return false;
    }
    put(number, block.start(), count, values);
    progress_(++done_);
  }
  return true;
}

std::set<int> Writer::write(const std::string& path,
                            const std::function<void(int32_t done)>& progress) {
  progress_ = progress;
  double bytes = 0;
  for (const PlanVar& variable : plan_.vars) {
    double size = variable.type == NC_DOUBLE ? 8 : 4;
    for (const int dim : variable.dims) {
      size *= static_cast<double>(plan_.dims[static_cast<std::size_t>(dim)].length());
    }
    bytes += size;
  }
  // The plain format for small files, because every program reads it.
  const int format = bytes < 2e9 ? 0 : NC_64BIT_OFFSET;
  check(nc_create(path.c_str(), NC_CLOBBER | format, &id_), "\"" + path + "\"");
  define();
  std::set<int> misreadOnes;
  for (std::size_t number = 0; number < plan_.vars.size(); ++number) {
    if (!writeVariable(number)) misreadOnes.insert(plan_.vars[number].source);
  }
  const int id = id_;
  id_ = -1;
  check(nc_close(id), "\"" + path + "\"");
  return misreadOnes;
}

}  // namespace cli::fit
