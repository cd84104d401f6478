#include "DapSet.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace fuzz {
namespace {

struct Dimension {
  std::string name;
  int length;
};

struct Array {
  std::string type, name;
  std::vector<Dimension> dimensions;
};

// An array, a grid when it has maps, or something of another kind with its texts.
struct Item {
  Array array;
  std::vector<Array> maps;
  std::string description, data;
};

struct Slice {
  int first, stride, last;
  int count() const { return (last - first) / stride + 1; }
};

const char* const kAttributes = R"(Attributes {
    lon {
        String units "degrees_east";
        Float64 valid_range 0.0, 360.0;
    }
    lat { String units "degrees_north"; }
    temp {
        Int16 _FillValue -32768;
        Float32 scale_factor 0.01;
        String long_name "a \"b\" c\012";
        Byte q 1, 255;
        Url u "http://x/";
    }
    NC_GLOBAL {
        String title "t", "u";
        UInt32 big 4294967295;
    }
    DODS_EXTRA {
        String Unlimited_Dimension "time";
    }
    st { a { Int32 z NaN; } alias x y; }
}
)";

Item sequence() {
  const std::string begin("\x5A\0\0\0", 4), end("\xA5\0\0\0", 4), text("abc\0", 4);
  std::string data;
  for (unsigned i = 0; i < 3; ++i) data += begin + dapNumber(i) + dapNumber(3) + text;
  return {{"", "seq", {}},
          {},
          "    Sequence {\n        Int32 a;\n        String b;\n    } seq;\n",
          data + end};
}

Item structures() {
  std::string data = dapNumber(3);
  for (int i = 0; i < 3; ++i) {
    for (const unsigned value : {2U, 2U, 1U, 2U, 0U, 0U}) data += dapNumber(value);
  }
  return {{"", "st", {}},
          {},
          "    Structure {\n        Int32 a[k = 2];\n        Float64 b;\n    } st[r = 3];\n",
          data};
}

std::vector<Item> items() {
  const Dimension time{"time", 3}, depth{"depth", 40}, lat{"lat", 9}, lon{"lon", 12};
  const Array times{"Float64", "time", {time}}, depths{"Float32", "depth", {depth}};
  const Array lats{"Float32", "lat", {lat}}, lons{"Float64", "lon", {lon}};
  return {{lons, {}, "", ""},
          {lats, {}, "", ""},
          {{"Int32", "n", {}}, {}, "", ""},
          {{"String", "names", {time}}, {}, "", ""},
          {{"Byte", "flag", {{"", 7}}}, {}, "", ""},
          {{"Int16", "temp", {time, depth, lat, lon}}, {times, depths, lats, lons}, "", ""},
          {{"Float32", "h", {lat, lon}}, {lats, lons}, "", ""},
          sequence(),
          structures()};
}

std::vector<Slice> slicesIn(const std::string& projection) {
  std::vector<Slice> slices;
  for (std::size_t at = projection.find('['); at != std::string::npos;
       at = projection.find('[', at + 1)) {
    int a = 0, b = 0, c = 0;
    const int count = std::sscanf(projection.c_str() + at, "[%d:%d:%d", &a, &b, &c);
    if (count == 1) slices.push_back({a, 1, a});
    if (count == 2) slices.push_back({a, 1, b});
    if (count == 3) slices.push_back({a, std::max(b, 1), c});
  }
  return slices;
}

int lengthOf(const Array& array, std::size_t dimension, const std::vector<Slice>& slices) {
  if (dimension < slices.size()) return slices[dimension].count();
  return array.dimensions[dimension].length;
}

std::string describe(const Array& array, const std::vector<Slice>& slices) {
  std::string text = "    " + array.type + " " + array.name;
  for (std::size_t i = 0; i < array.dimensions.size(); ++i) {
    const std::string& name = array.dimensions[i].name;
    text += "[" + (name.empty() ? "" : name + " = ") + std::to_string(lengthOf(array, i, slices)) +
            "]";
  }
  return text + ";\n";
}

std::string valuesOf(const Array& array, const std::vector<Slice>& slices) {
  const bool scalar = array.dimensions.empty();
  unsigned count = 1;
  for (std::size_t i = 0; i < array.dimensions.size(); ++i) {
    count *= static_cast<unsigned>(std::max(lengthOf(array, i, slices), 0));
  }
  std::string data;
  if (!scalar) data += dapNumber(count);
  if (!scalar && array.type != "String") data += dapNumber(count);
  for (unsigned i = 0; i < count; ++i) {
    if (array.type == "String") {
      data += dapNumber(5) + std::string("hello\0\0\0", 8);
    } else if (array.type == "Float64") {
      data += dapNumber(0x40000000 + i) + dapNumber(0);
    } else if (array.type == "Byte" && !scalar) {
      data += static_cast<char>(i);
    } else {
      data += dapNumber(0x41000000 + i);
    }
  }
  while (data.size() % 4 != 0) data += '\0';
  return data;
}

std::vector<std::string> projectionsIn(const std::string& constraint) {
  std::vector<std::string> projections;
  const std::string list = constraint.substr(0, constraint.find('&'));
  for (std::size_t at = 0; at < list.size();) {
    const std::size_t end = std::min(list.find(',', at), list.size());
    projections.push_back(list.substr(at, end - at));
    at = end + 1;
  }
  return projections;
}

struct Answer {
  std::string description, data;
  void add(const Array& array, const std::vector<Slice>& slices) {
    description += describe(array, slices);
    data += valuesOf(array, slices);
  }
};

void addGrid(Answer& answer, const Item& item, const std::vector<Slice>& slices) {
  answer.description += "    Grid {\n      Array:\n";
  answer.add(item.array, slices);
  answer.description += "      Maps:\n";
  for (std::size_t i = 0; i < item.maps.size(); ++i) {
    answer.add(item.maps[i], i < slices.size() ? std::vector{slices[i]} : std::vector<Slice>());
  }
  answer.description += "    } " + item.array.name + ";\n";
}

void addItem(Answer& answer, const Item& item, const std::string& projection, bool bare) {
  const std::vector<Slice> slices = slicesIn(projection);
  if (!item.description.empty()) {
    answer.description += item.description;
    answer.data += item.data;
  } else if (item.maps.empty() || (bare && projection.find('.') != std::string::npos)) {
    answer.add(item.array, slices);
  } else if (projection.find('.') == std::string::npos) {
    addGrid(answer, item, slices);
  } else {
    answer.description += "    Structure {\n";
    answer.add(item.array, slices);
    answer.description += "    } " + item.array.name + ";\n";
  }
}

}  // namespace

std::string dapNumber(unsigned value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFF);
  return bytes;
}

std::string dapAnswer(const std::string& kind, const std::string& constraint, bool bare) {
  if (kind == "das") return kAttributes;
  const std::vector<std::string> projections = projectionsIn(constraint);
  Answer answer;
  for (const Item& item : items()) {
    if (projections.empty()) addItem(answer, item, "", bare);
    for (const std::string& projection : projections) {
      if (projection.substr(0, projection.find_first_of(".[")) != item.array.name) continue;
      addItem(answer, item, projection, bare);
      break;
    }
  }
  const std::string description = "Dataset {\n" + answer.description + "} set;\n";
  return kind == "dods" ? description + "Data:\n" + answer.data : description;
}

}  // namespace fuzz
