#include "sectionRequest.h"

#include <filesystem>

#include "diagnosis/remedy.h"
#include "failures.h"
#include "nameList.h"
#include "netcdf/ncf.h"
#include "netcdf/remoteName.h"
#include "section/drawItems.h"
#include "terminal.h"
#include "util/lastError.h"
#include "util/numberText.h"

namespace cli {
namespace {

using ocxNetNc::ncf;

// Which step of the recognition stopped without a word.
std::string silentReason() {
  if (ncf.lon_vId < 1) {
    return "No longitude was found: no variable has units of degrees east.";
  }
  if (ncf.lat_vId < 1) {
    return "No latitude was found: no variable has units of degrees north.";
  }
  const bool regular = ncf.lon_dId >= 0 && ncf.lat_dId >= 0;
  if (!regular && ncf.icell_dId < 0 && ncf.ncell_dId < 0) {
    return "Longitude and latitude are no axes of their own, and no dimension counts cells.";
  }
  if (ncf.has_level != 1) {
    return "No vertical axis was found: no variable of one dimension is named level, sigma, z, "
           "layer or depth (or begins so).";
  }
  if (KelvaneMain::nDrawItems() < 1) {
    return "Nothing can be drawn: no variable of three or more dimensions uses the vertical axis.";
  }
  return "The data set could not be opened.";
}

// The netCDF library skips blanks in front of a name; a relative file name is put behind "./".
std::string openableName(const std::string& name) {
  std::error_code ignored;
  const bool blankFirst = !name.empty() && static_cast<unsigned char>(name.front()) <= ' ';
  return blankFirst && std::filesystem::exists(name, ignored) ? "./" + name : name;
}

std::string range(const ocxNetNc::CoordinateValues& values) {
  return util::generalText(values(1)) + " to " + util::generalText(values(values.size()));
}

[[noreturn]] void refuseVariable(const control::KelvaneCtl& control, const std::string& name) {
  std::vector<std::string> items;
  for (int32_t item = 1; item <= control.NumDrawAbleItems(); ++item) {
    items.push_back(control.ItemName(item));
  }
  throw Failure(control.ErrorMessage() + ": " + name +
                "\nItems that can be drawn: " + nameList(items));
}

// What a data set that was read is not taken for is told elsewhere in full.
std::string hint(const std::string& name) {
  const std::string word = diagnosis::fileWord(ocxNetNc::withoutCredentials(name));
  return ncf.NcDims.empty() ? ""
                            : "\nWhat is wrong and what helps is told by: kelvane info " + word;
}

[[noreturn]] void refusePath(const control::KelvaneCtl& control, const std::string& name) {
  std::string text = control.ErrorMessage();
  if (!(ncf.dlon > 0) || !(ncf.dlat > 0)) throw Failure(text + hint(name));
  if (!ncf.lon_values.empty() && !ncf.lat_values.empty()) {
    text += "\nThe grid covers longitudes " + range(ncf.lon_values) + " and latitudes " +
            range(ncf.lat_values) + ".";
  }
  throw Failure(text);
}

void noteBackwardSegments(const std::vector<PathPoint>& path) {
  for (std::size_t k = 1; k < path.size(); ++k) {
    if (path[k].lon < path[k - 1].lon || path[k].lat < path[k - 1].lat) {
      report("note: segment " + std::to_string(k) +
             " of the path goes west or south, but a section always advances toward east and "
             "north from the segment's first point.");
    }
  }
}

}  // namespace

std::optional<std::string> openDataSet(control::KelvaneCtl& control, const std::string& name) {
  util::LastError.clear();
  if (control.NcFile(openableName(name)) == 1) return std::nullopt;
  std::string reason = control.ErrorMessage();
  return reason.empty() ? silentReason() : reason;
}

std::string aboutDataSet(const std::string& name, const std::string& reason) {
  return name.empty() ? reason : ocxNetNc::withoutCredentials(name) + ": " + reason;
}

void prepareSection(control::KelvaneCtl& control, const SectionRequest& request) {
  if (const auto reason = openDataSet(control, request.dataSet)) {
    throw Failure(aboutDataSet(request.dataSet, *reason) + hint(request.dataSet));
  }
  if (request.variable && control.SetVarByName(*request.variable) != 1) {
    refuseVariable(control, *request.variable);
  }
  noteBackwardSegments(request.path);
  control.NewSection();
  for (const PathPoint& point : request.path) control.AddSection(point.lon, point.lat);
  if (control.EndSection() != 1) refusePath(control, request.dataSet);
}

std::string shortfallOf(control::KelvaneCtl& control, TerminalDesktop& desktop,
                        const std::function<void()>& member) {
  // The member reports nothing itself, and a success leaves older texts as they are.
  util::LastError.clear();
  desktop.lastMessage.clear();
  member();
  const std::string text = control.ErrorMessage();
  const bool drawingFailed =
      text.starts_with("DrawVSection KelvaneMain") || text.starts_with("DrawProfile KelvaneMain");
  if (!text.empty() && !drawingFailed) throw Failure(text);
  return drawingFailed ? text : desktop.lastMessage;
}

bool sectionIsEmpty() {
  const int32_t item = KelvaneMain::Item_shown;
  if (!KelvaneMain::DrawItems.has(item)) return false;
  return KelvaneMain::DrawItems(item).maximum < KelvaneMain::DrawItems(item).minimum;
}

void noteEmptySection() {
  if (!sectionIsEmpty()) return;
  report("note: every value of " + shownName() + " is missing along this path.");
}

std::string shownName() {
  const int32_t item = KelvaneMain::Item_shown;
  return KelvaneMain::DrawItems.has(item) ? KelvaneMain::DrawItems(item).name : std::string();
}

}  // namespace cli
