#include "model/PathTable.h"

#include <utility>

#include "model/degrees.h"

namespace form {
namespace {

// Grids run beyond 360 where they cross the date line.
constexpr double kLeastLongitude = -360, kGreatestLongitude = 720, kGreatestLatitude = 90;

std::wstring pointName(std::size_t index) { return L"Point " + std::to_wstring(index + 1); }

std::wstring problemOf(const std::wstring& text, const wchar_t* what, double least,
                       double greatest) {
  if (trimmed(text).empty()) return std::wstring(L"the ") + what + L" is missing";
  const std::optional<double> value = readDegrees(text);
  if (!value) return std::wstring(L"the ") + what + L" is not a number";
  if (*value >= least && *value <= greatest) return {};
  return std::wstring(L"the ") + what + L" must be from " + writeDegrees(least) + L" to " +
         writeDegrees(greatest);
}

}  // namespace

PathTable::PathTable(const Path& path) { assign(path); }

void PathTable::setLongitude(std::size_t index, const std::wstring& text) {
  if (index < rows_.size()) rows_[index].longitude = text;
}

void PathTable::setLatitude(std::size_t index, const std::wstring& text) {
  if (index < rows_.size()) rows_[index].latitude = text;
}

std::size_t PathTable::insertAfter(std::size_t index) {
  const std::size_t at = index < rows_.size() ? index + 1 : rows_.size();
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), Row{});
  return at;
}

void PathTable::remove(std::size_t index) {
  if (index < rows_.size()) rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
}

void PathTable::moveUp(std::size_t index) {
  if (index > 0 && index < rows_.size()) std::swap(rows_[index - 1], rows_[index]);
}

void PathTable::assign(const Path& path) {
  rows_.clear();
  for (const auto& [longitude, latitude] : path) {
    rows_.push_back({writeDegrees(longitude), writeDegrees(latitude)});
  }
}

std::wstring PathTable::problem() const {
  for (std::size_t k = 0; k < rows_.size(); ++k) {
    std::wstring wrong =
        problemOf(rows_[k].longitude, L"longitude", kLeastLongitude, kGreatestLongitude);
    if (wrong.empty()) {
      wrong = problemOf(rows_[k].latitude, L"latitude", -kGreatestLatitude, kGreatestLatitude);
    }
    if (!wrong.empty()) return pointName(k) + L": " + wrong + L".";
  }
  return rows_.size() < 2 ? L"A path needs two points or more." : L"";
}

std::wstring PathTable::note() const {
  const std::optional<Path> points = path();
  if (!points) return {};
  for (std::size_t k = 1; k < points->size(); ++k) {
    const PathPoint &before = (*points)[k - 1], &here = (*points)[k];
    const std::wstring names = pointName(k) + L" lies % of point " + std::to_wstring(k) +
                               L", but from each point a path runs east and north.";
    const auto lies = [&](const wchar_t* where) {
      std::wstring text = names;
      return text.replace(text.find(L'%'), 1, where);
    };
    if (here == before) return pointName(k) + L" is the same as the one before it.";
    if (here.longitude < before.longitude) return lies(L"west");
    if (here.latitude < before.latitude) return lies(L"south");
  }
  return {};
}

std::optional<Path> PathTable::path() const {
  if (!problem().empty()) return std::nullopt;
  Path points;
  for (const Row& row : rows_) {
    points.push_back({*readDegrees(row.longitude), *readDegrees(row.latitude)});
  }
  return points;
}

}  // namespace form
