#include "dapAnswers.h"

#include <BaseTypeFactory.h>
#include <ConstraintEvaluator.h>
#include <DAS.h>
#include <DDS.h>
#include <Error.h>
#include <Grid.h>
#include <XDRStreamMarshaller.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "NcFile.h"
#include "ServedArray.h"
#include "attributes.h"

namespace dapserver {
namespace {

// A variable whose dimensions all have coordinate variables is a Grid, as in every server in use.
bool isGrid(const NcFile& file, const NcFile::Variable& variable) {
  if (variable.type == NC_CHAR || variable.dimensions.empty()) return false;
  return std::ranges::all_of(variable.dimensions, [&](int dimension) {
    const NcFile::Variable* const coordinate = file.coordinate(dimension);
    return coordinate != nullptr && coordinate->type != NC_CHAR && canBeServed(*coordinate) &&
           coordinate->id != variable.id;
  });
}

void addVariables(const NcFile& file, libdap::DDS& dds) {
  for (const NcFile::Variable& variable : file.variables()) {
    if (!canBeServed(variable)) continue;
    if (servedRank(variable) == 0) {
      dds.add_var(servedScalar(file, variable).get());
      continue;
    }
    ServedArray array(file, variable);
    if (!isGrid(file, variable)) {
      dds.add_var(&array);
      continue;
    }
    libdap::Grid grid(variable.name);
    grid.add_var(&array, libdap::array);
    for (const int dimension : variable.dimensions) {
      ServedArray map(file, *file.coordinate(dimension));
      grid.add_var(&map, libdap::maps);
    }
    dds.add_var(&grid);
  }
}

std::string ddsText(libdap::DDS& dds) {
  std::ostringstream out;
  dds.print_constrained(out);
  return out.str();
}

std::string dataBytes(libdap::ConstraintEvaluator& evaluator, libdap::DDS& dds) {
  std::ostringstream out;
  dds.tag_nested_sequences();
  dds.print_constrained(out);
  out << "Data:\n";
  {
    // Writes in a thread of its own until it is destroyed.
    libdap::XDRStreamMarshaller marshaller(out);
    for (auto at = dds.var_begin(); at != dds.var_end(); ++at) {
      if ((*at)->send_p()) (*at)->serialize(evaluator, dds, marshaller, false);
    }
  }
  return out.str();
}

Response described(const std::string& description, const std::string& type, std::string body) {
  Response response = answer(200, "OK", type, std::move(body));
  response.headers.emplace_back("XDAP", "2.0");
  response.headers.emplace_back("XDODS-Server", "dods/3.2");
  response.headers.emplace_back("Content-Description", description);
  return response;
}

Response goodAnswer(const std::string& path, const std::string& kind,
                    const std::string& constraint) {
  const NcFile file(path);
  if (kind == "das") {
    libdap::DAS das;
    addAttributes(file, das);
    std::ostringstream out;
    das.print(out);
    return described("dods-das", "text/plain", out.str());
  }
  libdap::BaseTypeFactory factory;
  libdap::DDS dds(&factory, std::filesystem::path(path).filename().string());
  addVariables(file, dds);
  libdap::ConstraintEvaluator evaluator;
  evaluator.parse_constraint(constraint, dds);
  if (kind == "dds") return described("dods-dds", "text/plain", ddsText(dds));
  return described("dods-data", "application/octet-stream", dataBytes(evaluator, dds));
}

Response refused(int status, const std::string& reason, int code, const std::string& message) {
  Response response = answer(status, reason, "text/plain", dapError(code, message));
  response.headers.emplace_back("Content-Description", "dods-error");
  return response;
}

}  // namespace

std::string dapError(int code, const std::string& message) {
  return "Error {\n    code = " + std::to_string(code) + ";\n    message = \"" + message +
         "\";\n};\n";
}

Response dapAnswer(const std::string& file, const std::string& kind,
                   const std::string& constraint) {
  if (!std::filesystem::is_regular_file(file)) {
    return refused(404, "Not Found", 404, "There is no such data set here");
  }
  try {
    return goodAnswer(file, kind, constraint);
  } catch (const libdap::Error& error) {
    return refused(400, "Bad Request", error.get_error_code(), error.get_error_message());
  } catch (const std::exception& error) {
    return refused(500, "Internal Server Error", 500, error.what());
  }
}

}  // namespace dapserver
