#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/pathText.h"

namespace form {

// The rows of the path's editor, with the texts as they were typed. Rows count from 0; their
// numbers in messages count from 1. An index outside the rows changes nothing.
class PathTable {
 public:
  struct Row {
    std::wstring longitude, latitude;
  };

  explicit PathTable(const Path& path = {});

  std::size_t size() const { return rows_.size(); }
  const Row& row(std::size_t index) const { return rows_.at(index); }

  void setLongitude(std::size_t index, const std::wstring& text);
  void setLatitude(std::size_t index, const std::wstring& text);
  // An empty row after the one of this index, or the first row: the new row's index.
  std::size_t insertAfter(std::size_t index);
  void remove(std::size_t index);
  void moveUp(std::size_t index);
  void moveDown(std::size_t index) { moveUp(index + 1); }
  // The points in place of all rows.
  void assign(const Path& path);

  // Why the rows are no path yet, in a sentence; empty when they are one.
  std::wstring problem() const;
  // What may surprise in a path without a problem; empty when nothing does.
  std::wstring note() const;
  // The points, when there is no problem.
  std::optional<Path> path() const;

 private:
  std::vector<Row> rows_;
};

}  // namespace form
